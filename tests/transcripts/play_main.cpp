// Plays the pages of a file, a transcript or a Markdown text, at the prompt and from a script; with
// the shell, from a script and through a pipe. --windows is for one that is run by wine.
//   play build/mirlow tests/transcripts/scalars/arithmetic.txt
//   play --shell build/mirlow-shell docs/language.md
//   play --windows /usr/lib/wine/wine64 $PWD/build/mirlow.exe docs/language.md
//   play /usr/bin/qemu-aarch64 $PWD/build/mirlow docs/language.md
#include <exception>
#include <iostream>

#include "tests/support/temporary_directory.h"
#include "tests/transcripts/page.h"
#include "tests/transcripts/player.h"

namespace Quarn {
namespace {

std::vector<Page> ReadPages(const std::string& path) {
  const std::string text = ReadBytes(path);
  return path.ends_with(".md") ? ReadMarkdown(text) : std::vector<Page>{ReadPage(text)};
}

struct Way {
  const char* name;
  std::string (*play)(const Command&, const Page&, std::chrono::milliseconds);
};
using Ways = std::vector<Way>;

const Ways kCalculator = {
    {"at the prompt", PlayAtPrompt},
    {"as a script",   PlayAsScript}
};
const Ways kShell = {
    {"as a script",    PlayAsShellScript},
    {"through a pipe", PlayThroughPipe  }
};

bool Play(const Ways& ways, const Command& program, const std::string& path, const Page& page) {
  if (page.turns.empty()) {
    std::cout << path << ": a page without a word\n";
    return false;
  }
  bool plays = true;
  for (const Way& way : ways) {
    const std::string difference = way.play(program, page, std::chrono::minutes(1));
    if (difference.empty()) continue;
    std::cout << path << ", " << way.name << ", " << difference;
    plays = false;
  }
  return plays;
}

struct Options {
  bool is_shell = false;
  bool is_windows = false;
};

// Takes them off the front of the arguments.
Options TakeOptions(std::vector<std::string>& arguments) {
  Options options;
  for (; !arguments.empty(); arguments.erase(arguments.begin())) {
    if (arguments.front() == "--shell") {
      options.is_shell = true;
    } else if (arguments.front() == "--windows") {
      options.is_windows = true;
    } else {
      break;
    }
  }
  return options;
}

int PlayAll(const Options& options, const Command& program, const std::string& path) {
  bool all_play = true;
  for (const Page& page : ReadPages(path)) {
    const Page to_play = options.is_windows ? OnWindows(page) : page;
    all_play = Play(options.is_shell ? kShell : kCalculator, program, path, to_play) && all_play;
  }
  return all_play ? 0 : 1;
}

}  // namespace
}  // namespace Quarn

int main(int count, char** values) {
  std::vector<std::string> arguments(values + 1, values + count);
  const Quarn::Options options = Quarn::TakeOptions(arguments);
  if (arguments.size() < 2) {
    std::cout << "usage: play [--shell] [--windows] PROGRAM... FILE\n";
    return 2;
  }
  const std::string path = arguments.back();
  arguments.pop_back();
  try {
    return Quarn::PlayAll(options, arguments, path);
  } catch (const std::exception& error) {
    std::cout << path << ": " << error.what() << '\n';
    return 2;
  }
}
