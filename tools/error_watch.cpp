#include "tools/error_watch.h"

#include <algorithm>

namespace Quarn {
namespace {

constexpr std::string_view kErrorStart = "\tError : ";
constexpr std::size_t kOther = std::string_view::npos;

}  // namespace

ErrorWatch::int_type ErrorWatch::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return target_.pubsync();
  const char c = traits_type::to_char_type(character);
  Watch({&c, 1});
  return target_.sputc(c);
}

std::streamsize ErrorWatch::xsputn(const char* text, std::streamsize size) {
  Watch({text, static_cast<std::size_t>(size)});
  return target_.sputn(text, size);
}

// A flush follows a whole line or a question, whose answer ends the line.
int ErrorWatch::sync() {
  matched_ = 0;
  return target_.pubsync();
}

void ErrorWatch::Watch(std::string_view text) {
  while (!has_seen_error_ && !text.empty()) {
    if (matched_ == kOther) {
      text.remove_prefix(std::min(text.find('\n'), text.size()));
      if (text.empty()) return;
    }
    const char c = text.front();
    text.remove_prefix(1);
    if (c == '\n') {
      matched_ = 0;
    } else if (c != kErrorStart[matched_]) {
      matched_ = kOther;
    } else {
      has_seen_error_ = ++matched_ == kErrorStart.size();
    }
  }
}

}  // namespace Quarn
