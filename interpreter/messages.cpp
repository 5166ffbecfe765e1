#include "interpreter/messages.h"

#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

// One text from many parts; s_str and plain texts alike.
template <class... Parts>
s_str Join(const Parts&... parts) {
  const auto view = [](const auto& part) -> std::string_view {
    if constexpr (std::is_same_v<std::decay_t<decltype(part)>, s_str>) {
      return part.GetView();
    } else {
      return part;
    }
  };
  s_str joined;
  (joined.Append(view(parts)), ...);
  return joined;
}

}  // namespace

void AddError(s_str& error, const s_str& message) {
  if (!error.IsEmpty()) error += '\n';
  error += message;
}

namespace messages {

s_str TooManyClosing(char bracket) {
  return Join("\tError : Too many closing '", std::string_view(&bracket, 1), "'");
}

s_str Unterminated(char bracket) {
  return Join("\tError : Unterminated '", std::string_view(&bracket, 1), "'");
}

s_str EmptySymbol() { return "\tError : Empty symbol"; }

s_str AmbiguousConstructor(std::string_view text, const s_ctnr<s_str>& types) {
  s_str message =
      Join("\tError : Ambiguous constructor : '", text, "'.\n\t        Possible candidates : ");
  std::string_view separator;
  for (const s_str& type : types) {
    message.Append(separator).Append(type.GetView());
    separator = ", ";
  }
  return message;
}

s_str NoOperatorFound(std::string_view expression) {
  return Join("\tError : Unable to parse expression '", expression, "', no operator found");
}

s_str MissingOperands(std::string_view op) {
  return Join("\tError : Operator '", op, "' is missing its operands");
}

s_str UnknownSymbol(std::string_view name) { return Join("\tError : Unknown symbol '", name, "'"); }

s_str UndefinedFunction(std::string_view name) {
  return Join("\tError : Undefined function '", name, "'");
}

s_str NoMatchingFunction(const s_str& name, const s_str& signature,
                         const s_ctnr<s_str>& overloads) {
  s_str message = Join("\tError : No matching function call to :\n\t\t  ", name, signature,
                       "\n\t\tPossible candidates :");
  for (const s_str& overload : overloads) message += Join("\n\t\t  ", name, overload);
  return message;
}

s_str NotOneReturnValue() {
  return "\tError : Multiple return values for function is not yet supported";
}

s_str EmptyIndex() { return "\tError : Illegal use of '[.]' with empty argument"; }

s_str IndexOnNothing() { return "\tError : Illegal use of '[.]' on empty object"; }

s_str LimitReached(Failure limit) {
  switch (limit) {
    case Failure::kNesting:
      return "\tError : Expression has too many levels";
    case Failure::kSteps:
      return "\tError : Evaluation takes too many steps";
    case Failure::kOutput:
      return "\tError : Output is too long";
    case Failure::kInterrupted:
      return "\tError : Evaluation was interrupted";
    default:
      return "\tError : Expression is nested too deeply";
  }
}

s_str EndlessFactorial(const s_str& number) {
  return Join("\tError : The factorial of ", number.GetView(), " never ends");
}

s_str EndlessIndex() { return "\tError : The index is infinite"; }

s_str TooLong() { return "\tError : Expression is too long"; }

s_str LeadsBackToItself(std::string_view expression) {
  return Join("\tError : Reference '", expression, "' leads back to itself");
}

s_str SymbolAssignedToSymbol() { return "\tWarning : 'Symbol=Symbol' does nothing"; }

s_str NoBinaryMatch(std::string_view op, const s_str& left_type, const s_str& right_type,
                    const s_str& left, const s_str& right) {
  return Join("\tError : No match for operator '", left_type, " ", op, " ", right_type,
              "' in :\n\t        \t", left, " ", op, " ", right);
}

s_str NoRightUnaryMatch(std::string_view op, const s_str& type, const s_str& operand) {
  return Join("\tError : No match for operator '", op, " ", type, "' in :\n\t        \t", op, " ",
              operand);
}

s_str NoLeftUnaryMatch(std::string_view op, const s_str& type, const s_str& operand) {
  return Join("\tError : No match for operator '", type, " ", op, "' in :\n\t        \t", operand,
              " ", op);
}

s_str LastResultNotAssignable() {
  return "\tError : Reference to last result '_' is not assignable";
}

s_str OnlyAlphanumericNames(std::string_view name) {
  return Join("\tError : Only alphanumeric names are allowed for symbols, in '", name, "'");
}

s_str UnknownType(std::string_view type) { return Join("\tError : Unknown type '", type, "'"); }

s_str NameOutOfReach(std::string_view name) {
  return Join("\tError : No expression can ask for a symbol named '", name, "'");
}

s_str NoValueToSet(std::string_view name) {
  return Join("\tError : No value to give to symbol '", name, "'");
}

s_str EraseAllSymbols() {
  return "\tWarning : This command will erase all symbols.\n"
         "\t          Are you sure ? ([y|Enter]/n) ";
}

s_str AllSymbolsErased() { return "\tAll symbols erased"; }

s_str SymbolErased(std::string_view type, std::string_view name) {
  return Join("\t", type, " '", name, "' erased");
}

s_str IsUndefined(std::string_view name) { return Join("\t'", name, "' is undefined"); }

s_str NonHomogeneous(const s_str& first_type, const s_str& second_type) {
  return Join("\tError : Non-homogeneous Vectors are not allowed.\n\t        Trying to mix ",
              first_type, " with ", second_type);
}

s_str DifferentLengths(std::string_view verb, s_uint left, s_uint right) {
  return Join("\tError : Cannot ", verb, " two Vectors of different length (", ToText(left),
              " and ", ToText(right), ")");
}

s_str OnlyFor3Vectors() {
  return "\tError : The cross product '^' is only available for 3-Vectors";
}

s_str CannotIndexEmpty() { return "\tError : Cannot index an empty Vector"; }

}  // namespace messages
}  // namespace Quarn
