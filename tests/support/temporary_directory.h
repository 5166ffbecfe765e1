// A directory of one test's own, which goes with all its files when the test ends. Everybody may
// read it, so that a test may look at it as another user.
//   const TemporaryDirectory directory;
//   const std::string path = directory.Write("a.txt", "1\n");
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace Quarn {

class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "mirlow-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary directory");
    path_ = pattern;
    std::filesystem::permissions(path_, std::filesystem::perms(0755));
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
  ~TemporaryDirectory() { std::filesystem::remove_all(path_); }

  // The path of a file in here; nothing is created.
  std::string PathOf(const std::string& name) const { return (path_ / name).string(); }

  // Writes the bytes into a file and returns its path.
  std::string Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(PathOf(name), std::ios::binary) << bytes;
    return PathOf(name);
  }

 private:
  std::filesystem::path path_;
};

// All bytes of a file.
inline std::string ReadBytes(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace Quarn
