// Property: reading a file line by line, as scripts are read, gives the lines that one gets by
// cutting its bytes at each newline and leaving out each carriage return; the end is met with the
// last of them, and the file says how long it is and where reading stands. Nothing is skipped.
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <vector>

#include "tests/fuzz/fuzz.h"
#include "utils/file.h"

namespace Quarn::fuzz {
namespace {

std::vector<std::string> CutByHand(std::string_view bytes) {
  std::vector<std::string> lines(1);
  for (char c : bytes) {
    if (c == '\n') {
      lines.emplace_back();
    } else if (c != '\r') {
      lines.back() += c;
    }
  }
  return lines;
}

// A file of this process, which goes with it.
class Scratch {
 public:
  Scratch() : path_("/tmp/mirlow-fuzz-" + std::to_string(getpid())) {}
  ~Scratch() { unlink(path_.c_str()); }
  const std::string& Write(std::string_view bytes) const {
    std::ofstream(path_, std::ios::binary) << bytes;
    return path_;
  }

 private:
  std::string path_;
};

}  // namespace

void Try(std::string_view input) {
  static const Scratch scratch;
  File script(scratch.Write(input), File::kReadWrite);
  Require(script.IsOpen(), "a file that is there opens");
  Require(script.GetLength() == s_uint(static_cast<unsigned int>(input.size())), "its length");
  s_str line = "what was there before";
  unsigned int read = 0;
  for (const std::string& expected : CutByHand(input)) {
    Require(script.GetPosition() == s_uint(read), "reading stands behind the last line");
    Require(script.IsValid(), "there is another line", expected);
    script.GetLine(line);
    RequireEqual(line.Get(), expected, "the line is the same");
    const std::size_t end = input.find('\n', read);
    read = static_cast<unsigned int>(end == std::string_view::npos ? input.size() : end + 1);
  }
  Require(!script.IsValid(), "the end is met with the last line");
  script.GetLine(line);
  RequireEqual(line.Get(), "", "behind the end there are empty lines");
}

}  // namespace Quarn::fuzz
