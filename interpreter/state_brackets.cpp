// The cutting of an expression by a test of the caller's, for types whose literals need it. The
// reader cuts texts in place, by the same rules; see reader.h.
#include "interpreter/messages.h"
#include "interpreter/priorities.h"
#include "interpreter/state.h"

namespace Quarn {
namespace {

struct BracketPair {
  char open;
  char close;
};
constexpr BracketPair kPairs[] = {
    {'(', ')'},
    {'<', '>'},
    {'[', ']'}
};

// Collects the pieces of a text between cuts.
class PieceCollector {
 public:
  PieceCollector(s_ctnr<s_str>& pieces, const std::string& text) : pieces_(pieces), text_(text) {}

  void CutAt(std::size_t position, std::size_t behind) {
    if (position > begin_) pieces_.PushBack(text_.substr(begin_, position - begin_));
    begin_ = behind;
  }

 private:
  s_ctnr<s_str>& pieces_;
  const std::string& text_;
  std::size_t begin_ = 0;
};

}  // namespace

s_bool State::CheckBrackets(s_ctnr<s_str>& pieces, const s_str& expression,
                            SeparatorTest is_separator, s_str& error,
                            s_bool keep_separators) const {
  const std::string& text = expression.Get();
  PieceCollector collector(pieces, text);
  const BracketPair* inside = nullptr;  // the one kind that counts until it is closed
  s_uint depth = 0U;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inside) {
      if (c == inside->open) depth += 1U;
      if (c == inside->close) depth -= 1U;
      if (depth.IsNull()) inside = nullptr;
      continue;
    }
    for (const BracketPair& pair : kPairs) {
      if (c == pair.close) {
        AddError(error, messages::TooManyClosing(c));
        return false;
      }
      if (c == pair.open) inside = &pair;
    }
    if (inside) {
      depth = 1U;
      continue;
    }
    s_str separator;
    if (!is_separator(text.begin() + static_cast<std::ptrdiff_t>(i), expression, separator)) {
      continue;
    }
    collector.CutAt(i, i + separator.Get().size());
    if (keep_separators && !separator.IsEmpty()) pieces.PushBack(separator);
    // The loop's own step follows; a separator has at least one character.
    i += separator.IsEmpty() ? 0 : separator.Get().size() - 1;
  }
  if (inside) {
    AddError(error, messages::Unterminated(inside->open));
    return false;
  }
  collector.CutAt(text.size(), text.size());
  return true;
}

s_bool State::IsOperatorAt(s_str::const_iterator position, const s_str& expression,
                           s_str& op) const {
  const std::string_view rest(&*position, static_cast<std::size_t>(expression.end() - position));
  const OperatorPriority* first = nullptr;
  for (const OperatorPriority& row : kPriorities) {
    // A text that ends inside the operator's still counts as far as it goes.
    if (!rest.starts_with(row.text.substr(0, rest.size()))) continue;
    if (!first || row.text < first->text) first = &row;
  }
  if (!first) return false;
  op = s_str(first->text);
  return true;
}

}  // namespace Quarn
