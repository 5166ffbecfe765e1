// Tests that what owns a file, a terminal, a signal mask or a stream buffer cannot be copied: a
// copy would close what the original still uses, or read from the buffer of the original.
#include <gtest/gtest.h>

#include <type_traits>

#include "tools/answers.h"
#include "tools/capture.h"
#include "tools/full_screen.h"
#include "tools/input_file.h"
#include "tools/interrupts.h"
#include "tools/line_reader.h"
#include "tools/recorder.h"
#include "tools/runner.h"
#include "tools/terminal_input.h"

namespace Quarn {
namespace {

// LineReader is abstract, which alone would answer the question.
class OneReader : public LineReader {
  Outcome Read(std::string&) override { return Outcome::kEnd; }
};

template <typename T>
class NoCopies : public testing::Test {};

using Owners = testing::Types<Answers, Capture, FullScreen, InputFile, Interrupts::Noting,
                              OneReader, Recorder, Runner, TerminalInput>;
TYPED_TEST_SUITE(NoCopies, Owners);

TYPED_TEST(NoCopies, AreMade) {
  EXPECT_FALSE(std::is_copy_constructible_v<TypeParam>);
  EXPECT_FALSE(std::is_copy_assignable_v<TypeParam>);
}

TYPED_TEST(NoCopies, NorAreTheyMoved) {
  EXPECT_FALSE(std::is_move_constructible_v<TypeParam>);
  EXPECT_FALSE(std::is_move_assignable_v<TypeParam>);
}

}  // namespace
}  // namespace Quarn
