// SharedText is a stretch of a text that is shared, as is the index of the text's brackets. Both go
// with the last stretch.
//   SharedText all("a+b");
//   SharedText b = all.GetPart(2, 1);  // the same characters
#pragma once

#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>
#include <vector>

#include "interpreter/bracket_index.h"
#include "utils/pool.h"

namespace Quarn {

class SharedText {
 public:
  // Throws std::bad_alloc, also for a text of four gigabytes: positions have 32 bits.
  explicit SharedText(std::string_view text)
      : block_(static_cast<Block*>(Pool::Allocate(GetSizeOfBlock(text)))),
        length_(static_cast<std::uint32_t>(text.size())) {
    block_->owners = 1;
    block_->size = length_;
    block_->brackets = nullptr;
    std::memcpy(GetCharacters(), text.data(), text.size());
  }
  SharedText(const SharedText& other)
      : block_(other.block_), begin_(other.begin_), length_(other.length_) {
    ++block_->owners;
  }
  SharedText& operator=(const SharedText&) = delete;
  ~SharedText() {
    if (--block_->owners > 0) return;
    delete block_->brackets;
    Pool::Free(block_, sizeof(Block) + block_->size);
  }

  std::string_view GetView() const { return {GetCharacters() + begin_, length_}; }
  // Positions are those in the whole text.
  SharedText GetPart(std::uint32_t begin, std::uint32_t length) const {
    SharedText part = *this;
    part.begin_ = begin;
    part.length_ = length;
    return part;
  }
  std::string_view GetWhole() const { return {GetCharacters(), block_->size}; }
  std::uint32_t GetBegin() const { return begin_; }
  std::uint32_t GetEnd() const { return begin_ + length_; }

  // The index of the whole text, for all its parts: each of many nested ones would make its own.
  const BracketIndex& GetBrackets() const {
    if (!block_->brackets) block_->brackets = new OwnIndex(GetWhole());
    return block_->brackets->index;
  }

 private:
  struct OwnIndex {
    explicit OwnIndex(std::string_view text) : index(text, storage) {}

    std::vector<Bracket> storage;
    BracketIndex index;
  };

  // The characters follow.
  struct Block {
    OwnIndex* brackets;  // made when it is asked for
    std::uint32_t owners;
    std::uint32_t size;
  };

  static std::size_t GetSizeOfBlock(std::string_view text) {
    if (text.size() >= 0xFFFFFFFF) throw std::bad_alloc();
    return sizeof(Block) + text.size();
  }
  char* GetCharacters() const { return reinterpret_cast<char*>(block_ + 1); }

  Block* block_;
  std::uint32_t begin_ = 0;
  std::uint32_t length_;
};

}  // namespace Quarn
