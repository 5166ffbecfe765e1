// Capture keeps what one command prints, until the command is done. A question cannot wait as long:
// a flush passes on what came so far.
//   Capture capture(*std::cout.rdbuf());
//   State state(out, in);             // std::ostream out(&capture)
//   state.ProcessLine("1+1");
//   capture.GetText();                // "\tScalar : 2\n"
//   capture.GetRest();                // the same, unless there was a flush
#pragma once

#include <streambuf>
#include <string>
#include <string_view>

namespace Quarn {

class Capture : public std::streambuf {
 public:
  // A flush goes on to the target. `questions` gets what is passed on, and may be the target;
  // `before_question` is called before that, unless it is null.
  Capture(std::streambuf& target, std::streambuf& questions, void (*before_question)())
      : target_(target), questions_(questions), before_question_(before_question) {}
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;

  // All of it, and what was not passed on yet. Valid until something is printed or cleared.
  std::string_view GetText() const { return text_; }
  std::string_view GetRest() const { return GetText().substr(passed_on_); }
  void Clear();

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override;

 private:
  std::streambuf& target_;
  std::streambuf& questions_;
  void (*before_question_)();
  std::string text_;
  std::size_t passed_on_ = 0;
};

}  // namespace Quarn
