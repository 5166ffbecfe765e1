// Tests of the prompt: what quits, what does not, and the end of input.
#include <gtest/gtest.h>

#include "tests/process/program.h"

namespace Quarn {
namespace {

TEST(Prompt, StandsBeforeEveryLine) {
  EXPECT_EQ(AtPrompt("1\n\n2\nq\n").output, "> \tScalar : 1\n> > \tScalar : 2\n> ");
}

TEST(Prompt, IsThereBeforeAnythingIsTyped) {
  const TemporaryDirectory directory;
  Process process({Program()}, {.directory = directory.PathOf("")});
  EXPECT_EQ(process.Read(2), "> ");
  EXPECT_TRUE(process.IsSilentFor(std::chrono::milliseconds(100)));
}

TEST(Prompt, IsLeftByTheQuitWords) {
  for (const char* word : {"q", "exit"}) {
    const Outcome outcome = AtPrompt(std::string(word) + "\n1\n");
    EXPECT_EQ(outcome.output, "> ") << word;
    EXPECT_EQ(outcome.status, 0) << word;
  }
}

TEST(Prompt, IsNotLeftByWhatLooksLikeAQuitWord) {
  const struct {
    const char* line;
    const char* output;
  } kRows[] = {
      {"q ",     "\tDefining Symbol : q\n"                          },
      {" q",     "\tDefining Symbol : q\n"                          },
      {"Q",      "\tDefining Symbol : Q\n"                          },
      {"Exit",   "\tDefining Symbol : Exit\n"                       },
      {"exit ",  "\tDefining Symbol : exit\n"                       },
      {"quit",   "\tDefining Symbol : quit\n"                       },
      {"q;exit", "\tDefining Symbol : q\n\tDefining Symbol : exit\n"},
  };
  for (const auto& row : kRows) {
    const Outcome outcome = AtPrompt(std::string(row.line) + "\nq\n");
    EXPECT_EQ(outcome.output, "> " + std::string(row.output) + "> ") << row.line;
  }
}

TEST(Prompt, KeepsCarriageReturns) {
  EXPECT_EQ(AtPrompt("1\r\nq\n").output,
            "> \tError : Unable to parse expression '1\r', no operator found\n> ");
}

// Kept on purpose: the end of input is an empty line like others, so the prompt goes on for ever;
// only the quit words lead out.
TEST(Prompt, GoesOnForEverAtTheEndOfInput) {
  const TemporaryDirectory directory;
  Process process({Program()}, {.directory = directory.PathOf("")});
  process.Type("1\n");
  process.EndInput();
  std::string expected = "> \tScalar : 1\n";
  while (expected.size() < 100'001) expected += "> ";
  EXPECT_EQ(process.Read(expected.size()), expected);
  const std::size_t memory = process.GetResidentBytes();
  constexpr std::size_t kMuch = 10'000'000;
  EXPECT_EQ(process.Read(kMuch).size(), kMuch);
  EXPECT_LT(process.GetResidentBytes(), memory + (1U << 20));
}

TEST(Prompt, TakesTheEndOfInputForEnterWhenAsked) {
  const TemporaryDirectory directory;
  Process process({Program()}, {.directory = directory.PathOf("")});
  process.Type("x=1\n~\n");
  process.EndInput();
  const std::string expected =
      "> \tDefining Scalar : x = 1\n> \tWarning : This command will erase all symbols.\n"
      "\t          Are you sure ? ([y|Enter]/n) \tAll symbols erased\n> > > > ";
  EXPECT_EQ(process.Read(expected.size()), expected);
}

TEST(Prompt, TakesALineThatEndsWithTheInput) {
  const TemporaryDirectory directory;
  Process process({Program()}, {.directory = directory.PathOf("")});
  process.Type("1");
  process.EndInput();
  const std::string expected = "> \tScalar : 1\n> > > ";
  EXPECT_EQ(process.Read(expected.size()), expected);
}

}  // namespace
}  // namespace Quarn
