#include "tests/transcripts/player.h"

#include <chrono>

#include "tests/support/process.h"
#include "tests/support/temporary_directory.h"

namespace Quarn {
namespace {

constexpr char kPrompt[] = "> ";
constexpr std::chrono::milliseconds kForEver(300);

std::string Describe(const Turn& turn, const std::string& expected, const std::string& printed) {
  return "line " + std::to_string(turn.line) + ": " + turn.text + "\nexpected:\n[" + expected +
         "]\nprinted:\n[" + printed + "]\n";
}

bool IsRight(int status, Ending ending, int expected_status) {
  if (ending == Ending::kDies) return status < 0;
  if (ending == Ending::kFails) return status > 0;
  return status == expected_status;
}

class Player {
 public:
  Player(const Command& command, const TemporaryDirectory& directory,
         std::chrono::milliseconds patience)
      : process_(command, {.directory = directory.PathOf(""), .patience = patience}) {}

  void Type(const std::string& line) { process_.Type(line + "\n"); }
  void EndInput() { process_.EndInput(); }

  bool Expect(const Turn& turn, const std::string& expected) {
    std::string printed = process_.Read(expected.size());
    if (printed == expected) return true;
    // The rest of a line makes a difference easier to understand.
    while (!printed.ends_with('\n')) {
      const std::string next = process_.IsSilentFor(kForEver) ? "" : process_.Read(1);
      if (next.empty()) break;
      printed += next;
    }
    difference_ = Describe(turn, expected, printed);
    return false;
  }

  // REQUIRES: all that was expected has been read, and "q" was typed where that ends the program.
  void ExpectEnding(const Page& page, int expected_status) {
    if (page.ending == Ending::kNeverReturns) {
      if (!process_.IsSilentFor(kForEver)) difference_ = "it returned\n";
      return;
    }
    const std::string rest = process_.ReadRest(kLongRest);
    if (!rest.empty()) {
      difference_ = Describe(page.turns.back(), "", rest);
      return;
    }
    const int status = process_.Wait();
    if (IsRight(status, page.ending, expected_status)) return;
    difference_ = "it ended with " + std::to_string(status) + "\n";
  }

  std::string TakeDifference() { return std::move(difference_); }

 private:
  static constexpr std::size_t kLongRest = 1 << 16;

  Process process_;
  std::string difference_;
};

}  // namespace

std::string PlayAtPrompt(const Command& program, const Page& page,
                         std::chrono::milliseconds patience) {
  const TemporaryDirectory directory;
  Player player(program, directory, patience);
  for (const Turn& turn : page.turns) {
    if (!turn.is_answer && !player.Expect(turn, kPrompt)) return player.TakeDifference();
    player.Type(turn.text);
    if (!player.Expect(turn, turn.output)) return player.TakeDifference();
  }
  if (page.ending == Ending::kQuits) {
    if (!player.Expect(page.turns.back(), kPrompt)) return player.TakeDifference();
    player.Type("q");
  }
  player.ExpectEnding(page, 0);
  return player.TakeDifference();
}

namespace {

std::string PlayScript(const Command& program, const Page& page, int status,
                       std::chrono::milliseconds patience) {
  const TemporaryDirectory directory;
  std::string script;
  for (const Turn& turn : page.turns) script += turn.is_answer ? "" : turn.text + "\n";
  Command command = program;
  command.push_back(directory.Write("script", script));
  Player player(command, directory, patience);
  for (const Turn& turn : page.turns) {
    if (turn.is_answer) player.Type(turn.text);
    if (!player.Expect(turn, turn.output)) return player.TakeDifference();
  }
  player.ExpectEnding(page, status);
  return player.TakeDifference();
}

// The exit status of a shell that prints the page: does a line of it begin as errors do?
int StatusOf(const Page& page) {
  for (const Turn& turn : page.turns) {
    if (("\n" + turn.output).find("\n\tError : ") != std::string::npos) return 1;
  }
  return 0;
}

}  // namespace

std::string PlayAsScript(const Command& program, const Page& page,
                         std::chrono::milliseconds patience) {
  return PlayScript(program, page, 0, patience);
}

std::string PlayAsShellScript(const Command& shell, const Page& page,
                              std::chrono::milliseconds patience) {
  return PlayScript(shell, page, StatusOf(page), patience);
}

std::string PlayThroughPipe(const Command& shell, const Page& page,
                            std::chrono::milliseconds patience) {
  const TemporaryDirectory directory;
  Player player(shell, directory, patience);
  for (const Turn& turn : page.turns) player.Type(turn.text);
  player.EndInput();
  for (const Turn& turn : page.turns) {
    if (!player.Expect(turn, turn.output)) return player.TakeDifference();
  }
  player.ExpectEnding(page, StatusOf(page));
  return player.TakeDifference();
}

}  // namespace Quarn
