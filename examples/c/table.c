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

static int PrintValue(mirlow_state* state, const char* formula, double x) {
  mirlow_value* value = NULL;
  mirlow_set_number(state, "x", x);
  if (mirlow_evaluate(state, formula, &value) != MIRLOW_OK) {
    fprintf(stderr, "%s\n", mirlow_last_error(state)->text);
    return 0;
  }
  puts(mirlow_text(value));
  mirlow_release(value);
  return 1;
}

int main(int count, char** values) {
  mirlow_state* state = mirlow_new();
  int good = state && count == 4;
  double x = 0;
  if (!good) fputs("usage: table FORMULA FIRST LAST\n", stderr);
  if (good) {
    mirlow_add_number_function(state, "clamp", 2, Clamp, MIRLOW_PURE, NULL, NULL);
    x = atof(values[2]);
  }
  while (good && x <= atof(values[3])) good = PrintValue(state, values[1], x++);
  mirlow_free(state);
  return good ? 0 : 1;
}
