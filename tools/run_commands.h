// Input that nobody types: a file, a pipe or an argument.
#pragma once

#include <istream>
#include <string>

namespace Quarn {

class InputFile;
class Runner;

// What came of a source of commands.
enum class Ran {
  kToItsEnd,
  kStopped,    // at an error
  kCannotRead  // which was told on standard error
};

// Runs line by line, without any "\r" and without empty lines. Places name the source.
Ran RunCommands(Runner& runner, std::istream& lines, const std::string& source);

// The same of a file; `name` tells it from others when it cannot be read.
Ran RunFile(Runner& runner, std::istream& lines, const InputFile& file, const std::string& source,
            const std::string& name);

// Does somebody who named this file that does not exist rather mean it as commands?
bool LooksLikeCommands(std::string_view path);

}  // namespace Quarn
