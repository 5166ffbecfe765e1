// The module's own functions, on top of the library's in C: what a page calls that C cannot ask
// for, and the way of what is printed into JavaScript.
#include <cstdlib>
#include <streambuf>
#include <string>

#include "c/handles.h"

#define MODULE_IMPORT(name) __attribute__((import_module("page"), import_name(name)))
#define MODULE_EXPORT(name) __attribute__((export_name(name)))

extern "C" {

// Takes what a line prints. May throw nothing.
MODULE_IMPORT("write") void PageWrite(const char* text, size_t length);
// The next byte of the answer to a question, or -1 at the end of input.
MODULE_IMPORT("read") int PageRead();
}

namespace Quarn {
namespace {

// Answers of the page, a byte at a time.
class Answers final : public std::streambuf {
 protected:
  int_type underflow() override {
    const int next = PageRead();
    if (next < 0) return traits_type::eof();
    byte_ = static_cast<char>(next);
    setg(&byte_, &byte_, &byte_ + 1);
    return next;
  }

 private:
  char byte_ = 0;
};

void Write(void*, const char* text, size_t length) { PageWrite(text, length); }

}  // namespace
}  // namespace Quarn

extern "C" {

// A state that prints to the page and asks it questions. As in a new process, random numbers begin
// anew: a page that is calculated again shows the same ones.
MODULE_EXPORT("page_new") mirlow_state* PageNew() {
  static Quarn::Answers answers;
  std::srand(1);
  mirlow_state* state = mirlow_new();
  if (!state) return nullptr;
  mirlow_set_output(state, Quarn::Write, nullptr);
  state->in.rdbuf(&answers);
  return state;
}

// The names of all types, functions and symbols, each on a line after "type", "function" or
// "symbol". REQUIRES: a state. The text is valid until the next call.
MODULE_EXPORT("page_names") const char* PageNames(const mirlow_state* state) {
  static std::string text;
  text.clear();
  for (const auto& [name, row] : state->state.GetTypes()) text += "type " + name.Get() + '\n';
  for (const auto& [name, overloads] : state->state.GetFunctions()) {
    text += "function " + name.Get() + '\n';
  }
  for (const Quarn::s_str& name : state->state.GetSymbolNames()) {
    text += "symbol " + name.Get() + '\n';
  }
  return text.c_str();
}

}  // extern "C"
