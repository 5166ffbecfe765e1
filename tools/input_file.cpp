#include "tools/input_file.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace Quarn {
namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

bool WouldBlock(int file) {
  pollfd waiting{file, POLLIN, 0};
  return poll(&waiting, 1, 0) == 0;
}

ssize_t ReadSome(int file, std::vector<char>& buffer) {
  ssize_t count = 0;
  do {
    count = read(file, buffer.data(), buffer.size());
  } while (count < 0 && errno == EINTR);
  return count;
}

}  // namespace

InputFile::InputFile(const std::string& path, Hook before_waiting)
    : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC)),
      is_owned_(true),
      error_(file_ < 0 ? errno : 0),
      before_waiting_(std::move(before_waiting)) {}

InputFile::InputFile(int file, Hook before_waiting)
    : file_(file), is_owned_(false), before_waiting_(std::move(before_waiting)) {}

InputFile::~InputFile() {
  if (is_owned_ && file_ >= 0) close(file_);
}

InputFile::int_type InputFile::underflow() {
  if (error_ != 0) return traits_type::eof();
  if (WouldBlock(file_)) before_waiting_();
  buffer_.resize(kBufferSize);
  const ssize_t count = ReadSome(file_, buffer_);
  if (count <= 0) {
    if (count < 0) error_ = errno;
    return traits_type::eof();
  }
  setg(buffer_.data(), buffer_.data(), buffer_.data() + count);
  return traits_type::to_int_type(buffer_.front());
}

}  // namespace Quarn
