// The entry of a target that libFuzzer feeds.
#include <cstddef>
#include <cstdint>

#include "tests/fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Quarn::fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
