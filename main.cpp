// The program: sets up the library, then passes the lines of a script or of the prompt to one
// State.
#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <iostream>
#include <string>

#include "interpreter/state.h"
#include "types/vector.h"
#include "utils/file.h"
#include "utils/log.h"
#include "utils/time_manager.h"
#include "utils/utils_manager.h"

namespace Quarn {
namespace {

// GCOVR_EXCL_START: nothing in the program itself prints through the manager or asks for the time.
void PrintLine(const s_str& text) {
  std::cout << text.GetView() << '\n' << std::flush;
  Log().WriteLine(text);
  Log().flush();
}

s_double GetProcessorSeconds() { return static_cast<double>(std::clock()) / 1e6; }
// GCOVR_EXCL_STOP

// Output is flushed when the buffer is full, at the prompt, before a question, before an evaluation
// that may never return, and at the end.
void BufferOutput() {
  std::ios::sync_with_stdio(false);
  // So that no output is lost when memory runs out.
  std::set_terminate([] {
    // GCOVR_EXCL_START: an aborted process writes no counts.
    std::cout.flush();
    std::abort();
    // GCOVR_EXCL_STOP
  });
}

// A line with capacity for any line of the file, so that reading a long one does not reallocate.
// Pages that are never written to cost nothing.
s_str ReserveLine(const File& file) {
  constexpr unsigned int kMaxCapacity = 64U << 20;
  const s_uint length = file.GetLength();
  std::string line;
  if (length.IsValid()) line.reserve(std::min(length.Get(), kMaxCapacity));
  return line;
}

// Kept on purpose: the script is opened for reading and writing, so one that is read-only runs no
// line.
void RunScript(State& state, const s_str& path) {
  File script(path, File::kReadWrite);
  s_str line = ReserveLine(script);
  while (script.IsValid() && !script.fail()) {
    script.GetLine(line);
    if (!line.IsEmpty()) state.ProcessLine(line);
  }
  script.Close();
  TimeManager::Destroy();
  UtilsManager::Destroy();
}

// Kept on purpose: the end of input is an empty line like others, so the prompt goes on for ever;
// only the quit words lead out.
void RunPrompt(State& state) {
  while (true) {
    std::cout << "> " << std::flush;
    std::string line;
    std::getline(std::cin, line);
    if (line.empty()) continue;
    if (line == "q" || line == "exit") return;
    state.ProcessLine(std::move(line));
  }
}

void Run(const s_ctnr<s_str>& arguments) {
  UtilsManager::Get().SetPrintFunction(&PrintLine);
  TimeManager::Get().SetClock(&GetProcessorSeconds);
  // Never destroyed: the system takes back all at once what a script of a million symbols would
  // give back one by one.
  static State& state = *new State;  // GCOVR_EXCL_BR_LINE: nobody comes here twice
  Vector::Register(state);
  const bool has_script = arguments.GetSize() > s_uint(1U) && File::Exists(arguments[1U]);
  has_script ? RunScript(state, arguments[1U]) : RunPrompt(state);
}

}  // namespace
}  // namespace Quarn

int main(int count, char** values) {
  Quarn::s_ctnr<Quarn::s_str> arguments;
  for (int i = 0; i < count; ++i) arguments.PushBack(values[i]);
  Quarn::BufferOutput();
  Quarn::Run(arguments);
  return 0;
}
