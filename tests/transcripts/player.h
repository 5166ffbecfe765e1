// Plays a page with the program, turn by turn: nothing is typed before what comes ahead of it was
// read, so that a prompt or a question that waits in a buffer is noticed too.
//   PlayAtPrompt({"build/mirlow"}, page);                       // "", or what was different
//   PlayAtPrompt({"/usr/bin/qemu-aarch64", "mirlow"}, page);    // in an emulator
// The same page may be played through the shell, which takes it from a file and from a pipe.
// Output that stays away is waited for, as long as there is patience.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "tests/transcripts/page.h"

namespace Quarn {

// A program, or an emulator and the program, by their paths.
using Command = std::vector<std::string>;

// At the prompt: every line is typed there, and "q" after the last.
std::string PlayAtPrompt(const Command& program, const Page& page,
                         std::chrono::milliseconds patience = std::chrono::minutes(1));

// From a script with all typed lines; the answers come through standard input.
std::string PlayAsScript(const Command& program, const Page& page,
                         std::chrono::milliseconds patience = std::chrono::minutes(1));

// The same, by the shell, which ends with 1 when an error was printed.
std::string PlayAsShellScript(const Command& shell, const Page& page,
                              std::chrono::milliseconds patience = std::chrono::minutes(1));

// By the shell, with lines and answers alike in a pipe that ends behind them.
std::string PlayThroughPipe(const Command& shell, const Page& page,
                            std::chrono::milliseconds patience = std::chrono::minutes(1));

}  // namespace Quarn
