// What most types have in common, for types that are written outside of this library: a value that
// holds one plain C++ value, its payload, and rows of the registries made from plain functions on
// payloads.
//   class Angle final : public Holder<Angle, double> {
//    public:
//     static constexpr char kType[] = "Angle";
//     static std::optional<double> Read(std::string_view text);  // its literals: "90deg"
//     static std::string Write(double degrees);                  // its text
//     using Holder::Holder;
//   };
//   state.AddType(TypeOf<Angle>());
//   state.AddBinary({Row<Angle(Scalar, Angle)>("*", std::multiplies<>())});  // 2*90deg
#pragma once

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "../interpreter/registry.h"
#include "lift.h"
#include "vector.h"

namespace Quarn {

// The base of the class `Own`, which has the members named above. Read is left out for a type
// without literals. A value never changes but for its name.
template <class Own, class Payload>
class Holder : public Symbol {
 public:
  // A declared value: that of Payload().
  explicit Holder(const s_str& name) : Holder(name, Payload()) {}
  Holder(const s_str& name, Payload payload) : Symbol(name), payload_(std::move(payload)) {}

  // What the value holds.
  const Payload& GetPayload() const { return payload_; }

  // "90deg", and "a = 90deg" for a symbol.
  s_str ToString() const override {
    const s_str text = s_str(std::string(Own::Write(payload_)));
    return GetName().IsEmpty() ? text : GetName() + " = " + text;
  }
  s_str GetType() const override { return Own::kType; }
  s_refptr<Symbol> Clone() const override {
    return s_refptr<Symbol>(new Own(static_cast<const Own&>(*this)));
  }

 private:
  Payload payload_;
};

// How the payload of a class gets out of a value and into a new one. A class of another kind than
// Holder is brought in by a specialisation.
template <class Own>
struct Payloads {
  // Out of a value of the class, and into a new temporary.
  static const auto& Of(const Symbol& value) { return static_cast<const Own&>(value).GetPayload(); }
  template <class Payload>
  static s_refptr<Symbol> New(Payload&& payload) {
    return s_refptr<Symbol>(new Own(Symbol::NoName(), std::forward<Payload>(payload)));
  }
};
// The payload of a Scalar is a double.
template <>
struct Payloads<Scalar> {
  // As for any class.
  static double Of(const Symbol& value) { return NumberOf(value); }
  static s_refptr<Symbol> New(double number) { return NewNumber(Symbol::NoName(), number); }
};
// The payload of a Vector are its elements.
template <>
struct Payloads<Vector> {
  // As for any class.
  static const Values& Of(const Symbol& value) {
    return static_cast<const Vector&>(value).GetElements();
  }
  static s_refptr<Symbol> New(const Values& elements) {
    return s_refptr<Symbol>(
        new Vector(Symbol::NoName(), s_refptr<Elements>(new Elements(elements))));
  }
};

// The row of a type. With Read, the type has the literals for which that returns a payload; they
// begin with one of the characters `starts`, or with any when there are none.
template <class Own>
TypeRow TypeOf(std::string_view starts = {}) {
  TypeRow row{Own::kType, [](const s_str& name) { return s_refptr<Symbol>(new Own(name)); }};
  if constexpr (requires { Own::Read(std::string_view()); }) {
    row.is_literal = [](std::string_view text) -> s_bool { return Own::Read(text).has_value(); };
    row.create_from = [](State&, const s_str& name, const s_str& text, s_str&) {
      return s_refptr<Symbol>(new Own(name, *Own::Read(text.GetView())));
    };
    row.literal_starts = s_str(starts);
  }
  return row;
}

// The value of class `Result` that `f` makes of payloads. An `f` that may fail takes an error text
// behind them and returns an optional.
template <class Result, class F, class... Operands>
s_refptr<Symbol> ApplyToPayloads(const F& f, s_str& error, const Operands&... operands) {
  if constexpr (std::is_invocable_v<const F&, const Operands&..., s_str&>) {
    auto payload = f(operands..., error);
    return payload ? Payloads<Result>::New(*std::move(payload)) : s_refptr<Symbol>();
  } else {
    return Payloads<Result>::New(f(operands...));
  }
}

// Makes rows for the classes of a signature, whose types can so never differ from what `f` gets.
template <class Signature>
struct RowOf;

// With one operand.
template <class Result, class Operand>
struct RowOf<Result(Operand)> {
  // For an operator.
  template <class F>
  static UnaryRow Make(const char* op, F f) {
    return {op, Operand::kType, [f](const s_refptr<Symbol>& operand, s_str& error) {
              return ApplyToPayloads<Result>(f, error, Payloads<Operand>::Of(*operand));
            }};
  }
};

// With two operands.
template <class Result, class Left, class Right>
struct RowOf<Result(Left, Right)> {
  // For an operator.
  template <class F>
  static BinaryRow Make(const char* op, F f) {
    return {Left::kType, op, Right::kType,
            [f](const s_refptr<Symbol>& left, const s_refptr<Symbol>& right, s_str& error) {
              return ApplyToPayloads<Result>(f, error, Payloads<Left>::Of(*left),
                                             Payloads<Right>::Of(*right));
            }};
  }
};

// A row for an operator: for AddLeftUnary and AddRightUnary with one class in the parentheses of
// the signature, for AddBinary with two.
//   Row<Angle(Angle, Angle)>("+", std::plus<>())
template <class Signature, class F>
auto Row(const char* op, F f) {
  return RowOf<Signature>::Make(op, f);
}

// The same for functions.
template <class Signature>
struct CallOf;

// With as many arguments as the signature has.
template <class Result, class... Arguments>
struct CallOf<Result(Arguments...)> {
  // For a function of that name.
  template <class F>
  static FunctionRow Make(const char* name, F f) {
    return {name, Types(), [f](State&, const Values& arguments, Values& results, s_str& error) {
              return Add(Apply(f, arguments, error, std::index_sequence_for<Arguments...>()),
                         results);
            }};
  }

 private:
  static s_ctnr<s_str> Types() {
    if constexpr (sizeof...(Arguments) == 0) return {""};
    return {Arguments::kType...};
  }
  // False when there is no result.
  static s_bool Add(s_refptr<Symbol> result, Values& results) {
    if (!result) return false;
    results.PushBack(std::move(result));
    return true;
  }
  template <class F, std::size_t... Index>
  static s_refptr<Symbol> Apply(const F& f, [[maybe_unused]] const Values& arguments, s_str& error,
                                std::index_sequence<Index...>) {
    return ApplyToPayloads<Result>(
        f, error, Payloads<Arguments>::Of(*arguments[static_cast<unsigned int>(Index)])...);
  }
};

// A row for a function, for AddFunctions. Rows of one name and different signatures overload it.
//   Call<Scalar(Angle)>("sin", Sine)
template <class Signature, class F>
FunctionRow Call(const char* name, F f) {
  return CallOf<Signature>::Make(name, f);
}

}  // namespace Quarn
