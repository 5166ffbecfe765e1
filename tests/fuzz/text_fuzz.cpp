// Property: the operations of the text type, of bytes and of 32-bit characters alike, do what the
// same operations on std::string do, written down plainly. The input is two bytes for positions,
// then a text, a pattern and a replacement, with a newline between them. Skipped: an empty pattern,
// which replacing and cutting require not to be, and starts past the end, which throw.
#include <algorithm>
#include <cctype>

#include "tests/fuzz/fuzz.h"
#include "utils/s_str.h"
#include "utils/s_str_convert.h"

namespace Quarn::fuzz {
namespace {

struct Input {
  unsigned int first = 0, second = 0;
  std::string text, pattern, replacement;
};

std::string TakeLine(std::string_view& rest) {
  const std::string_view line = rest.substr(0, rest.find('\n'));
  rest.remove_prefix(std::min(rest.size(), line.size() + 1));
  return std::string(line);
}

Input Read(std::string_view bytes) {
  Input input;
  if (bytes.size() < 2) return input;
  input.first = static_cast<unsigned char>(bytes[0]);
  input.second = static_cast<unsigned char>(bytes[1]);
  bytes.remove_prefix(2);
  input.text = TakeLine(bytes);
  input.pattern = TakeLine(bytes);
  input.replacement = std::string(bytes);
  return input;
}

s_str MakeText(const std::string& text, s_str) { return text; }
s_ustr MakeText(const std::string& text, s_ustr) { return Widen(text); }

template <class Text>
std::string Plain(const Text& text) {
  return Narrow(text).Get();
}

s_uint ToPosition(std::size_t position) {
  return position == std::string::npos ? s_uint::NaN : s_uint(static_cast<unsigned int>(position));
}

bool Is(s_bool truth) { return static_cast<bool>(truth); }

bool IsSame(s_uint a, s_uint b) { return a.GetState() == b.GetState() && a.Get() == b.Get(); }

std::string TrimPlainly(std::string text, char character) {
  while (!text.empty() && text.front() == character) text.erase(0, 1);
  while (!text.empty() && text.back() == character) text.pop_back();
  return text;
}

std::string ReplacePlainly(std::string text, const std::string& pattern,
                           const std::string& replacement, unsigned int& count) {
  for (std::size_t at = 0; (at = text.find(pattern, at)) != std::string::npos; ++count) {
    text.replace(at, pattern.size(), replacement);
    at += replacement.size();
  }
  return text;
}

// The pieces, each with a mark in front.
std::string CutPlainly(std::string text, const std::string& delimiter) {
  std::string pieces;
  for (std::size_t at; (at = text.find(delimiter)) != std::string::npos;) {
    if (at > 0) pieces += "|" + text.substr(0, at);
    text.erase(0, at + delimiter.size());
  }
  return pieces + "|" + text;
}

template <class Text>
void TryQuestions(const Input& in) {
  const Text text = MakeText(in.text, Text());
  const Text pattern = MakeText(in.pattern, Text());
  const std::size_t at = in.text.find(in.pattern, in.first);
  Require(IsSame(text.Find(pattern, in.first), ToPosition(at)), "Find", in.text);
  Require(Is(text.StartsWith(pattern)) == (in.text.substr(0, in.pattern.size()) == in.pattern),
          "StartsWith", in.text);
  const bool ends = in.text.size() >= in.pattern.size() &&
                    in.text.substr(in.text.size() - in.pattern.size()) == in.pattern;
  Require(Is(text.EndsWith(pattern)) == ends, "EndsWith", in.text);
  Require(Is(text == pattern) == (in.text == in.pattern), "==", in.text);
  Require(Is(text < pattern) == (in.text < in.pattern), "<", in.text);
  const bool is_blank = in.text.find_first_not_of(" \t") == std::string::npos;
  Require(Is(text.IsEmpty(true)) == is_blank, "IsEmpty", in.text);
  if (in.first > in.text.size()) return;
  RequireEqual(Plain(text.ExtractCount(in.first, in.second)), in.text.substr(in.first, in.second),
               "ExtractCount");
  if (in.second < in.first) return;
  RequireEqual(Plain(text.Extract(in.first, in.second)),
               in.text.substr(in.first, in.second - in.first), "Extract");
}

template <class Text>
void TryErasing(const Input& in) {
  Text text = MakeText(in.text, Text());
  text.EraseFromStart(in.first);
  RequireEqual(Plain(text), in.text.substr(std::min<std::size_t>(in.first, in.text.size())),
               "EraseFromStart");
  text = MakeText(in.text, Text());
  const auto character = static_cast<char>(in.second);
  using Character = typename Text::String::value_type;
  const auto wanted = static_cast<Character>(static_cast<unsigned char>(character));
  const std::string trimmed = TrimPlainly(in.text, character);
  const s_uint removed = text.Trim(static_cast<Character>(wanted));
  RequireEqual(Plain(text), trimmed, "Trim");
  Require(removed.Get() == in.text.size() - trimmed.size(), "Trim counts", in.text);
  if (in.first > in.text.size()) return;
  text = MakeText(in.text, Text());
  text.EraseFromEnd(in.first);
  RequireEqual(Plain(text), in.text.substr(0, in.text.size() - in.first), "EraseFromEnd");
}

template <class Text>
void TryChanging(const Input& in) {
  Text text = MakeText(in.text, Text());
  RequireEqual(Plain(text), in.text, "widened and narrowed");
  std::string upper = in.text;
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  text.ToUpper();
  RequireEqual(Plain(text), upper, "ToUpper");
  if (in.pattern.empty()) return;
  text = MakeText(in.text, Text());
  unsigned int count = 0;
  const std::string replaced = ReplacePlainly(in.text, in.pattern, in.replacement, count);
  const Text pattern = MakeText(in.pattern, Text());
  Require(text.Replace(pattern, MakeText(in.replacement, Text())).Get() == count, "Replace counts");
  RequireEqual(Plain(text), replaced, "Replace");
  std::string cut;
  for (const Text& piece : MakeText(in.text, Text()).Cut(pattern)) cut += "|" + Plain(piece);
  RequireEqual(cut, CutPlainly(in.text, in.pattern), "Cut");
}

}  // namespace

void Try(std::string_view bytes) {
  const Input input = Read(bytes);
  TryQuestions<s_str>(input);
  TryQuestions<s_ustr>(input);
  TryErasing<s_str>(input);
  TryErasing<s_ustr>(input);
  TryChanging<s_str>(input);
  TryChanging<s_ustr>(input);
}

}  // namespace Quarn::fuzz
