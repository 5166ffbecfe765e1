// Lines edited with GNU readline: the keys of ~/.inputrc, history, completion, brackets that match.
// Readline keeps its state in globals, so there is one reader at a time.
#include <poll.h>
#include <readline/history.h>
#include <readline/readline.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <sstream>

#include "tools/brackets.h"
#include "tools/colours.h"
#include "tools/directories.h"
#include "tools/editing_completion.h"
#include "tools/editing_keys.h"
#include "tools/history_file.h"
#include "tools/interrupts.h"
#include "tools/line_reader.h"
#include "tools/symbol_rows.h"

namespace Quarn {
namespace {

constexpr int kHistoryLines = 1000;
// Not typed as a key: the terminal makes a signal of it.
constexpr int kControlC = 'C' & 0x1F;
constexpr int kControlG = 'G' & 0x1F;

bool was_abandoned = false;

// What else reads keys is ended first.
int GetAbandonKey() {
  constexpr unsigned long kReadsKeys =
      RL_STATE_COMPLETING | RL_STATE_ISEARCH | RL_STATE_NSEARCH | RL_STATE_MOREINPUT;
  return RL_ISSTATE(kReadsKeys) ? kControlG : kControlC;
}

// What ends or stops the process is raised anew by readline, and must not be blocked then. After
// "fg" the line is shown again.
void HandleSignals(const sigset_t& mask) {
  const int signal = rl_pending_signal();
  if (signal == SIGHUP || signal == SIGTERM) sigprocmask(SIG_SETMASK, &mask, nullptr);
  rl_check_signals();
  if (signal == SIGTSTP) rl_forced_update_display();
}

// Ctrl-C also drops what was typed before it, so that a read after a poll may find nothing: it must
// not wait then, since the signals are blocked.
void PrepareTerminal(int meta) {
  rl_prep_terminal(meta);
  termios modes = {};
  if (tcgetattr(STDIN_FILENO, &modes) != 0) return;
  modes.c_cc[VMIN] = 0;
  modes.c_cc[VTIME] = 0;
  tcsetattr(STDIN_FILENO, TCSADRAIN, &modes);
}

// A key; nothing when a signal came first, or the key was dropped.
std::optional<int> PollKey() {
  sigset_t none;
  sigemptyset(&none);
  pollfd waiting{STDIN_FILENO, POLLIN, 0};
  if (ppoll(&waiting, 1, nullptr, &none) < 0) return std::nullopt;
  unsigned char key = 0;
  const ssize_t count = read(STDIN_FILENO, &key, 1);
  if (count > 0 && key != kControlC) return key;
  if (count > 0) {
    raise(SIGINT);  // after Ctrl-V the terminal makes no signal of it
    return std::nullopt;
  }
  const bool is_over = (waiting.revents & POLLIN) == 0 || (waiting.revents & POLLHUP) != 0 ||
                       (count < 0 && errno != EINTR);
  return is_over ? std::optional<int>(EOF) : std::nullopt;
}

// Signals that arrive between keys are handled at once. They are blocked until they are waited for,
// so that none is overlooked.
int ReadKey(FILE*) {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  sigprocmask(SIG_BLOCK, &all, &before);
  std::optional<int> key;
  while (!key) {
    HandleSignals(before);
    sigprocmask(SIG_BLOCK, &all, nullptr);
    key = Interrupts::WasPressed() ? GetAbandonKey() : PollKey();
  }
  sigprocmask(SIG_SETMASK, &before, nullptr);
  return *key;
}

int Abandon(int, int) {
  rl_point = rl_end;
  rl_redisplay();
  std::fputs("^C", rl_outstream);
  rl_crlf();
  Interrupts::Take();
  was_abandoned = true;
  rl_done = 1;
  return 0;
}

// The stretch between matching brackets is shown as readline shows an active region.
void Redisplay() {
  const std::string_view line(rl_line_buffer, static_cast<std::size_t>(rl_end));
  const auto match = FindMatch(line, static_cast<std::size_t>(rl_point));
  if (!match || rl_mark_active_p()) return rl_redisplay();
  const int mark = rl_mark;
  rl_mark = static_cast<int>(*match);
  rl_activate_mark();
  rl_redisplay();
  rl_deactivate_mark();
  rl_mark = mark;
}

const State* shown_state = nullptr;
std::vector<SymbolRow> shown_before;
bool is_table_coloured = false;

int ShowSymbols(int, int) {
  int rows = 0;
  int columns = 0;
  rl_get_screen_size(&rows, &columns);
  std::vector<SymbolRow> symbols = ListSymbols(*shown_state);
  rl_crlf();
  const TableLook look = {static_cast<std::size_t>(columns), is_table_coloured};
  for (const std::string& line : FormatTable(symbols, shown_before, look))
    std::fputs(line.c_str(), rl_outstream);
  shown_before = std::move(symbols);
  rl_forced_update_display();
  return 0;
}

void SetUp(bool is_coloured) {
  rl_readline_name = "mirlow-shell";
  rl_prep_term_function = PrepareTerminal;
  rl_getc_function = ReadKey;
  // The calculator's own handler prints what Ctrl-C looks like.
  rl_variable_bind("echo-control-characters", "off");
  SetUpCompletion();
  BindKeys();
  rl_add_defun("mirlow-abandon", Abandon, -1);
  rl_add_defun("mirlow-symbols", ShowSymbols, -1);
  for (Keymap map : {emacs_standard_keymap, vi_insertion_keymap, vi_movement_keymap}) {
    rl_bind_key_in_map(kControlC, Abandon, map);
    rl_bind_keyseq_in_map("\\es", ShowSymbols, map);
  }
  rl_initialize();  // reads ~/.inputrc
  if (!is_coloured) return;
  rl_variable_bind("active-region-start-color", "\\e[1;36m");
  rl_variable_bind("active-region-end-color", "\\e[0m");
  rl_redisplay_function = Redisplay;
}

class EditingReader : public LineReader {
 public:
  EditingReader(const State& state, bool is_coloured)
      : prompt_(is_coloured ? kColouredPrompt : "> ") {
    CompleteFrom(state);
    shown_state = &state;
    is_table_coloured = is_coloured;
    SetUp(is_coloured);
    using_history();
    stifle_history(kHistoryLines);
    for (const std::string& line : file_.Load(kHistoryLines)) add_history(line.c_str());
  }

