// ErrorWatch forwards to another stream buffer and detects errors: lines that begin with a tab and
// "Error : ". Warnings are none.
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
  // Characters of the current line that match the start of an error; kOther after a mismatch.
  std::size_t matched_ = 0;
  bool has_seen_error_ = false;
};

}  // namespace Quarn
