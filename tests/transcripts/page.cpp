#include "tests/transcripts/page.h"

#include <stdexcept>

namespace Quarn {
namespace {

// Takes the next line off the text, without its newline.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

// Is it a turn of that kind? An empty one may lack the blank after its mark.
bool IsTurn(std::string_view line, char mark) {
  return line.starts_with(mark) && (line.size() == 1 || line[1] == ' ');
}

class PageReader {
 public:
  void Add(std::string_view line, std::size_t number) {
    if (page_.turns.empty() && (line.empty() || line.starts_with('#'))) return;
    if (page_.ending != Ending::kQuits) Fail("nothing comes after the end", number);
    if (IsTurn(line, '>')) return AddTurn(line, false, number);
    if (IsTurn(line, '<')) return AddTurn(line, true, number);
    if (page_.turns.empty()) Fail("nobody typed anything yet", number);
    if (line == "(dies)") {
      page_.ending = Ending::kDies;
    } else if (line == "(never returns)") {
      page_.ending = Ending::kNeverReturns;
    } else {
      page_.turns.back().output.append(line) += '\n';
    }
  }

  Page Take() { return std::move(page_); }

 private:
  [[noreturn]] static void Fail(const std::string& message, std::size_t number) {
    throw std::runtime_error("line " + std::to_string(number) + ": " + message);
  }

  void AddTurn(std::string_view line, bool is_answer, std::size_t number) {
    if (is_answer) EndQuestion(number);
    const std::string text(line.size() > 2 ? line.substr(2) : "");
    page_.turns.push_back({is_answer, text, "", number});
  }

  // The answer is typed behind the question, on its line.
  void EndQuestion(std::size_t number) {
    if (page_.turns.empty() || page_.turns.back().output.empty()) Fail("no question", number);
    page_.turns.back().output.pop_back();
  }

  Page page_;
};

}  // namespace

Page ReadPage(std::string_view text, std::size_t first_line) {
  PageReader reader;
  for (std::size_t number = first_line; !text.empty(); ++number) {
    reader.Add(TakeLine(text), number);
  }
  return reader.Take();
}

std::vector<Page> ReadMarkdown(std::string_view text) {
  std::vector<Page> pages;
  for (std::size_t number = 1; !text.empty(); ++number) {
    if (TakeLine(text) != "```mirlow") continue;
    const std::size_t end = std::min(text.find("```\n"), text.size());
    pages.push_back(ReadPage(text.substr(0, end), number + 1));
  }
  return pages;
}

Page OnWindows(Page page) {
  if (page.ending == Ending::kDies) page.ending = Ending::kFails;
  for (Turn& turn : page.turns) {
    std::string output;
    for (char c : turn.output) output += c == '\n' ? "\r\n" : std::string(1, c);
    turn.output = output;
  }
  return page;
}

}  // namespace Quarn
