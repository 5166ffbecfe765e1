#include "utils/file.h"

#include <iterator>
#include <limits>
#include <string>
#include <utility>

namespace Quarn {
namespace {

constexpr std::ios::openmode kModes[] = {
    std::ios::in | std::ios::out,  // File::kReadWrite
    std::ios::in,                  // File::kRead
    std::ios::out,                 // File::kWrite
};
static_assert(std::size(kModes) == File::kWrite + 1);

s_uint ToPosition(std::streamoff offset) {
  if (offset < 0) return s_uint::NaN;
  if (offset > std::numeric_limits<unsigned int>::max()) return s_uint::INF;
  return static_cast<unsigned int>(offset);
}

}  // namespace

File::File(const s_str& path, unsigned int mode, s_bool as_binary) : path_(path) {
  if (mode >= std::size(kModes)) return;
  open(path.Get(), kModes[mode] | (as_binary ? std::ios::binary : std::ios::openmode()));
}

s_bool File::Exists(const s_str& path) {
  return !path.IsEmpty() && std::ifstream(path.Get()).is_open();
}

s_str File::GetLine() {
  s_str line;
  GetLine(line);
  return line;
}

void File::GetLine(s_str& line) {
  std::string text = line.Take();
  text.clear();  // std::getline does not, on a stream that has failed
  std::getline(*this, text);
  if (text.find('\r') != std::string::npos) std::erase(text, '\r');
  line = std::move(text);
}

void File::WriteLine(const s_str& text) {
  if (indent_.IsNull()) {
    *this << text.GetView() << '\n';
    return;
  }
  const s_str prefix = tab_.Repeat(indent_);
  s_str indented = text;
  indented.Replace("\n", "\n" + prefix);
  *this << prefix.GetView() << indented.GetView() << '\n';
}

// On the buffer, since tellg fails at the end of the file and seekg clears that state.
s_uint File::GetLength() const {
  const std::streampos position = rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in);
  const std::streampos length = rdbuf()->pubseekoff(0, std::ios::end, std::ios::in);
  rdbuf()->pubseekpos(position, std::ios::in);
  return ToPosition(length);
}

s_uint File::GetPosition() const {
  return ToPosition(rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in));
}

}  // namespace Quarn
