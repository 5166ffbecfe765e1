// The room that evaluations work in. It belongs to the State and is kept from line to line, so that
// an ordinary line asks for no memory; evaluations inside evaluations stack up in it.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "interpreter/priorities.h"
#include "interpreter/registry.h"
#include "interpreter/source.h"

namespace Quarn {

// What waits for its right side: an operator for its operand, or a parenthesis for its end.
struct Pending {
  static constexpr std::uint8_t kParenthesis = 0;  // as a priority
  static_assert(kParenthesis < kLowestPriority);

  // Written and read member by member: a load of several waits for the stores of each.
  Pending(std::uint8_t its_priority, std::uint8_t its_op, bool stands_behind_value)
      : priority(its_priority), op(its_op), has_left(stands_behind_value) {}

  std::uint8_t priority;
  std::uint8_t op;  // place in kPriorities
  bool has_left;    // does a value stand before the operator?
};

// One function call in the making.
struct CallLists {
  Values arguments;
  Values results;
  Parts parts;  // the argument texts still to be evaluated
  Piece part;
};

// Gives back what a text that was out of the ordinary left behind.
template <class Room>
void GiveBackIfLarge(Room& room) {
  constexpr std::size_t kMostKept = std::size_t{1} << 20;  // bytes
  if (room.capacity() * sizeof(typename Room::value_type) > kMostKept) room = Room();
}

struct Workspace {
  // REQUIRES: no evaluation is in progress.
  void GiveBack() {
    GiveBackIfLarge(brackets);
    GiveBackIfLarge(pending);
    GiveBackIfLarge(outer);
    GiveBackIfLarge(values);
  }

  BracketRoom brackets;
  std::vector<Pending> pending;
  std::vector<Piece> outer;  // what follows each open parenthesis at its own level
  std::vector<s_refptr<Symbol>> values;
  std::vector<std::unique_ptr<CallLists>> call_lists;  // of the calls in progress, then spare ones
  std::size_t calls = 0;                               // in progress
};

// Lends lists for the arguments and results of one call; they go back empty.
class LentLists {
 public:
  explicit LentLists(Workspace& workspace) : workspace_(workspace) {
    if (workspace.calls == workspace.call_lists.size()) {
      workspace.call_lists.push_back(std::make_unique<CallLists>());
    }
    lists_ = workspace.call_lists[workspace.calls++].get();
  }
  ~LentLists() {
    --workspace_.calls;
    // Those of a deep nesting are not kept.
    if (workspace_.calls >= kKept) {
      workspace_.call_lists.pop_back();
      return;
    }
    lists_->arguments.Clear();
    lists_->results.Clear();
  }
  LentLists(const LentLists&) = delete;
  LentLists& operator=(const LentLists&) = delete;

  CallLists* operator->() const { return lists_; }
  CallLists& operator*() const { return *lists_; }

 private:
  static constexpr std::size_t kKept = 64;

  Workspace& workspace_;
  CallLists* lists_;
};

}  // namespace Quarn
