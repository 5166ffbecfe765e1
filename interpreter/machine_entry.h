// What the files of the machine share among themselves.
#pragma once

#include "interpreter/machine.h"

namespace Quarn {

// How many instructions are read, and run, between two checks for limits and interruptions.
inline constexpr std::size_t kChunk = 4096;

// Restores the machine's stacks at its end, also when an exception passes.
class Machine::Entry {
 public:
  explicit Entry(Machine& machine)
      : machine_(machine),
        level_(machine.depth_),
        scope_(machine.budget_),
        frames_(machine.frames_.GetSize()),
        operands_(machine.operands_.GetSize()),
        lists_(machine.lists_.GetSize()),
        programs_(machine.used_programs_) {
    if (!level_.IsGranted()) machine.abort_ = Failure::kMemory;
  }
  ~Entry() {
    while (machine_.frames_.GetSize() > frames_) Abandon();
    machine_.operands_.Shrink(operands_);
    machine_.lists_.Shrink(lists_);
    machine_.used_programs_ = programs_;
    if (machine_.depth_.IsOutermost()) machine_.CleanUp();
  }
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;

  bool IsGranted() const { return machine_.abort_ == Failure::kNone; }
  // How many frames there were.
  std::size_t GetBase() const { return frames_; }
  // An empty program that is used again.
  Program& BorrowProgram() {
    auto& programs = machine_.programs_;
    if (programs_ == programs.size()) programs.push_back(std::make_unique<Program>());
    machine_.used_programs_ = programs_ + 1;
    Program& program = *programs[programs_];
    program.Clear();
    return program;
  }

 private:
  void Abandon() {
    if (Cell* cell = machine_.Top().cell.Get()) {
      cell->Unlink();
      cell->state = Cell::State::kStale;
    }
    machine_.PopFrame();
  }

  Machine& machine_;
  const Depth::Level level_;
  const Budget::Scope scope_;
  const std::size_t frames_;
  const std::size_t operands_;
  const std::size_t lists_;
  const std::size_t programs_;
};

}  // namespace Quarn