  Outcome Read(std::string& line) override {
    std::fflush(stdout);
    was_abandoned = false;
    char* typed = nullptr;
    {
      const Interrupts::Noting noting;
      typed = readline(prompt_);
    }
    if (!typed) {
      std::puts("");
      return Outcome::kEnd;
    }
    line = typed;
    std::free(typed);
    if (was_abandoned) return Outcome::kAbandoned;
    Remember(line);
    return Outcome::kLine;
  }

  std::string GetKeyHelp() const override {
    return "      Keys :\n\n"
           "\tTab : completes a name, and shows how a function is called\n"
           "\tUp, Down : lines typed before that begin like this one\n"
           "\tCtrl-R : searches the lines typed before\n"
           "\tAlt-S : shows all symbols; a star marks what changed\n"
           "\tCtrl-C : abandons the line\n"
           "\tCtrl-D : leaves\n\n";
  }

 private:
  // Before the command runs, since it may never return. What was pasted may be several lines.
  void Remember(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      if (line.find_first_not_of(' ') == std::string::npos || line == last_) continue;
      add_history(line.c_str());
      file_.Append(line);
      last_ = line;
    }
  }

  // Between \001 and \002 stands what has no width.
  static constexpr char kColouredPrompt[] = "\001\033[1;34m\002>\001\033[0m\002 ";

  const HistoryFile file_{FindHistory()};
  const char* prompt_;
  std::string last_;
};

// For the width of characters alone. Where no locale is set, texts are UTF-8 all the same.
void SetCharacters() {
  std::setlocale(LC_CTYPE, "");
  if (MB_CUR_MAX == 1) std::setlocale(LC_CTYPE, "C.UTF-8");
}

}  // namespace

std::unique_ptr<LineReader> NewLineReader(const State& state, TerminalInput&, bool is_coloured) {
  SetCharacters();
  return std::make_unique<EditingReader>(state, is_coloured);
}

}  // namespace Quarn
