// Depth keeps evaluation within the stack that is really there, and within a memory that does not
// grow with the square of a line: "&&&&x" is a reference to "&&&x", and so on, and each holds its
// text until the last is evaluated. Whatever evaluates inside an evaluation opens a Level first and
// gives up when it is not granted. Once a level was refused, all
// further ones are refused until the outermost has been left, so that a reference that leads back
// to itself, however often it branches, fails at once all the way up.
//   Depth::Level level(depth);
//   if (!level.IsGranted()) return {};
#pragma once

#include <cstddef>

namespace Quarn {

class Depth {
 public:
  class Level {
   public:
    // Of work for which a text of so many bytes is held.
    explicit Level(Depth& depth, std::size_t text = 0) : depth_(depth), text_(text) {
      depth.Enter(__builtin_frame_address(0), text);
    }
    ~Level() {
      --depth_.levels_;
      depth_.texts_ -= text_;
    }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

    bool IsGranted() const { return !depth_.exhausted_; }

   private:
    Depth& depth_;
    std::size_t text_;
  };

  bool IsOutside() const { return levels_ == 0; }
  // Was a level refused since the outermost one was opened?
  bool IsExhausted() const { return exhausted_; }

 private:
  // The first levels are granted unseen: the usual line asks for no more.
  static constexpr unsigned int kGrantedUnseen = 16;

  // So many bytes of text may be held beyond them, by all levels together.
  static constexpr std::size_t kMostText = std::size_t{64} << 20;

  void Enter(const void* frame, std::size_t text) {
    if (levels_ == 0) exhausted_ = false;
    texts_ += text;
    if (++levels_ <= kGrantedUnseen || exhausted_) return;
    exhausted_ = IsStackLow(frame) || texts_ > kMostText;
  }
  bool IsStackLow(const void* frame) const;

  unsigned int levels_ = 0;
  std::size_t texts_ = 0;  // bytes
  bool exhausted_ = false;
};

}  // namespace Quarn
