// Tests of State's streams: where output goes and questions are read, when it is written out, and
// that the host's locale has no say in it.
#include <gtest/gtest.h>

#include <iostream>
#include <locale>
#include <streambuf>
#include <string>

#include "tests/support/session.h"
#include "types/lift.h"

namespace Quarn {
namespace {

// Lends the standard streams other buffers.
class StandardStreams {
 public:
  explicit StandardStreams(const std::string& input)
      : in_(input), old_out_(std::cout.rdbuf(out_.rdbuf())), old_in_(std::cin.rdbuf(in_.rdbuf())) {}
  ~StandardStreams() {
    std::cout.rdbuf(old_out_);
    std::cin.rdbuf(old_in_);
  }
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;

  std::string Get() const { return out_.str(); }

 private:
  std::ostringstream out_;
  std::istringstream in_;
  std::streambuf* old_out_;
  std::streambuf* old_in_;
};

// Writes a mark where it is flushed.
class MarkingBuffer : public std::stringbuf {
  int sync() override {
    sputc('#');
    return 0;
  }
};

// A locale in which half a million is 500.000 and a half is 0,5.
class Commas : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class GlobalLocale {
 public:
  explicit GlobalLocale(const std::locale& locale) : old_(std::locale::global(locale)) {}
  ~GlobalLocale() { std::locale::global(old_); }
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;

 private:
  std::locale old_;
};

TEST(Output, IsThatOfTheStandardStreamsByDefault) {
  const StandardStreams standard("n\n");
  State state;
  state.ProcessLine("1+2;~");
  state.Flush();
  EXPECT_EQ(standard.Get(),
            "\tScalar : 3\n\tWarning : This command will erase all symbols.\n"
            "\t          Are you sure ? ([y|Enter]/n) ");
}

TEST(Output, OfSeveralStatesMayShareTheStandardStreams) {
  const StandardStreams standard("");
  State first;
  State second;
  first.ProcessLine("1");
  second.ProcessLine("2");
  first.ProcessLine("3");
  second.Flush();
  EXPECT_EQ(standard.Get(), "\tScalar : 1\n\tScalar : 2\n\tScalar : 3\n");
}

TEST(Output, GoesNowhereButToTheStreamThatWasGiven) {
  const StandardStreams standard("n\nn\n");
  std::ostringstream errors;
  std::streambuf* old_errors = std::cerr.rdbuf(errors.rdbuf());
  {
    Session session("y\n");
    EXPECT_EQ(session.Type("x=1;x/0;zz+1;?;~x").empty(), false);
    EXPECT_TRUE(session.Type("~").ends_with("\tAll symbols erased\n"));
  }
  std::cerr.rdbuf(old_errors);
  EXPECT_EQ(standard.Get(), "");
  EXPECT_EQ(errors.str(), "");
  std::string untouched;
  std::getline(std::cin, untouched);
  EXPECT_EQ(untouched, "n");
}

TEST(Output, IsWrittenOutBeforeAQuestionAndOnRequest) {
  MarkingBuffer buffer;
  std::ostream out(&buffer);
  std::istringstream in("n\n");
  State state(out, in);
  state.ProcessLine("1;x=2;?x;zz+1;~x");
  EXPECT_EQ(buffer.str().find('#'), std::string::npos);
  state.ProcessLine("~;3");
  EXPECT_TRUE(buffer.str().ends_with("([y|Enter]/n) #\tScalar : 3\n")) << buffer.str();
  state.Flush();
  EXPECT_TRUE(buffer.str().ends_with("\tScalar : 3\n#"));
}

TEST(Output, IsWrittenOutBeforeAFactorialThatMayNotReturn) {
  MarkingBuffer buffer;
  std::ostream out(&buffer);
  std::istringstream in;
  State state(out, in);
  state.ProcessLine("!5;!3.95");
  EXPECT_EQ(buffer.str(), "\tScalar : 120\n\tScalar : 24\n");
  state.ProcessLine("!2000");
  EXPECT_EQ(buffer.str(), "\tScalar : 120\n\tScalar : 24\n#\tScalar : inf+\n");
}

// What an evaluation prints for itself stands before the line of its value, not within.
TEST(Output, IsComposedLineByLine) {
  std::ostringstream out;
  std::istringstream in;
  State state(out, in);
  Vector::Register(state);
  state.AddFunction("shout", {""},
                    [&out](State&, const Values&, Values& results, s_str&) -> s_bool {
                      out << "!";
                      results.PushBack(NewNumber(1));
                      return true;
                    });
  state.ProcessLine("r&=shout();?r;<1, r>");
  EXPECT_EQ(out.str(), "!\tDefining Reference : r = 1\n!!\tScalar : r = 1\n!!\tVector : <1, 1>\n");
}

TEST(Output, OfAStreamThatFailsDoesNoHarm) {
  std::ostringstream out;
  std::istringstream in;
  State state(out, in);
  out.setstate(std::ios::badbit);
  state.ProcessLine("x=1;~");
  out.clear();
  state.ProcessLine("?x");
  EXPECT_EQ(out.str(), "\tError : Unknown symbol 'x'\n");
}

TEST(HostLocale, ChangesNothing) {
  const char* lines =
      "500000.5;x=0.5;1e20;<1.5, 2.5>;1/3;123456789;e5;12,5;rand(1, 0.5);&1.5+1000000";
  const std::string expected = Session().Type(lines);
  EXPECT_TRUE(expected.starts_with("\tScalar : 500000.5\n\tDefining Scalar : x = 0.5\n"));
  const GlobalLocale commas(std::locale(std::locale::classic(), new Commas));
  ASSERT_EQ((std::ostringstream() << 1234.5).str(), "1.234,5");
  EXPECT_EQ(Session().Type(lines), expected);
}

TEST(HostLocale, DoesNotGroupTheLengthsOfVectors) {
  const GlobalLocale commas(std::locale(std::locale::classic(), new Commas));
  std::string elements = "1";
  for (int i = 1; i < 1000; ++i) elements += ",1";
  EXPECT_EQ(Session().Evaluate("<" + elements + ">+<" + elements + ",1>"),
            "\tError : Cannot add two Vectors of different length (1000 and 1001)");
}

// Made before main, with all that it uses.
struct Early {
  std::ostringstream out;
  std::istringstream in;
  std::string printed;
  Early() {
    State state(out, in);
    Vector::Register(state);
    state.ProcessLine("x=<1, 2>;x[-1]*2+!3;?x;1/0;zz;r&=x+y");
    printed = out.str();
  }
};
const Early early;

TEST(State, IsUsableBeforeMain) {
  EXPECT_EQ(early.printed,
            "\tDefining Vector : x = <1, 2>\n\tScalar : 10\n\tVector : x = <1, 2>\n"
            "\tScalar : inf+\n\tDefining Symbol : zz\n\tDefining Reference : r = x+y\n");
}

}  // namespace
}  // namespace Quarn
