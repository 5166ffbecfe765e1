// ErrorWatch passes all that is written on to another buffer, and notices errors as they go by: the
// lines that begin with a tab and "Error : ", as every error of the interpreter does and nothing
// else that it prints. Warnings are none.
//   ErrorWatch watch(*std::cout.rdbuf());
//   std::ostream out(&watch);
//   out << "\tError : Empty symbol\n";
//   watch.HasSeenError();  // true
// The other buffer must outlive it.
#pragma once

#include <streambuf>
#include <string_view>

namespace Quarn {

class ErrorWatch : public std::streambuf {
 public:
  explicit ErrorWatch(std::streambuf& target) : target_(target) {}

  bool HasSeenError() const { return has_seen_error_; }

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override;

 private:
  void Watch(std::string_view text);

  std::streambuf& target_;
  // How many characters of the running line agree with the start of an error; kOther when not all.
  std::size_t agreeing_ = 0;
  bool has_seen_error_ = false;
};

}  // namespace Quarn
