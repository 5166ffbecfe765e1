// What stands behind the pointers of the interface in C, and the wall that no exception passes.
#pragma once

#include <mirlow/mirlow.h>

#include <istream>
#include <new>
#include <ostream>
#include <streambuf>
#include <string>

#include "interpreter/state.h"

// A value, and the texts that it was asked for.
struct mirlow_value {
  Quarn::s_refptr<Quarn::Symbol> value;
  std::string text;
  std::string type;
};

// The error text of a call that is under way.
struct mirlow_call {
  Quarn::s_str& error;
};

namespace Quarn {

// Hands on what is written to it, as it comes; reads as an input that has ended.
class WriteBuffer final : public std::streambuf {
 public:
  void SetTarget(mirlow_write write, void* user) {
    write_ = write;
    user_ = user;
  }

 protected:
  std::streamsize xsputn(const char* text, std::streamsize length) override {
    if (write_) write_(user_, text, static_cast<std::size_t>(length));
    return length;
  }
  int_type overflow(int_type character) override {
    const char c = traits_type::to_char_type(character);
    if (!traits_type::eq_int_type(character, traits_type::eof())) xsputn(&c, 1);
    return traits_type::not_eof(character);
  }

 private:
  mirlow_write write_ = nullptr;
  void* user_ = nullptr;
};

// Runs the body; what it throws becomes a status.
template <class Body>
mirlow_status Guarded(const Body& body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return MIRLOW_NO_MEMORY;
  } catch (...) {
    return MIRLOW_INTERNAL;
  }
}

// Hands a value out. REQUIRES: not null.
mirlow_status HandOut(s_refptr<Symbol> value, mirlow_value** out);

}  // namespace Quarn

// A state with the streams that it was made with. The streams come first, since they must outlive
// it.
struct mirlow_state {
  mirlow_state();

  // Keeps what failed; MIRLOW_FAILED.
  mirlow_status Fail(Quarn::Result result);

  Quarn::WriteBuffer buffer;
  std::ostream out{&buffer};
  std::istream in{&buffer};
  Quarn::State state{out, in};
  std::string error_text;
  std::string name;
  mirlow_error error = {MIRLOW_NO_FAILURE, "", 0, 0};
};
