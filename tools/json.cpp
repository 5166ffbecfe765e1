#include "tools/json.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <vector>

#include "types/value.h"

namespace Quarn {
namespace {

constexpr std::string_view kReplacement = "\\ufffd";

// The forms of UTF-8: by the first byte, how many follow, and the bounds of the second, which rule
// out long forms, surrogates and what is beyond U+10FFFF. All further bytes are 80 to BF.
struct Form {
  unsigned char first;
  unsigned char last;
  unsigned char following;
  unsigned char lowest;
  unsigned char highest;
};
constexpr Form kForms[] = {
    {0x00, 0x7F, 0, 0x80, 0xBF},
    {0xC2, 0xDF, 1, 0x80, 0xBF},
    {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x80, 0x9F},
    {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x80, 0xBF},
    {0xF4, 0xF4, 3, 0x80, 0x8F},
};

bool Has(std::string_view text, const Form& form) {
  if (text.size() <= form.following) return false;
  for (std::size_t i = 1; i <= form.following; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < (i == 1 ? form.lowest : 0x80) || byte > (i == 1 ? form.highest : 0xBF)) return false;
  }
  return true;
}

// The length of the character that the text begins with; 0 when that is none.
std::size_t MeasureCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  for (const Form& form : kForms) {
    if (first >= form.first && first <= form.last)
      return Has(text, form) ? std::size_t{1} + form.following : 0;
  }
  return 0;
}

void AppendAscii(std::string& out, char c) {
  constexpr char kDigits[] = "0123456789abcdef";
  if (c == '"' || c == '\\') {
    (out += '\\') += c;
  } else if (static_cast<unsigned char>(c) < ' ' || c == 0x7F) {
    out += "\\u00";
    out += kDigits[c >> 4];
    out += kDigits[c & 0xF];
  } else {
    out += c;
  }
}

// A list that is being written, and its next element.
struct Open {
  std::vector<s_refptr<Symbol>> elements;
  std::size_t next = 0;
};

// True when the value is a list, which is begun.
bool BeginValue(std::string& out, const s_refptr<Symbol>& value, std::vector<Open>& open) {
  const s_refptr<Symbol> followed = EvaluateReference(value).value;
  if (auto elements = ToElements(followed)) {
    out += '[';
    open.push_back({std::move(*elements)});
    return true;
  }
  const std::optional<double> number = ToNumber(followed);
  number ? AppendJsonNumber(out, *number) : void(out += "null");
  return false;
}

}  // namespace

void AppendJsonString(std::string& out, std::string_view text) {
  out += '"';
  while (!text.empty()) {
    const std::size_t size = MeasureCharacter(text);
    if (size == 1) {
      AppendAscii(out, text.front());
    } else {
      out += size == 0 ? kReplacement : text.substr(0, size);
    }
    text.remove_prefix(size == 0 ? 1 : size);
  }
  out += '"';
}

void AppendJsonNumber(std::string& out, double number) {
  if (!std::isfinite(number)) {
    out += "null";
    return;
  }
  char digits[32];
  out.append(digits, std::to_chars(digits, digits + sizeof(digits), number).ptr);
}

void AppendJsonValue(std::string& out, const s_refptr<Symbol>& value) {
  std::vector<Open> open;
  BeginValue(out, value, open);
  while (!open.empty()) {
    Open& list = open.back();
    if (list.next == list.elements.size()) {
      out += ']';
      open.pop_back();
      continue;
    }
    if (list.next != 0) out += ',';
    const s_refptr<Symbol> element = list.elements[list.next++];
    BeginValue(out, element, open);
  }
}

}  // namespace Quarn
