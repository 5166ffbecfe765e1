// Tests of tools/capture: what it keeps, and what a flush passes on.
#include "tools/capture.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>

namespace Quarn {
namespace {

int questions_asked = 0;
void CountQuestion() { ++questions_asked; }

class Capturing : public testing::Test {
 protected:
  void SetUp() override { questions_asked = 0; }

  std::stringbuf target_;
  std::stringbuf questions_;
  Capture capture_{target_, questions_, CountQuestion};
  std::ostream out_{&capture_};
};

TEST_F(Capturing, KeepsWhatIsPrinted) {
  out_ << "\tScalar : " << 1;
  out_.put('\n');
  EXPECT_EQ(capture_.GetText(), "\tScalar : 1\n");
  EXPECT_EQ(capture_.GetRest(), "\tScalar : 1\n");
  EXPECT_EQ(target_.str() + questions_.str(), "");
  capture_.Clear();
  EXPECT_EQ(capture_.GetText(), "");
}

TEST_F(Capturing, PassesQuestionsOn) {
  out_ << "Sure ? " << std::flush;
  EXPECT_EQ(questions_.str(), "Sure ? ");
  EXPECT_EQ(questions_asked, 1);
  out_ << "Erased\n";
  EXPECT_EQ(capture_.GetText(), "Sure ? Erased\n");
  EXPECT_EQ(capture_.GetRest(), "Erased\n");
  EXPECT_EQ(target_.str(), "");
}

TEST_F(Capturing, TakesAFlushOfNothingForNoQuestion) {
  out_.flush();
  EXPECT_EQ(questions_asked, 0);
}

TEST_F(Capturing, DoesNotKeepTheStorageOfLargeOutputs) {
  out_ << std::string(std::size_t{3} << 20, 'x');
  const void* const large = capture_.GetText().data();
  capture_.Clear();
  out_ << "1";
  EXPECT_EQ(capture_.GetText(), "1");
  EXPECT_NE(capture_.GetText().data(), large);
}

}  // namespace
}  // namespace Quarn
