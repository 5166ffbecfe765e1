#include "tools/capture.h"

namespace Quarn {
namespace {

// Of a command's output, what is kept for the next one.
constexpr std::size_t kMostKept = std::size_t{1} << 20;

}  // namespace

void Capture::Clear() {
  text_.clear();
  if (text_.capacity() > kMostKept) text_.shrink_to_fit();
  passed_on_ = 0;
}

Capture::int_type Capture::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return sync();
  text_ += traits_type::to_char_type(character);
  return character;
}

std::streamsize Capture::xsputn(const char* text, std::streamsize size) {
  text_.append(text, static_cast<std::size_t>(size));
  return size;
}

int Capture::sync() {
  const std::string_view rest = GetRest();
  const auto size = static_cast<std::streamsize>(rest.size());
  passed_on_ = text_.size();
  if (size > 0 && before_question_) before_question_();
  const bool is_written = questions_.sputn(rest.data(), size) == size;
  if (size > 0 && &questions_ != &target_) questions_.pubsync();
  return target_.pubsync() == 0 && is_written ? 0 : -1;
}

}  // namespace Quarn
