// Lines edited with libedit: key bindings of ~/.editrc, history, completion.
#include <histedit.h>

#include <clocale>
#include <csignal>
#include <cstdio>

#include "tools/completion.h"
#include "tools/history_file.h"
#include "tools/line_reader.h"

namespace Quarn {
namespace {

constexpr int kHistoryLines = 1000;

const char* Prompt(EditLine*) { return "> "; }

class EditingReader : public LineReader {
 public:
  explicit EditingReader(const State& state)
      : state_(state),
        editor_(el_init("mirlow-shell", stdin, stdout, stderr)),
        history_(history_init()) {
    LoadHistory();
    el_set(editor_, EL_CLIENTDATA, this);
    el_set(editor_, EL_PROMPT, Prompt);
    el_set(editor_, EL_EDITOR, "emacs");
    el_set(editor_, EL_SIGNAL, 1);
    el_set(editor_, EL_HIST, history, history_);
    BindKeys();
    el_source(editor_, nullptr);
  }
  EditingReader(const EditingReader&) = delete;
  EditingReader& operator=(const EditingReader&) = delete;
  ~EditingReader() override {
    history_end(history_);
    el_end(editor_);
  }

  Outcome Read(std::string& line) override {
    std::fflush(stdout);
    was_abandoned_ = false;
    // Before the prompt, since Ctrl-C may follow it at once.
    el_set(editor_, EL_PREP_TERM, 1);
    int count = 0;
    const char* typed = el_gets(editor_, &count);
    if (was_abandoned_) return Outcome::kAbandoned;
    if (!typed || count <= 0) {
      std::puts("");
      return Outcome::kEnd;
    }
    line.assign(typed, static_cast<std::size_t>(count));
    if (line.ends_with('\n')) line.pop_back();
    Remember(line);
    return Outcome::kLine;
  }

 private:
  static EditingReader& Self(EditLine* editor) {
    EditingReader* self = nullptr;
    el_get(editor, EL_CLIENTDATA, &self);
    return *self;
  }

  static unsigned char OnTab(EditLine* editor, int) { return Self(editor).Complete(); }
  static unsigned char OnInterrupt(EditLine* editor, int) { return Self(editor).Abandon(); }

  // libedit catches the signal, restores the terminal and stops the whole job.
  static unsigned char OnSuspend(EditLine*, int) {
    kill(0, SIGTSTP);
    return CC_NORM;
  }

  void BindKeys() {
    el_set(editor_, EL_ADDFN, "mirlow-complete", "Complete a name", &OnTab);
    el_set(editor_, EL_ADDFN, "mirlow-abandon", "Abandon the line", &OnInterrupt);
    el_set(editor_, EL_ADDFN, "mirlow-suspend", "Stop until continued", &OnSuspend);
    el_set(editor_, EL_BIND, "^I", "mirlow-complete", nullptr);
    el_set(editor_, EL_BIND, "^C", "mirlow-abandon", nullptr);
    el_set(editor_, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    el_set(editor_, EL_BIND, "^Z", "mirlow-suspend", nullptr);
    // Ctrl-C and Ctrl-Z are keys during editing, not signals.
    el_set(editor_, EL_SETTY, "-d", "-isig", nullptr);
  }

  void LoadHistory() {
    HistEvent event;
    history(history_, &event, H_SETSIZE, kHistoryLines);
    history(history_, &event, H_SETUNIQUE, 1);
    for (const std::string& line : file_.Load(kHistoryLines)) {
      history(history_, &event, H_ENTER, line.c_str());
    }
  }

  // Before the command runs, since it may never return.
  void Remember(const std::string& line) {
    if (line.find_first_not_of(' ') == std::string::npos || line == last_) return;
    HistEvent event;
    history(history_, &event, H_ENTER, line.c_str());
    file_.Append(line);
    last_ = line;
  }

  unsigned char Abandon() {
    was_abandoned_ = true;
    std::fputs("^C\n", stdout);
    return CC_NEWLINE;
  }

  unsigned char Complete() {
    const LineInfo* info = el_line(editor_);
    const std::string before(info->buffer, info->cursor);
    const Completion completion = Quarn::Complete(state_, before);
    const std::string more = LongestCommonPrefix(completion.candidates);
    const std::size_t typed = before.size() - completion.start;
    if (more.size() > typed) {
      el_insertstr(editor_, more.c_str() + typed);
      return CC_REFRESH;
    }
    if (completion.candidates.size() < 2) return CC_REFRESH_BEEP;
    return List(completion.candidates);
  }

  static unsigned char List(const std::vector<std::string>& candidates) {
    std::fputs("\n", stdout);
    for (const std::string& candidate : candidates) std::printf("%s  ", candidate.c_str());
    std::fputs("\n", stdout);
    return CC_REDISPLAY;
  }

  const State& state_;
  const HistoryFile file_{HistoryFile::FindPath()};
  EditLine* editor_;
  History* history_;
  std::string last_;
  bool was_abandoned_ = false;
};

}  // namespace

std::unique_ptr<LineReader> NewLineReader(const State& state, TerminalInput&) {
  // For the width of characters alone.
  std::setlocale(LC_CTYPE, "");
  return std::make_unique<EditingReader>(state);
}

}  // namespace Quarn
