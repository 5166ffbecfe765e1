#include "tools/editing_completion.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
// Readline needs FILE to be declared before.
#include <readline/readline.h>

#include "tools/completion.h"

namespace Quarn {
namespace {

const State* completed_state = nullptr;

// A list as readline frees it: what is inserted, the candidates, null.
char** NewMatches(const std::string& inserted, const std::vector<std::string>& candidates) {
  auto** const matches = static_cast<char**>(std::calloc(candidates.size() + 2, sizeof(char*)));
  if (!matches) return nullptr;
  matches[0] = strdup(inserted.c_str());
  for (std::size_t i = 0; i < candidates.size(); ++i)
    matches[i + 1] = strdup(candidates[i].c_str());
  return matches;
}

// In a call without a further word, the ways to call the function are shown, nothing is inserted.
char** Match(const char* word, int start, int) {
  rl_attempted_completion_over = 1;   // no names of files
  rl_completion_suppress_append = 1;  // no blank
  const std::string before(rl_line_buffer, static_cast<std::size_t>(rl_point));
  const std::vector<std::string> signatures = FindSignatures(*completed_state, before);
  if (!signatures.empty()) {
    rl_sort_completion_matches = 0;
    return NewMatches("", signatures);
  }
  const Completion completion = Complete(*completed_state, before);
  if (completion.candidates.empty() || completion.start != static_cast<std::size_t>(start)) {
    return nullptr;
  }
  if (completion.candidates.size() == 1) return NewMatches(completion.candidates.front(), {});
  const std::string common = LongestCommonPrefix(completion.candidates);
  return NewMatches(common.empty() ? word : common, completion.candidates);
}

}  // namespace

void SetUpCompletion() {
  // A word ends at everything that no name has.
  rl_completer_word_break_characters = const_cast<char*>(" \t\n;:?~=&()<>[]!^*/+-,.'\"\\`@#$%{}|");
  rl_completer_quote_characters = "";
  rl_attempted_completion_function = Match;
  rl_variable_bind("show-all-if-unmodified", "on");
}

void CompleteFrom(const State& state) { completed_state = &state; }

}  // namespace Quarn
