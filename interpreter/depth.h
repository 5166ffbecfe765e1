// Depth keeps evaluation within the stack that is really there. Whatever evaluates inside an
// evaluation opens a Level first and gives up when it is not granted. Once a level was refused, all
// further ones are refused until the outermost has been left, so that a reference that leads back
// to itself, however often it branches, fails at once all the way up.
//   Depth::Level level(depth);
//   if (!level.IsGranted()) return {};
#pragma once

namespace Quarn {

class Depth {
 public:
  class Level {
   public:
    explicit Level(Depth& depth) : depth_(depth) { depth.Enter(__builtin_frame_address(0)); }
    ~Level() { --depth_.levels_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

    bool IsGranted() const { return !depth_.exhausted_; }

   private:
    Depth& depth_;
  };

  bool IsOutside() const { return levels_ == 0; }
  // Was a level refused since the outermost one was opened?
  bool IsExhausted() const { return exhausted_; }

 private:
  // The first levels are granted unseen: the usual line asks for no more.
  static constexpr unsigned int kGrantedUnseen = 16;

  void Enter(const void* frame) {
    if (levels_ == 0) exhausted_ = false;
    if (++levels_ > kGrantedUnseen && !exhausted_) exhausted_ = IsStackLow(frame);
  }
  bool IsStackLow(const void* frame) const;

  unsigned int levels_ = 0;
  bool exhausted_ = false;
};

}  // namespace Quarn
