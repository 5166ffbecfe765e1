#include "tools/completion.h"

#include <algorithm>

#include "interpreter/state.h"

namespace Quarn {
namespace {

constexpr std::string_view kWordCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";

// The start of the word at the end of the text.
std::size_t FindWord(std::string_view text) { return text.find_last_not_of(kWordCharacters) + 1; }

std::string_view CommandBefore(std::string_view text) {
  return text.substr(text.rfind(';') + 1);  // npos + 1 is 0
}

bool EndsWithColon(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last != std::string_view::npos && text[last] == ':';
}

// The last "(" that is not closed; npos without one.
std::size_t FindOpenCall(std::string_view command) {
  std::size_t closed = 0;
  for (std::size_t i = command.size(); i-- > 0;) {
    if (command[i] == ')') ++closed;
    if (command[i] == '(' && closed-- == 0) return i;
  }
  return std::string_view::npos;
}

class Collector {
 public:
  explicit Collector(std::string_view word) : word_(word) {}

  void Add(std::string_view name, std::string_view suffix = "") {
    if (!name.empty() && name.starts_with(word_)) found_.emplace_back(name).append(suffix);
  }
  void AddSymbols(const State& state) {
    for (const s_str& name : state.GetSymbolNames()) Add(name.GetView());
  }
  void AddFunctions(const State& state) {
    for (const auto& [name, overloads] : state.GetFunctions()) Add(name.GetView(), "(");
  }
  void AddTypes(const State& state) {
    for (const auto& [name, row] : state.GetTypes()) Add(name.GetView());
  }

  std::vector<std::string> Take() {
    std::sort(found_.begin(), found_.end());
    found_.erase(std::unique(found_.begin(), found_.end()), found_.end());
    return std::move(found_);
  }

 private:
  std::string_view word_;
  std::vector<std::string> found_;
};

}  // namespace

Completion Complete(const State& state, std::string_view before_cursor) {
  const std::size_t start = FindWord(before_cursor);
  const std::string_view command = CommandBefore(before_cursor.substr(0, start));
  Collector collector(before_cursor.substr(start));
  if (EndsWithColon(command)) {
    collector.AddTypes(state);
  } else {
    collector.AddSymbols(state);
    const bool wants_symbol = command.starts_with('?') || command.starts_with('~');
    if (!wants_symbol) collector.AddFunctions(state);
  }
  return {start, collector.Take()};
}

std::vector<std::string> FindSignatures(const State& state, std::string_view before_cursor) {
  const std::string_view command = CommandBefore(before_cursor);
  const std::size_t open = FindOpenCall(command);
  if (open == std::string_view::npos || FindWord(command) != command.size()) return {};
  const std::string_view before = command.substr(0, open);
  const std::string_view name = before.substr(FindWord(before));
  const auto function = state.GetFunctions().find(name);
  if (function == state.GetFunctions().end()) return {};
  std::vector<std::string> signatures;
  for (const auto& [signature, body] : function->second) {
    signatures.push_back(std::string(name).append(signature.GetView()));
  }
  return signatures;
}

std::string LongestCommonPrefix(const std::vector<std::string>& candidates) {
  if (candidates.empty()) return "";
  std::string_view common = candidates.front();
  for (const std::string& candidate : candidates) {
    const auto* const differing =
        std::mismatch(common.begin(), common.end(), candidate.begin(), candidate.end()).first;
    common = common.substr(0, static_cast<std::size_t>(differing - common.begin()));
  }
  return std::string(common);
}

}  // namespace Quarn
