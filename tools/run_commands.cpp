#include "tools/run_commands.h"

#include <cerrno>
#include <cstring>

#include "tools/input_file.h"
#include "tools/runner.h"

namespace Quarn {

Ran RunCommands(Runner& runner, std::istream& lines, const std::string& source) {
  std::size_t number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    std::erase(line, '\r');
    if (!runner.RunLine(line, {source, number})) return Ran::kStopped;
  }
  return Ran::kToItsEnd;
}

Ran RunFile(Runner& runner, std::istream& lines, const InputFile& file, const std::string& source,
            const std::string& name) {
  const Ran ran = RunCommands(runner, lines, source);
  const int reason = file.GetError();
  if (ran == Ran::kStopped || reason == 0) return ran;
  runner.Flush();
  runner.GetErrors() << "mirlow-shell: cannot read " << name << ": " << std::strerror(reason)
                     << '\n';
  return Ran::kCannotRead;
}

bool LooksLikeCommands(std::string_view path) {
  const std::string_view digits = "0123456789";
  const bool is_number = !path.empty() && digits.find(path.front()) != std::string_view::npos;
  return is_number || path.find_first_of("+*^=;()<>[]!?&,") != std::string_view::npos;
}

}  // namespace Quarn
