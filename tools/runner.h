// Runner owns the State of a shell. It carries out lines, command by command, and shows what each
// one did.
//   Runner runner({.format = Format::kPlain}, *std::cout.rdbuf(), std::cin);
//   runner.RunLine("x=1;x+1", {"loan.mirlow", 3});  // 2
#pragma once

#include <iostream>
#include <string_view>

#include "interpreter/state.h"
#include "tools/capture.h"
#include "tools/recorder.h"
#include "tools/report_writer.h"

namespace Quarn {

class Runner {
 public:
  struct Options {
    Format format = Format::kText;
    bool stops_on_error = false;
    // Standard output and standard error are the same: an error is shown once, with its place.
    bool errors_join_output = false;
    bool is_coloured = false;
    Limits limits = {};
    // Where messages with their places go.
    std::ostream* errors = &std::cerr;
    // Gets what is accepted, unless null; must outlive the runner.
    Recorder* recorder = nullptr;
    // Questions are answered at a terminal, where Ctrl-C means no.
    bool asks_at_terminal = false;
  };

  // `out` must outlive it; so must `answers`, the State's input for questions.
  Runner(const Options& options, std::streambuf& out, std::istream& answers);

  State& GetState() { return state_; }
  const State& GetState() const { return state_; }

  // In silence only errors are shown.
  void SetSilent(bool is_silent) { is_silent_ = is_silent; }

  // False when nothing more is to be run, since a command failed.
  bool RunLine(std::string_view line, Source source);
  // Did Ctrl-C end the last line?
  bool WasInterrupted() const { return was_interrupted_; }
  // False when something could not be written.
  bool Flush();
  std::ostream& GetErrors() { return *options_.errors; }
  bool HasSeenError() const { return has_seen_error_; }

 private:
  void TellInterruption();
  void RunCommand(std::string_view command, const Source& source);
  std::vector<std::string> ListNames() const;
  void Show(std::string_view command, const Source& source);
  void ShowText(const Source& source);

  Options options_;
  std::ostream out_;
  Capture capture_;
  std::ostream captured_;
  State state_;
  bool has_seen_error_ = false;
  bool is_silent_ = false;
  bool was_interrupted_ = false;
};

}  // namespace Quarn
