#include "utils/text_hash.h"

#if defined(_WIN32)
#include <random>
#else
#include <unistd.h>
#endif

#include <chrono>

namespace Quarn {
namespace {

#if defined(_WIN32)

TextHash::Key DrawKey() {
  std::random_device random;
  TextHash::Key key;
  for (std::uint64_t& part : key) part = std::uint64_t{random()} << 32 | random();
  return key;
}

#else

TextHash::Key DrawKey() {
  TextHash::Key key;
  if (getentropy(key.data(), sizeof key) == 0) return key;  // GCOVR_EXCL_BR_LINE: as follows
  // GCOVR_EXCL_START: only where the system has no entropy to give.
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  key = {static_cast<std::uint64_t>(now), reinterpret_cast<std::uintptr_t>(&key),
         reinterpret_cast<std::uintptr_t>(&DrawKey), static_cast<std::uint64_t>(getpid())};
  for (std::uint64_t& part : key) part = TextHash(key)(std::string_view("key"));
  return key;
  // GCOVR_EXCL_STOP
}

#endif

}  // namespace

// A local, since the first use may be before main.
const TextHash::Key& TextHash::GetProcessKey() {
  static const Key key = DrawKey();
  return key;
}

}  // namespace Quarn
