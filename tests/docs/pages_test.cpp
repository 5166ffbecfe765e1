// Tests of the pages and of the editors' files: none of them misses what the calculator knows.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>

#include "interpreter/priorities.h"
#include "interpreter/state.h"
#include "interpreter/version.h"
#include "tests/support/temporary_directory.h"
#include "types/vector.h"

namespace Quarn {
namespace {

const std::filesystem::path kRoot = MIRLOW_ROOT;

std::string ReadPage(const char* path) { return ReadBytes(kRoot / path); }

bool HasWord(const std::string& text, const std::string& word) {
  return std::regex_search(text, std::regex("\\b" + word + "\\b"));
}

// The fixed starts of all texts in a source that are reported as errors or warnings:
// "Error : Unknown symbol '".
std::vector<std::string> FindMessages(const std::filesystem::path& file) {
  static const std::regex kMessage(R"re("\\t((Error|Warning) : [^"\\]*))re");
  const std::string source = ReadBytes(file);
  std::vector<std::string> messages;
  for (std::sregex_iterator found(source.begin(), source.end(), kMessage), end; found != end;
       ++found) {
    messages.push_back((*found)[1]);
  }
  return messages;
}

TEST(Messages, AreAllExplained) {
  const std::string page = ReadPage("docs/messages.md");
  const std::vector<std::string> messages = FindMessages(kRoot / "interpreter/messages.cpp");
  for (const std::string& message : messages) {
    EXPECT_NE(page.find("\n### " + message), std::string::npos) << message;
  }
  EXPECT_GE(messages.size(), 24U);  // when this was written: the search still finds them
}

TEST(Messages, StandInOneFile) {
  for (const char* folder : {"interpreter", "types"}) {
    for (const auto& file : std::filesystem::directory_iterator(kRoot / folder)) {
      if (file.path().extension() != ".cpp" || file.path().filename() == "messages.cpp") continue;
      EXPECT_EQ(FindMessages(file.path()), std::vector<std::string>()) << file.path();
    }
  }
}

class Registries : public testing::Test {
 protected:
  Registries() { Vector::Register(state_); }

  std::ostringstream out_;
  std::istringstream in_;
  State state_{out_, in_};
};

TEST_F(Registries, AreInTheEditorsFiles) {
  for (const char* path :
       {"editors/vim/syntax/mirlow.vim", "editors/textmate/mirlow.tmLanguage.json"}) {
    const std::string text = ReadPage(path);
    for (const auto& [name, overloads] : state_.GetFunctions()) {
      EXPECT_TRUE(HasWord(text, name.Get())) << path << ": " << name.Get();
    }
    for (const auto& [name, row] : state_.GetTypes()) {
      EXPECT_TRUE(HasWord(text, name.Get())) << path << ": " << name.Get();
    }
  }
}

TEST_F(Registries, AreInTheLanguagePage) {
  const std::string page = ReadPage("docs/language.md");
  for (const auto& [name, overloads] : state_.GetFunctions()) {
    EXPECT_NE(page.find("| `" + name.Get() + "("), std::string::npos) << name.Get();
  }
  for (const auto& [name, row] : state_.GetTypes()) {
    EXPECT_NE(page.find("\n### " + name.Get() + "\n"), std::string::npos) << name.Get();
  }
  for (const auto& [op, priority] : kPriorities) {
    EXPECT_NE(page.find("`" + std::string(op) + "`"), std::string::npos) << op;
  }
}

TEST_F(Registries, AreInTheManual) {
  const std::string page = ReadPage("docs/man/mirlow.1");
  for (const auto& [name, overloads] : state_.GetFunctions()) {
    EXPECT_NE(page.find(name.Get() + "("), std::string::npos) << name.Get();
  }
}

TEST(Manual, NamesTheVersion) {
  for (const char* path : {"docs/man/mirlow.1", "docs/man/mirlow-shell.1"}) {
    EXPECT_NE(ReadPage(path).find(std::string("\"mirlow ") + kVersion + "\""), std::string::npos)
        << path;
  }
}

}  // namespace
}  // namespace Quarn
