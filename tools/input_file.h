// InputFile reads a file, a pipe or standard input. It calls a hook before a read that would block,
// so that a process which waits for an answer before it writes on gets that answer.
//   InputFile file("script.mirlow", [&] { out.flush(); });
//   std::istream lines(&file);
//   ...                      // read to the end
//   file.GetError();         // an errno if that was no end
#pragma once

#include <functional>
#include <streambuf>
#include <string>
#include <vector>

namespace Quarn {

class InputFile : public std::streambuf {
 public:
  using Hook = std::function<void()>;

  // Opens the file; it need not be writable.
  InputFile(const std::string& path, Hook before_waiting);
  // Reads an open file, which stays open.
  InputFile(int file, Hook before_waiting);
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() override;

  // Why it could not be opened or read to its end; otherwise 0.
  int GetError() const { return error_; }

 protected:
  int_type underflow() override;

 private:
  int file_;
  bool is_owned_;
  int error_ = 0;
  Hook before_waiting_;
  std::vector<char> buffer_;
};

}  // namespace Quarn
