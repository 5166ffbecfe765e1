// mirlow in C99, and in any language that can call C.
//
//   mirlow_state* state = mirlow_new();
//   mirlow_value* sum = NULL;
//   if (mirlow_evaluate(state, "1+2", &sum) == MIRLOW_OK) puts(mirlow_text(sum));
//   else puts(mirlow_last_error(state)->text);
//   mirlow_release(sum);
//   mirlow_free(state);
//
// Texts end with a zero byte, both ways. What a function returns as a mirlow_value belongs to the
// caller, who releases it; a text belongs to what it was asked of, until that is asked again or
// released. Nothing here throws: a function that can fail returns a status, and leaves what it
// would have written alone unless that is MIRLOW_OK.
//
// A state and the values that it made are for one thread at a time; states on several threads do
// not disturb each other. Values of a state may outlive it, but for references.
#ifndef MIRLOW_MIRLOW_H
#define MIRLOW_MIRLOW_H

#include <stddef.h>

#include "utils/api.h"

#ifdef __cplusplus
extern "C" {
#endif

// The version of the library that runs: "1.2.3".
MIRLOW_API const char* mirlow_version(void);

// A state, and a value.
typedef struct mirlow_state mirlow_state;
typedef struct mirlow_value mirlow_value;

// What became of a call.
typedef enum mirlow_status {
  MIRLOW_OK = 0,
  MIRLOW_FAILED = 1,        // by what a user typed: mirlow_last_error tells more
  MIRLOW_NOT_FOUND = 2,     // there is no such symbol or element
  MIRLOW_WRONG_TYPE = 3,    // the value is not of the type that was asked for
  MIRLOW_BAD_ARGUMENT = 4,  // a null pointer, or a name for a function that is none
  MIRLOW_NO_MEMORY = 5,
  MIRLOW_INTERNAL = 6  // a mistake in the library, or an exception out of a function of the host's
} mirlow_status;

// ---- States ----

// A new state, which knows Scalar, Reference and Vector; null when there is no memory. What it
// prints is dropped until mirlow_set_output says otherwise.
MIRLOW_API mirlow_state* mirlow_new(void);
// Null is let pass, here and for values.
MIRLOW_API void mirlow_free(mirlow_state* state);

// What kind of failure.
typedef enum mirlow_failure {
  MIRLOW_NO_FAILURE = 0,
  MIRLOW_FORM = 1,          // the expression, or a name, is not written as it must be
  MIRLOW_UNKNOWN_NAME = 2,  // no symbol or function bears the name
  MIRLOW_NO_MATCH = 3,      // no operator, function or vector for values of these types
  MIRLOW_VALUE = 4,         // a type, an operator or a function refused the value
  MIRLOW_RING = 5,          // a reference leads back to itself
  MIRLOW_MEMORY = 6,        // what is under way takes too much of it, or of the stack
  MIRLOW_NESTING = 7,       // from here on: limits that the host has set
  MIRLOW_STEPS = 8,
  MIRLOW_OUTPUT = 9,
  MIRLOW_INTERRUPTED = 10
} mirlow_failure;

// What went wrong in the last call that returned MIRLOW_FAILED.
typedef struct mirlow_error {
  mirlow_failure kind;  // of which kind it is
  const char* text;     // as a user would have read it, without a newline at its end
  size_t position;      // where in the expression, in bytes from 0 ...
  size_t length;        // ... and how far; 0 for a failure that has no place
} mirlow_error;
// Never null; valid until the next call with the state.
MIRLOW_API const mirlow_error* mirlow_last_error(const mirlow_state* state);

// The value of an expression. Changes no symbol.
MIRLOW_API mirlow_status mirlow_evaluate(mirlow_state* state, const char* expression,
                                         mirlow_value** value);

// What one evaluation, or one line, may use; 0 is as much as it likes. See interpreter/limits.h
// beside this file about each.
typedef struct mirlow_limits {
  unsigned long long steps;    // instructions, and elements of vectors that are made
  unsigned long long memory;   // bytes
  unsigned long long output;   // characters of the text of one value
  unsigned long long nesting;  // levels
  int ends_the_endless;        // not 0: "!2.5" and "<1>[1/0]" fail instead of never ending
} mirlow_limits;
// From now on. What reaches a limit fails, with a kind of its own, and changes nothing.
MIRLOW_API mirlow_status mirlow_set_limits(mirlow_state* state, const mirlow_limits* limits);
// Ends what is under way with MIRLOW_INTERRUPTED; without anything under way it does nothing. The
// one function for other threads than that of the state, and for signal handlers.
MIRLOW_API void mirlow_interrupt(mirlow_state* state);

// Gets what the commands of a line print. It must not call mirlow_free for the state.
typedef void (*mirlow_write)(void* user, const char* text, size_t length);
MIRLOW_API mirlow_status mirlow_set_output(mirlow_state* state, mirlow_write write, void* user);
// Answers the questions of commands: writes up to `room` bytes to `text` and returns how many; 0 is
// the end of all answers. An answer ends with a newline.
typedef size_t (*mirlow_read)(void* user, char* text, size_t room);
MIRLOW_API mirlow_status mirlow_set_input(mirlow_state* state, mirlow_read read, void* user);
// Carries out the commands of a line as at the prompt: definitions, queries, deletions. What they
// have to say, errors included, is printed; MIRLOW_OK, also when commands failed. Where there is no
// input, a question counts as answered with Enter.
MIRLOW_API mirlow_status mirlow_process_line(mirlow_state* state, const char* line);
// The first failure of the last line, with its place in that line; its kind is MIRLOW_NO_FAILURE
// when no command failed. Never null; valid until the next call with the state.
MIRLOW_API const mirlow_error* mirlow_line_error(mirlow_state* state);

// ---- Symbols ----

// Gives a name a copy of the value, in place of any that it had. Fails for a name that no symbol
// may bear or that no expression can ask for.
MIRLOW_API mirlow_status mirlow_set(mirlow_state* state, const char* name,
                                    const mirlow_value* value);
MIRLOW_API mirlow_status mirlow_set_number(mirlow_state* state, const char* name, double number);
// Makes it a reference, which follows what the expression names.
MIRLOW_API mirlow_status mirlow_set_reference(mirlow_state* state, const char* name,
                                              const char* expression);
// The value of a symbol; MIRLOW_NOT_FOUND when no symbol bears the name.
MIRLOW_API mirlow_status mirlow_get(mirlow_state* state, const char* name, mirlow_value** value);
// MIRLOW_NOT_FOUND when no symbol bears the name, and for "_", which is always there.
MIRLOW_API mirlow_status mirlow_erase(mirlow_state* state, const char* name);
// The names of all symbols in ascending order, "_" included, by index from 0. MIRLOW_NOT_FOUND
// behind the last one. They are those that there were when index 0 was asked for; a name is valid
// until it is asked for again.
MIRLOW_API mirlow_status mirlow_get_name(mirlow_state* state, size_t index, const char** name);
// The same for the names of all types and of all functions, as there are; such a name is valid
// until the next call with the state.
MIRLOW_API mirlow_status mirlow_get_type_name(mirlow_state* state, size_t index, const char** name);
MIRLOW_API mirlow_status mirlow_get_function_name(mirlow_state* state, size_t index,
                                                  const char** name);

// ---- Prepared expressions and variables ----

// A text that was read once and is evaluated any number of times, with the values that its names
// have then; and the place of one symbol, for numbers that change all the time. A function that an
// evaluation calls must not free what is evaluated. When the state is freed first, all that can
// still be done with them is to free them too; other calls return MIRLOW_BAD_ARGUMENT. Failures are
// in mirlow_last_error of their state.
typedef struct mirlow_expression mirlow_expression;
typedef struct mirlow_variable mirlow_variable;

// Reads a text. MIRLOW_FAILED, with the place, when it is not written as it must be, or calls a
// function that is not there. A name that is missing now may be there when it is evaluated.
MIRLOW_API mirlow_status mirlow_prepare(mirlow_state* state, const char* text,
                                        mirlow_expression** expression);
// Null is let pass, here and for variables.
MIRLOW_API void mirlow_free_expression(mirlow_expression* expression);
// What mirlow_evaluate would give for the text.
MIRLOW_API mirlow_status mirlow_evaluate_prepared(mirlow_expression* expression,
                                                  mirlow_value** value);
// The same where a number is wanted, and by far the fastest way. A reference counts as what it
// comes to; MIRLOW_WRONG_TYPE when the value is no number.
MIRLOW_API mirlow_status mirlow_evaluate_number(mirlow_expression* expression, double* number);
// The names that the text reads, each once, in the order of the text, by index from 0; not those
// that references in it read in their turn. MIRLOW_NOT_FOUND behind the last one. A name is valid
// until the next call with the expression.
MIRLOW_API mirlow_status mirlow_get_name_read(mirlow_expression* expression, size_t index,
                                              const char** name);

// MIRLOW_FAILED for a name that no symbol may bear or that no expression can ask for. The symbol
// need not be there.
MIRLOW_API mirlow_status mirlow_get_variable(mirlow_state* state, const char* name,
                                             mirlow_variable** variable);
MIRLOW_API void mirlow_free_variable(mirlow_variable* variable);
// Gives the symbol a number, in place of any value; makes it if there is none.
MIRLOW_API mirlow_status mirlow_set_variable(mirlow_variable* variable, double number);
// MIRLOW_NOT_FOUND when the symbol has no number.
MIRLOW_API mirlow_status mirlow_get_variable_number(const mirlow_variable* variable,
                                                    double* number);

// ---- Values ----

// What a value is; every other type is MIRLOW_OTHER.
typedef enum mirlow_kind {
  MIRLOW_OTHER = 0,
  MIRLOW_NUMBER = 1,
  MIRLOW_VECTOR = 2,
  MIRLOW_REFERENCE = 3
} mirlow_kind;

// Ends a value.
MIRLOW_API void mirlow_release(mirlow_value* value);

// Does not follow a reference.
MIRLOW_API mirlow_kind mirlow_get_kind(const mirlow_value* value);
// As a user reads it, without its name: "<1, 2>"; null when there is no memory.
MIRLOW_API const char* mirlow_text(mirlow_value* value);
// The type under which operators and functions know it: "Vector"; null when there is no memory.
MIRLOW_API const char* mirlow_type(mirlow_value* value);

// In these, a reference counts as what it comes to at the moment.
MIRLOW_API mirlow_status mirlow_to_number(const mirlow_value* value, double* number);
// How many elements a vector has.
MIRLOW_API mirlow_status mirlow_count(const mirlow_value* value, size_t* count);
// An element of a vector, from 0.
MIRLOW_API mirlow_status mirlow_element(const mirlow_value* value, size_t index,
                                        mirlow_value** element);
// All elements of a vector of numbers, which must be `count`.
MIRLOW_API mirlow_status mirlow_to_numbers(const mirlow_value* value, double* numbers,
                                           size_t count);
// What a reference comes to, or MIRLOW_FAILED with the reason why it comes to nothing. Any other
// value comes to itself.
MIRLOW_API mirlow_status mirlow_follow(mirlow_state* state, const mirlow_value* reference,
                                       mirlow_value** value);

// A number.
MIRLOW_API mirlow_status mirlow_from_number(double number, mirlow_value** value);
// A vector of numbers, and one of any values: MIRLOW_WRONG_TYPE unless they are of one type.
MIRLOW_API mirlow_status mirlow_from_numbers(const double* numbers, size_t count,
                                             mirlow_value** value);
MIRLOW_API mirlow_status mirlow_from_elements(const mirlow_value* const* elements, size_t count,
                                              mirlow_value** value);
// A reference, which evaluates in that state.
MIRLOW_API mirlow_status mirlow_from_reference(mirlow_state* state, const char* expression,
                                               mirlow_value** value);

// ---- Functions of the host's ----

// What a function may ask of its caller.
typedef struct mirlow_call mirlow_call;
// Says why the call fails; the function then returns null. The text begins with "\tError : " by
// custom.
MIRLOW_API void mirlow_fail(mirlow_call* call, const char* message);

// Returns a new value, which the caller releases, or null. The arguments are its caller's.
typedef mirlow_value* (*mirlow_function)(void* user, const mirlow_value* const* arguments,
                                         size_t count, mirlow_call* call);
typedef double (*mirlow_number_function)(void* user, const double* arguments, size_t count);

// A pure function gives the same for the same arguments and does nothing else; a reference that
// calls it may keep its value.
typedef enum mirlow_purity { MIRLOW_IMPURE = 0, MIRLOW_PURE = 1 } mirlow_purity;

// Adds a function for arguments of these types, in place of one for the same; a name may carry
// several lists of types. When the function is replaced, and when the state is freed, `drop` is
// called for `user` if it is not null; when adding fails, it is not.
MIRLOW_API mirlow_status mirlow_add_function(mirlow_state* state, const char* name,
                                             const char* const* types, size_t count,
                                             mirlow_function function, mirlow_purity purity,
                                             void* user, void (*drop)(void* user));
// The same for a function of so many numbers.
MIRLOW_API mirlow_status mirlow_add_number_function(mirlow_state* state, const char* name,
                                                    size_t count, mirlow_number_function function,
                                                    mirlow_purity purity, void* user,
                                                    void (*drop)(void* user));

#ifdef __cplusplus
}  // extern "C"
#endif

#endif
