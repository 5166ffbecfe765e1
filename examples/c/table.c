/* The values of a formula in x, one per line, from C.
 *   table "x*x-1" 0 4 */
#include <mirlow/mirlow.h>
#include <stdio.h>
#include <stdlib.h>

/* "clamp" takes a number into the interval from 0 to a limit. */
static double Clamp(void* user, const double* arguments, size_t count) {
  const double x = arguments[0], limit = arguments[1];
  (void)user, (void)count;
  return x < 0 ? 0 : x > limit ? limit : x;
}

/* What went wrong, and the column where. */
static int PrintError(const mirlow_error* error) {
  fprintf(stderr, "%s, at %lu\n", error->text, (unsigned long)error->position + 1);
  return 0;
}

static int PrintValue(mirlow_state* state, mirlow_expression* formula) {
  mirlow_value* value = NULL;
  if (mirlow_evaluate_prepared(formula, &value) != MIRLOW_OK)
    return PrintError(mirlow_last_error(state));
  puts(mirlow_text(value));
  mirlow_release(value);
  return 1;
}

static int PrintTable(mirlow_state* state, const char* text, double first, double last) {
  mirlow_expression* formula = NULL;
  mirlow_variable* x = NULL;
  int good = 1;
  if (mirlow_prepare(state, text, &formula) != MIRLOW_OK)
    return PrintError(mirlow_last_error(state));
  if (mirlow_get_variable(state, "x", &x) != MIRLOW_OK) good = 0;
  for (; good && first <= last; ++first) {
    mirlow_set_variable(x, first);
    good = PrintValue(state, formula);
  }
  mirlow_free_variable(x);
  mirlow_free_expression(formula);
  return good;
}

int main(int count, char** values) {
  mirlow_state* state = NULL;
  int good = 0;
  if (count != 4) {
    fputs("usage: table FORMULA FIRST LAST\n", stderr);
    return 1;
  }
  state = mirlow_new();
  if (state) {
    mirlow_add_number_function(state, "clamp", 2, Clamp, MIRLOW_PURE, NULL, NULL);
    good = PrintTable(state, values[1], atof(values[2]), atof(values[3]));
  }
  mirlow_free(state);
  return good ? 0 : 1;
}
