// The program: sets up the library, then feeds one State with the lines of a script or with what is
// typed at the prompt. It interprets nothing itself but the two words that quit.
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

// GCOVR_EXCL_START: the two hooks are for what the utility library offers to types and hosts;
// nothing in the program itself reports by it, or asks it for the time.

// What the utility library reports goes to the user and to the log.
void PrintLine(const s_str& text) {
  std::cout << text.GetView() << '\n' << std::flush;
  Log().WriteLine(text);
  Log().flush();
}

s_double GetProcessorSeconds() { return static_cast<double>(std::clock()) / 1e6; }
// GCOVR_EXCL_STOP

// Results wait in the stream's buffer; they are written when it is full, at the prompt, before a
// question, before what may never come back, and at the end.
void BufferOutput() {
  std::ios::sync_with_stdio(false);
  // Not even memory that runs out takes back what was printed.
  std::set_terminate([] {
    // GCOVR_EXCL_START: what aborts writes no counts.
    std::cout.flush();
    std::abort();
    // GCOVR_EXCL_STOP
  });
}

// Room for the lines of a file, so that a long one is not moved while it grows. Memory that nothing
// is written to costs nothing; a line beyond the limit grows as any text does.
s_str MakeRoomForLines(const File& file) {
  constexpr unsigned int kMostRoom = 64U << 20;
  const s_uint length = file.GetLength();
  std::string room;
  if (length.IsValid()) room.reserve(std::min(length.Get(), kMostRoom));
  return room;
}

// Kept on purpose: the script is opened for reading and writing, so one that is read-only runs no
// line.
void RunScript(State& state, const s_str& path) {
  File script(path, File::kReadWrite);
  s_str line = MakeRoomForLines(script);
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
  State state;
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
