// Depth watches the stack of the process where evaluations call each other through the callbacks of
// types, the only recursion there is: whatever evaluates opens a Level, and gives up when the stack
// is low.
//   const Depth::Level level(depth);
//   if (!level.IsGranted()) return {};
#pragma once

#include <cstddef>

namespace Quarn {

class Depth {
 public:
  class Level {
   public:
    explicit Level(Depth& depth) : depth_(depth) {
      // The first 16 levels skip the stack check.
      constexpr unsigned int kUnchecked = 16;
      granted_ = ++depth.levels_ <= kUnchecked || !depth.IsStackLow(__builtin_frame_address(0));
    }
    ~Level() { --depth_.levels_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

    bool IsGranted() const { return granted_; }

   private:
    Depth& depth_;
    bool granted_;
  };

  // Is one level open, is none?
  bool IsOutermost() const { return levels_ == 1; }
  bool IsIdle() const { return levels_ == 0; }

 private:
  bool IsStackLow(const void* frame) const;

  unsigned int levels_ = 0;
};

}  // namespace Quarn
