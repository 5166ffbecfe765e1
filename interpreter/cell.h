// Cell is what a reference refers to: the text of an expression, the program that was read from it,
// and the value of its last run. All references of a State to the same text share one cell.
//
// A cell is fresh while nothing that it read has changed; then its value is used again. What it
// read, it is linked to: the names of symbols, whether there was a value or not, and other cells. A
// change makes stale whatever read it, transitively, once: a stale cell has no links. When a cell
// goes away, as those of deferred operations do at once, its links pass on to whoever read it.
// A cell that is reached while it is being evaluated leads back to itself: a ring.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "interpreter/operand.h"
#include "interpreter/program.h"
#include "interpreter/shared_text.h"
#include "utils/text_table.h"

namespace Quarn {

class Cell;
class Cells;
class Machine;
class SymbolTable;
class TextWriter;

// How the evaluation of an expression ended.
enum class Outcome : std::uint8_t { kValue, kFailed, kRing };

// What a reference stands for, once references to references have been followed.
struct Answer {
  bool HoldsObjects() const { return !value.IsNumber() || label; }
  bool IsPlainNumber() const { return outcome == Outcome::kValue && !HoldsObjects(); }

  Outcome outcome = Outcome::kFailed;
  // No reference but a null one. When the expression failed: the last reference on the way, if
  // that is another one.
  Operand value = {};
  // "a = b = " for references with names that were met on the way.
  std::shared_ptr<const s_str> label = {};
};

// A cell that read something: links of one source, and of one reader.
struct Link {
  // Links another reader to the same source.
  void AddBehind(Cell& other);
  // Not if the source is gone.
  bool LeadsSomewhere() const { return before != &next; }

  Cell* reader;
  Link* next_of_reader;
  Link* next;
  Link** before;  // what points here
};

// The cells that read a name or a cell since its last change.
class Readers {
 public:
  Readers() = default;
  Readers(const Readers&) = delete;
  Readers& operator=(const Readers&) = delete;

  bool AreNone() const { return !first_; }
  void Add(Cell& reader);
  // Links all of them to what a cell has read that they have read, and that goes away.
  void Inherit(Link* reads) noexcept;
  // Makes all of them stale, and whoever read them.
  void Invalidate() {
    if (first_) InvalidateAll();
  }

 private:
  void InvalidateAll();

  Link* first_ = nullptr;
};

// Shares a cell. The count is in the cell itself, which can so be found by its text and shared
// again.
class CellPtr {
 public:
  CellPtr() = default;
  explicit CellPtr(Cell* cell);
  CellPtr(const CellPtr& other) : CellPtr(other.cell_) {}
  CellPtr(CellPtr&& other) noexcept : cell_(std::exchange(other.cell_, nullptr)) {}
  CellPtr& operator=(CellPtr other) noexcept {
    std::swap(cell_, other.cell_);
    return *this;
  }
  ~CellPtr() { Release(); }

  Cell* operator->() const { return cell_; }
  Cell& operator*() const { return *cell_; }
  Cell* Get() const { return cell_; }
  // How many share the cell. REQUIRES: there is one.
  unsigned int GetCount() const;
  // Gives the share to a plain pointer, and takes it back from one.
  Cell* Detach() { return std::exchange(cell_, nullptr); }
  static CellPtr Attach(Cell* cell) {
    CellPtr shared;
    shared.cell_ = cell;
    return shared;
  }
  explicit operator bool() const { return cell_ != nullptr; }

 private:
  void Release();

  Cell* cell_ = nullptr;
};

// What the machine keeps in a cell.
struct CellRecord {
  enum class State : std::uint8_t { kStale, kFresh, kUnderWay, kUnderWayAndChanged };

  explicit CellRecord(bool may_be_leaf) : is_leaf(may_be_leaf) {}

  // What a change of something that was read looks at is side by side.
  State state = State::kStale;
  const bool is_leaf;  // is the text known to hold no operator and balanced brackets?
  bool is_read = false;
  unsigned int version = 0;
  unsigned int walk = 0;  // the last one that visited it
  Readers readers = {};
  Link* reads = nullptr;
  Answer answer = {};
  Cell* awaited = nullptr;  // of a ring: the cell that was asked for
  Program program = {};     // if it is read
  union {
    const TextWriter* writer = nullptr;  // that is writing the value
    Cell* next;                          // of those that wait to be destroyed, as this one does
  };
};

class Cell : public CellRecord {
 public:
  std::string_view GetText() const { return text_.GetView(); }
  const SharedText& GetSharedText() const { return text_; }
  // Null once the State is gone.
  Cells* GetCells() const { return cells_; }
  // What the expression evaluates to now; a failure says nothing.
  Answer Follow();

  // Drops the links to what was read.
  void Unlink();

  static void* operator new(std::size_t size) { return Pool::Allocate(size); }
  static void operator delete(void* block, std::size_t size) noexcept { Pool::Free(block, size); }

 private:
  friend class CellPtr;
  friend class Cells;

  Cell(Cells& cells, const SharedText& text, std::uint32_t hash, bool may_be_leaf)
      : CellRecord(may_be_leaf), cells_(&cells), text_(text), hash_(hash) {}
  ~Cell();
  void Drop();

  class Collection;
  friend class Readers;

  Cells* cells_;
  SharedText text_;
  std::uint32_t hash_;
  unsigned int owners_ = 0;
};

inline CellPtr::CellPtr(Cell* cell) : cell_(cell) {
  if (cell_) ++cell_->owners_;
}

inline unsigned int CellPtr::GetCount() const { return cell_->owners_; }

inline void CellPtr::Release() {
  if (cell_ && --cell_->owners_ == 0) cell_->Drop();
}

// The cells of a State, found by their text.
class Cells {
 public:
  Cells(Machine& machine, SymbolTable& symbols) : machine_(&machine), symbols_(&symbols) {}
  // Values that outlive their State keep their cells, which cannot be evaluated any more.
  ~Cells();
  Cells(const Cells&) = delete;
  Cells& operator=(const Cells&) = delete;

  // The cell of an expression; of a stretch of the text of another cell, which is shared.
  CellPtr Get(std::string_view text);
  CellPtr GetPart(const Cell& of, std::uint32_t begin, std::uint32_t length);
  // Before other work, when the cell is to be got after that.
  void Prefetch(std::string_view text) const { table_.Prefetch(Hash(text)); }

  Machine& GetMachine() const { return *machine_; }
  SymbolTable& GetSymbols() const { return *symbols_; }

 private:
  friend class Cell;

  std::uint32_t Hash(std::string_view text) const;
  CellPtr Add(const SharedText& text, std::uint32_t hash, bool is_leaf);

  Machine* machine_;
  SymbolTable* symbols_;
  TextTable<Cell> table_;
};

}  // namespace Quarn
