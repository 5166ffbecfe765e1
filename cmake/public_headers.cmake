# The headers that are installed. include/mirlow has what hosts include; those headers find the ones
# listed here beside themselves, in the folders that they have in this tree, and these find each
# other by relative paths. All other headers are the library's own.
set(public_headers
  utils/api.h utils/fwd.h utils/pool.h utils/s_bool.h utils/s_ctnr.h utils/s_double.h utils/s_int.h
  utils/s_refptr.h utils/s_str.h utils/s_str_convert.h
  interpreter/add_error.h interpreter/builtins.h interpreter/elements.h interpreter/embedding.h
  interpreter/expression.h interpreter/limits.h interpreter/number.h interpreter/operand.h
  interpreter/registry.h interpreter/state.h interpreter/symbol.h
  types/holder.h types/lift.h types/scalar.h types/scalar_literal.h types/value.h types/vector.h)
