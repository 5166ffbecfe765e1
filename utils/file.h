// File is a file stream that knows its path, reads lines without carriage returns and writes
// indented lines. Nothing here throws or prints: a file that cannot be opened is not open, and
// reading from it returns empty lines.
//   File script("a.txt", File::kReadWrite);
//   for (s_str line; script.IsValid();) { script.GetLine(line); ... }
#pragma once

#include <fstream>

#include "utils/s_bool.h"
#include "utils/s_int.h"
#include "utils/s_str.h"

namespace Quarn {

class File : public std::fstream {
 public:
  enum Mode : unsigned int {
    kReadWrite = 0,  // the file must exist
    kRead = 1,
    kWrite = 2,  // creates or truncates
  };

  // Sets the fail state if the file cannot be opened. Any other mode leaves it unopened.
  File(const s_str& path, unsigned int mode, s_bool as_binary = false);

  // Can the path be opened for reading? False for an empty path.
  static s_bool Exists(const s_str& path);

  s_bool IsOpen() const { return is_open(); }
  // Open and not at the end, which is reached by reading a last line without a newline, or else the
  // empty line after the last one.
  s_bool IsValid() const { return is_open() && !eof(); }

  // Without the newline and without any "\r". Empty at the end and if the file is not open.
  s_str GetLine();
  void GetLine(s_str& line);  // reuses the capacity of the line

  // Writes the text and a newline; every line within the text is indented.
  void WriteLine(const s_str& text);

  // In units of four blanks; 0 at first.
  s_uint GetIndent() const { return indent_; }
  void SetIndent(s_uint indent) { indent_ = indent; }

  const s_str& GetName() const { return path_; }  // the path
  // In bytes, including what is not flushed yet; leaves the stream as it is. NaN if the file is not
  // open, INF if the length does not fit an s_uint.
  s_uint GetLength() const;
  // The read position from 0; NaN and INF as above.
  s_uint GetPosition() const;

  // Sets the fail state if closing fails or the file is not open.
  void Close() { close(); }

 private:
  s_str path_;
  s_str tab_ = "    ";
  s_uint indent_;
};

}  // namespace Quarn
