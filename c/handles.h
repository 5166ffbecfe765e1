// What stands behind the pointers of the interface in C, and the wall that no exception passes.
#pragma once

#include <mirlow/mirlow.h>

#include <istream>
#include <memory>
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

// Hands on what is written to it, as it comes, and asks for what is read from it.
class HostBuffer final : public std::streambuf {
 public:
  void SetTarget(mirlow_write write, void* user) {
    write_ = write;
    writer_ = user;
  }
  // What is left of what the one before has said is forgotten.
  void SetSource(mirlow_read read, void* user) {
    read_ = read;
    reader_ = user;
    setg(nullptr, nullptr, nullptr);
  }

 protected:
  std::streamsize xsputn(const char* text, std::streamsize length) override {
    if (write_) write_(writer_, text, static_cast<std::size_t>(length));
    return length;
  }
  int_type underflow() override {
    const std::size_t length = read_ ? read_(reader_, room_, sizeof room_) : 0;
    if (length == 0 || length > sizeof room_) return traits_type::eof();
    setg(room_, room_, room_ + length);
    return traits_type::to_int_type(*room_);
  }
  int_type overflow(int_type character) override {
    const char c = traits_type::to_char_type(character);
    if (!traits_type::eq_int_type(character, traits_type::eof())) xsputn(&c, 1);
    return traits_type::not_eof(character);
  }

 private:
  mirlow_write write_ = nullptr;
  void* writer_ = nullptr;
  mirlow_read read_ = nullptr;
  void* reader_ = nullptr;
  char room_[256];
};

// What is bound to the symbols of a state. When the state ends first, it is cut off, and does
// nothing from then on.
class Bound {
 public:
  explicit Bound(mirlow_state& state);
  virtual ~Bound();
  Bound(const Bound&) = delete;
  Bound& operator=(const Bound&) = delete;

  // Null when it is cut off.
  mirlow_state* GetState() const { return state_; }
  void CutOff();

 protected:
  // Lets go of the state.
  virtual void Drop() = 0;

 private:
  mirlow_state* state_;
  Bound* previous_ = nullptr;
  Bound* next_;
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
  using Names = Quarn::s_ctnr<Quarn::s_str>;

  mirlow_state();
  ~mirlow_state();

  // Keeps what failed; MIRLOW_FAILED.
  mirlow_status Fail(Quarn::Result result);

  Quarn::HostBuffer buffer;
  std::ostream out{&buffer};
  std::istream in{&buffer};
  Quarn::State state{out, in};
  std::string error_text;
  std::unique_ptr<const Names> names;  // of symbols, for who walks through them
  mirlow_error error = {MIRLOW_NO_FAILURE, "", 0, 0};
  mirlow_error error_of_line = {MIRLOW_NO_FAILURE, "", 0, 0};
  Quarn::Bound* bound = nullptr;  // the first of all
};
