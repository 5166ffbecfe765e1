#include "utils/s_str.h"

#include <ctype.h>

#include <algorithm>

#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

// INF and NaN mean up to the end, npos to the standard string.
std::size_t ToLength(s_uint count) { return count.IsValid() ? count.Get() : std::string::npos; }

// The C library takes only codes that fit an unsigned char.
template <class T>
T ChangeCase(T character, int (*change)(int)) {
  const auto code = static_cast<std::make_unsigned_t<T>>(character);
  return code <= 0xFF ? static_cast<T>(change(static_cast<int>(code))) : character;
}

}  // namespace

template <class T>
s_bool s_str_t<T>::IsEmpty(s_bool blanks_are_empty) const {
  if (text_.empty()) return true;
  if (!blanks_are_empty) return false;
  return std::all_of(text_.begin(), text_.end(), [](T c) { return c == T(' ') || c == T('\t'); });
}

template <class T>
s_uint s_str_t<T>::Find(const s_str_t& pattern, s_uint from) const {
  if (!from.IsValid()) return s_uint::NaN;
  const std::size_t position = text_.find(pattern.text_, from.Get());
  return position == String::npos ? s_uint::NaN : s_uint(static_cast<unsigned int>(position));
}

template <class T>
s_str_t<T> s_str_t<T>::ExtractCount(s_uint start, s_uint count) const {
  return text_.substr(ToLength(start), ToLength(count));
}

template <class T>
s_str_t<T> s_str_t<T>::Extract(s_uint start, s_uint end) const {
  return ExtractCount(start, end.IsValid() ? end - start : s_uint::INF);
}

template <class T>
void s_str_t<T>::EraseFromStart(s_uint n) {
  text_.erase(0, ToLength(n));
}

template <class T>
void s_str_t<T>::EraseFromEnd(s_uint n) {
  if (!n.IsValid()) return Clear();
  text_.erase((GetSize() - n).Get());
}

template <class T>
s_uint s_str_t<T>::Trim(T character) {
  const std::size_t before = text_.size();
  text_.erase(0, std::min(text_.find_first_not_of(character), before));
  text_.erase(text_.find_last_not_of(character) + 1);
  return static_cast<unsigned int>(before - text_.size());
}

template <class T>
s_uint s_str_t<T>::Replace(const s_str_t& pattern, const s_str_t& replacement) {
  unsigned int count = 0;
  String replaced;
  std::size_t from = 0;
  for (std::size_t at; (at = text_.find(pattern.text_, from)) != String::npos; ++count) {
    replaced.append(text_, from, at - from).append(replacement.text_);
    from = at + pattern.text_.size();
  }
  if (count) text_ = replaced.append(text_, from);
  return count;
}

template <class T>
s_ctnr<s_str_t<T>> s_str_t<T>::Cut(const s_str_t& delimiter) const {
  s_ctnr<s_str_t> pieces;
  s_uint from = 0U;
  for (s_uint at; (at = Find(delimiter, from)).IsValid(); from = at + delimiter.GetSize()) {
    if (at != from) pieces.PushBack(ExtractCount(from, at - from));
  }
  pieces.PushBack(ExtractCount(from, s_uint::INF));
  return pieces;
}

template <class T>
s_str_t<T> s_str_t<T>::Repeat(s_uint n) const {
  s_str_t repeated;
  if (!n.IsValid() || text_.empty()) return repeated;
  repeated.text_.reserve(text_.size() * n.Get());
  for (unsigned int i = 0; i < n.Get(); ++i) repeated.text_ += text_;
  return repeated;
}

template <class T>
void s_str_t<T>::ToUpper() {
  for (T& character : text_) character = ChangeCase(character, &::toupper);
}

template <class T>
void s_str_t<T>::ToLower() {
  for (T& character : text_) character = ChangeCase(character, &::tolower);
}

template <class T>
void s_str_t<T>::CapitalStart(s_bool upper) {
  if (text_.empty()) return;
  text_.front() = ChangeCase(text_.front(), upper ? &::toupper : &::tolower);
}

template <class T>
s_bool s_str_t<T>::IsNumber() const {
  return ReadDouble(Narrow(*this).GetView()).complete;
}

template <class T>
s_bool s_str_t<T>::IsBoolean() const {
  for (const BooleanWord& word : kBooleanWords) {
    if (*this == s_str_t(word.text)) return true;
  }
  return false;
}

template class s_str_t<char>;
template class s_str_t<unsigned int>;

}  // namespace Quarn
