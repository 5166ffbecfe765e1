// Plays the pages of a file, a transcript or a Markdown text, at the prompt and from a script; with
// the shell, from a script and through a pipe.
//   play build/mirlow tests/transcripts/scalars/arithmetic.txt
//   play --shell build/mirlow-shell docs/language.md
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

int PlayAll(const Ways& ways, const Command& program, const std::string& path) {
  bool all_play = true;
  for (const Page& page : ReadPages(path)) {
    all_play = Play(ways, program, path, page) && all_play;
  }
  return all_play ? 0 : 1;
}

}  // namespace
}  // namespace Quarn

int main(int count, char** values) {
  const bool is_shell = count > 1 && std::string_view(values[1]) == "--shell";
  const int first = is_shell ? 2 : 1;
  if (count < first + 2) {
    std::cout << "usage: play [--shell] PROGRAM... FILE\n";
    return 2;
  }
  const Quarn::Command program(values + first, values + count - 1);
  const char* path = values[count - 1];
  try {
    return Quarn::PlayAll(is_shell ? Quarn::kShell : Quarn::kCalculator, program, path);
  } catch (const std::exception& error) {
    std::cout << path << ": " << error.what() << '\n';
    return 2;
  }
}
