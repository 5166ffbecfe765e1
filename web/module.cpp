// The module's own functions, on top of the library's in C: what a page calls that C cannot ask
// for, and the way of what is printed into JavaScript.
#include <mirlow/mirlow.h>

#include <cstdlib>
#include <string>

#define MODULE_IMPORT(name) __attribute__((import_module("page"), import_name(name)))
#define MODULE_EXPORT(name) __attribute__((export_name(name)))

extern "C" {

// Takes what a line prints. May throw nothing.
MODULE_IMPORT("write") void PageWrite(const char* text, size_t length);
// The next byte of the answer to a question, or -1 at the end of input.
MODULE_IMPORT("read") int PageRead();
}

namespace {

void Write(void*, const char* text, size_t length) { PageWrite(text, length); }

// A byte at a time: what is left of the answers is for the page to drop.
size_t Read(void*, char* text, size_t room) {
  const int next = room == 0 ? -1 : PageRead();
  if (next < 0) return 0;
  *text = static_cast<char>(next);
  return 1;
}

struct Names {
  const char* kind;
  mirlow_status (*get)(mirlow_state* state, size_t index, const char** name);
};
constexpr Names kNames[] = {
    {"type ",     mirlow_get_type_name    },
    {"function ", mirlow_get_function_name},
    {"symbol ",   mirlow_get_name         },
};

}  // namespace

extern "C" {

// A state that prints to the page and asks it questions. As in a new process, random numbers begin
// anew: a page that is calculated again shows the same ones.
MODULE_EXPORT("page_new") mirlow_state* PageNew() {
  std::srand(1);
  mirlow_state* state = mirlow_new();
  mirlow_set_output(state, Write, nullptr);
  mirlow_set_input(state, Read, nullptr);
  return state;
}

// The names of all types, functions and symbols, each on a line after "type", "function" or
// "symbol". REQUIRES: a state. The text is valid until the next call.
MODULE_EXPORT("page_names") const char* PageNames(mirlow_state* state) {
  static std::string text;
  text.clear();
  for (const auto& [kind, get] : kNames) {
    const char* name = nullptr;
    for (size_t i = 0; get(state, i, &name) == MIRLOW_OK; ++i) (text += kind).append(name) += '\n';
  }
  return text.c_str();
}

}  // extern "C"
