// Takes the place of the process's operator new, and makes one of its calls fail. Only calls of the
// thread that asked for it count.
//   ScarceMemory::FailAt(3);                   // the third from now on throws std::bad_alloc
//   ...
//   const bool failed = ScarceMemory::Stop();  // was there a third?
// Blocks that are alive are counted too, but for the pool's slabs, which stay.
#pragma once

#include <cstddef>

namespace Quarn {

class ScarceMemory {
 public:
  // From 1.
  static void FailAt(std::size_t call);
  static bool Stop();
  // How often operator new was called since FailAt.
  static std::size_t CountCalls();
  // Blocks that nobody has given back yet.
  static long CountAlive();
  // How many bytes they have.
  static long CountBytes();
};

}  // namespace Quarn
