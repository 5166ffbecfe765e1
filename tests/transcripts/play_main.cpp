// Plays the pages of a file, a transcript or a Markdown text, at the prompt and from a script.
//   play build/mirlow tests/transcripts/scalars/arithmetic.txt
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

bool Play(const std::string& program, const std::string& path, const Page& page) {
  if (page.turns.empty()) {
    std::cout << path << ": a page without a word\n";
    return false;
  }
  const std::string at_prompt = PlayAtPrompt(program, page);
  if (!at_prompt.empty()) std::cout << path << ", at the prompt, " << at_prompt;
  const std::string as_script = PlayAsScript(program, page);
  if (!as_script.empty()) std::cout << path << ", as a script, " << as_script;
  return at_prompt.empty() && as_script.empty();
}

int PlayAll(const std::string& program, const std::string& path) {
  bool all_play = true;
  for (const Page& page : ReadPages(path)) all_play = Play(program, path, page) && all_play;
  return all_play ? 0 : 1;
}

}  // namespace
}  // namespace Quarn

int main(int count, char** values) {
  if (count != 3) {
    std::cout << "usage: play PROGRAM FILE\n";
    return 2;
  }
  try {
    return Quarn::PlayAll(values[1], values[2]);
  } catch (const std::exception& error) {
    std::cout << values[2] << ": " << error.what() << '\n';
    return 2;
  }
}
