# The same numbers on all machines: each operation is rounded to a double, and once.
include(CheckCXXSourceCompiles)

# Some would round the sum of a product as one operation.
target_compile_options(mirlow_objects PRIVATE -ffp-contract=off)

# The oldest unit of 32-bit processors keeps more digits than a double has.
check_cxx_source_compiles(
  "#include <cfloat>\nstatic_assert(FLT_EVAL_METHOD == 0);\nint main() {}" MIRLOW_ROUNDS_TO_DOUBLE)
if(NOT MIRLOW_ROUNDS_TO_DOUBLE)
  target_compile_options(mirlow_objects PRIVATE -msse2 -mfpmath=sse)
endif()
