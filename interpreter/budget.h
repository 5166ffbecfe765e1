// Budget counts what evaluations use against the limits of a host, and hears of interruptions.
//   const Budget::Scope scope(budget);
//   if (!budget.Spend(elements)) return budget.GetReason();
#pragma once

#include <atomic>
#include <cstdint>

#include "interpreter/embedding.h"
#include "interpreter/limits.h"

namespace Quarn {

class Budget {
 public:
  // An interruption ends all that is evaluated while a scope is open.
  class Scope {
   public:
    explicit Scope(Budget& budget) : budget_(budget) {
      if (budget.scopes_++ > 0) return;
      budget.interrupted_.store(false, std::memory_order_relaxed);
      budget.was_heard_ = false;
      budget.Refill();
    }
    ~Scope() { --budget_.scopes_; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    Budget& budget_;
  };

  const Limits& GetLimits() const { return limits_; }
  void SetLimits(const Limits& limits) { limits_ = limits; }
  bool HasSteps() const { return limits_.steps != Limits::kNone; }
  bool HasRoom() const {
    return limits_.memory != Limits::kNone || limits_.nesting != Limits::kNone;
  }

  // Ends the current evaluation. From any thread, or from a signal handler.
  void Interrupt() { interrupted_.store(true, std::memory_order_relaxed); }
  bool IsInterrupted() const { return interrupted_.load(std::memory_order_relaxed); }

  // Restores all steps.
  void Refill() { steps_left_ = limits_.steps; }
  // False when fewer steps are left, or after an interruption.
  bool Spend(std::uint64_t steps) {
    if (steps > steps_left_ || IsInterrupted()) return false;
    steps_left_ -= steps;
    return true;
  }
  // The same for work that is done at once, on its own or within an evaluation: is there enough for
  // it, and then, it was done.
  bool Fits(std::uint64_t steps) const {
    return scopes_ == 0 ? steps <= limits_.steps : steps <= steps_left_ && !IsInterrupted();
  }
  void Take(std::uint64_t steps) {
    if (scopes_ > 0) steps_left_ -= steps;
  }
  // Why Spend returned false.
  Failure GetReason() {
    was_heard_ = IsInterrupted();
    return was_heard_ ? Failure::kInterrupted : Failure::kSteps;
  }
  // Has an evaluation ended because of the interruption?
  bool WasHeard() const { return was_heard_; }

 private:
  Limits limits_;
  std::uint64_t steps_left_ = Limits::kNone;
  unsigned int scopes_ = 0;
  bool was_heard_ = false;
  std::atomic<bool> interrupted_ = false;
};
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace Quarn
