// The room that evaluations work in. It belongs to the State and is kept from line to line, so that
// an ordinary line asks for no memory; evaluations inside evaluations stack up in it.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "interpreter/registry.h"
#include "interpreter/source.h"

namespace Quarn {

// What waits for its right side: an operator for its operand, or a parenthesis for its end.
struct Pending {
  static constexpr std::uint8_t kParenthesis = 0;  // below the priority of every operator

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

struct Workspace {
  BracketRoom brackets;
  std::vector<Pending> pending;
  std::vector<Piece> outer;  // what follows each open parenthesis at its own level
  std::vector<s_refptr<Symbol>> values;
  std::vector<std::unique_ptr<CallLists>> call_lists;  // those not in use
  s_str unheard;  // the errors of evaluations that fail silently
};

// Lends lists for the arguments and results of one call; they go back empty.
class LentLists {
 public:
  explicit LentLists(Workspace& workspace) : workspace_(workspace) {
    workspace.call_lists.reserve(kKept);
    if (workspace.call_lists.empty()) {
      lists_ = std::make_unique<CallLists>();
      return;
    }
    lists_ = std::move(workspace.call_lists.back());
    workspace.call_lists.pop_back();
  }
  ~LentLists() {
    lists_->arguments.Clear();
    lists_->results.Clear();
    // Lists that find no room are simply let go.
    if (workspace_.call_lists.size() < kKept) workspace_.call_lists.push_back(std::move(lists_));
  }
  LentLists(const LentLists&) = delete;
  LentLists& operator=(const LentLists&) = delete;

  CallLists* operator->() const { return lists_.get(); }
  CallLists& operator*() const { return *lists_; }

 private:
  static constexpr std::size_t kKept = 64;  // reserved ahead, so that giving back cannot fail

  Workspace& workspace_;
  std::unique_ptr<CallLists> lists_;
};

}  // namespace Quarn
