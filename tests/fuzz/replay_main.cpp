// The entry of a target in the test suite: tries each file that it is given, and each file of a
// directory, then a few bytes that no file should have to hold.
//   session_replay corpus/session
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/fuzz/fuzz.h"

namespace {

void TryFile(const std::filesystem::path& path) {
  std::fprintf(stderr, "%s\n", path.c_str());  // the last one named is the one that broke
  std::ifstream stream(path, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(stream), {});
  Quarn::fuzz::Try(bytes);
}

}  // namespace

int main(int count, char** values) {
  for (int i = 1; i < count; ++i) {
    if (!std::filesystem::is_directory(values[i])) {
      TryFile(values[i]);
      continue;
    }
    for (const auto& entry : std::filesystem::directory_iterator(values[i])) TryFile(entry.path());
  }
  Quarn::fuzz::Try("");
  for (int byte = 0; byte < 256; ++byte) Quarn::fuzz::Try(std::string(9, static_cast<char>(byte)));
  return 0;
}
