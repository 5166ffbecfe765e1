#include "interpreter/cell.h"

#include <new>

#include "interpreter/machine.h"
#include "interpreter/symbol_table.h"

namespace Quarn {
namespace {

// Each of many nested "&" would be hashed with all that follows.
constexpr std::size_t kHashed = 64;

// Destroying a value may destroy cells, and with them values. The cells wait here, so that a long
// chain of them does not recurse.
struct Bin {
  Cell* first = nullptr;
  bool is_open = false;
};
thread_local constinit Bin bin;

}  // namespace

// While one is open, cells that lose their last owner wait.
class Cell::Collection {
 public:
  Collection() : is_outermost_(!std::exchange(bin.is_open, true)) {}
  ~Collection() {
    if (!is_outermost_) return;
    while (bin.first) {
      Cell* cell = bin.first;
      bin.first = cell->next;
      delete cell;  // GCOVR_EXCL_BR_LINE: never null, though `delete` asks
    }
    bin.is_open = false;
  }
  Collection(const Collection&) = delete;
  Collection& operator=(const Collection&) = delete;

 private:
  const bool is_outermost_;
};

void Cell::Drop() {
  const Collection collection;
  if (cells_) cells_->table_.Remove(*this, hash_);
  next = std::exchange(bin.first, this);
}

// ---- Links ----

void Readers::Add(Cell& reader) {
  // Reading the same thing several times in a row is one link.
  if (first_ && first_->reader == &reader) return;
  auto* link = new (Pool::Allocate(sizeof(Link))) Link{&reader, reader.reads, first_, &first_};
  if (first_) first_->before = &link->next;
  reader.reads = first_ = link;
}

// The links to what is gone stay with their readers, and lead nowhere.
void Readers::Inherit(Link* reads) noexcept {
  try {
    for (const Link* heir = first_; heir; heir = heir->next) {
      for (Link* link = reads; link; link = link->next_of_reader) {
        if (link->LeadsSomewhere()) link->AddBehind(*heir->reader);
      }
    }
  } catch (const std::bad_alloc&) {
    return;  // they are made stale
  }
  while (Link* link = first_) {
    first_ = std::exchange(link->next, nullptr);
    link->before = &link->next;
  }
}

void Link::AddBehind(Cell& other) {
  if (next && next->reader == &other) return;
  auto* link = new (Pool::Allocate(sizeof(Link))) Link{&other, other.reads, next, &next};
  if (next) next->before = &link->next;
  other.reads = next = link;
}

// Values are dropped after the walk through the lists, since that may destroy cells. The cells
// that became stale are linked by `awaited`, which means nothing in them.
void Readers::InvalidateAll() {
  const Cell::Collection collection;
  Cell* first = nullptr;
  Cell** last = &first;
  Cell* changed = nullptr;
  Readers* readers = this;
  while (true) {
    while (readers->first_) {
      Cell& cell = *readers->first_->reader;
      cell.Unlink();
      if (cell.state == Cell::State::kUnderWay) cell.state = Cell::State::kUnderWayAndChanged;
      if (cell.state != Cell::State::kFresh) continue;
      cell.state = Cell::State::kStale;
      // Nobody is to be told, and there is nothing to drop.
      if (cell.readers.AreNone() && !cell.answer.HoldsObjects()) continue;
      cell.awaited = nullptr;
      *last = &cell;
      last = &cell.awaited;
    }
    changed = changed ? changed->awaited : first;
    if (!changed) break;
    readers = &changed->readers;
  }
  while (first) {
    Cell& cell = *first;
    first = std::exchange(cell.awaited, nullptr);
    cell.answer = {};
  }
}

void Cell::Unlink() {
  while (reads) {
    Link* link = reads;
    reads = link->next_of_reader;
    *link->before = link->next;
    if (link->next) link->next->before = link->before;
    Pool::Free(link, sizeof(Link));
  }
}

// ---- Cells ----

// A cell that is a ring is awaited by whoever read it.
Cell::~Cell() {
  if (state == State::kFresh && answer.outcome != Outcome::kRing) readers.Inherit(reads);
  Unlink();
  readers.Invalidate();
  if (cells_) program.Release(cells_->GetSymbols());
}

Answer Cell::Follow() {
  if (!cells_) return {};
  return cells_->GetMachine().Follow(*this);
}

Cells::~Cells() {
  const Cell::Collection collection;
  table_.ForEach([](Cell& cell) {
    cell.Unlink();
    cell.state = Cell::State::kStale;
    cell.cells_ = nullptr;
  });
  table_.ForEach([this](Cell& cell) {
    cell.program.Release(*symbols_);
    cell.answer = {};
  });
}

// A long text goes by what it begins with and by its length.
std::uint32_t Cells::Hash(std::string_view text) const {
  const std::uint32_t hash = table_.Hash(text.substr(0, kHashed));
  return static_cast<std::uint32_t>(hash ^ (text.size() * 0x9E3779B1U));
}

CellPtr Cells::Get(std::string_view text) {
  const std::uint32_t hash = Hash(text);
  if (Cell* cell = table_.Find(text, hash)) return CellPtr(cell);
  return Add(SharedText(text), hash, false);
}

CellPtr Cells::GetPart(const Cell& of, std::uint32_t begin, std::uint32_t length) {
  const SharedText part = of.GetSharedText().GetPart(begin, length);
  const std::uint32_t hash = Hash(part.GetView());
  if (Cell* cell = table_.Find(part.GetView(), hash)) return CellPtr(cell);
  return Add(part, hash, true);
}

CellPtr Cells::Add(const SharedText& text, std::uint32_t hash, bool is_leaf) {
  table_.MakeRoom();
  CellPtr cell(new Cell(*this, text, hash, is_leaf));
  table_.Add(*cell, hash);
  return cell;
}

}  // namespace Quarn
