// File is a text file: a standard file stream that knows its path, reads lines without carriage
// returns and writes lines that can be indented. It closes itself when it goes. Nothing here throws
// or prints: a file that cannot be opened is simply not open, and reading from it gives empty
// lines.
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
  // How a file is opened.
  enum Mode : unsigned int {
    kReadWrite = 0,  // the file must exist and allow both
    kRead = 1,
    kWrite = 2,  // creates the file, or empties the one that is there
  };

  // Opens the file; any other mode number leaves it unopened. Sets the fail state when it cannot be
  // opened.
  File(const s_str& path, unsigned int mode, s_bool as_binary = false);

  // Can the path be opened for reading? Never for an empty path.
  static s_bool Exists(const s_str& path);

  // Is there a file behind it?
  s_bool IsOpen() const { return is_open(); }
  // Open, and the end was not met yet. It is met by reading the last line when no newline ends it,
  // and otherwise by reading the empty line after it.
  s_bool IsValid() const { return is_open() && !eof(); }

  // The characters up to the next newline, without it and without any "\r". Empty at the end of the
  // file and when it is not open.
  s_str GetLine();
  // The same into a line whose room is used again.
  void GetLine(s_str& line);

  // Writes the text and a newline; every line of the text is indented alike.
  void WriteLine(const s_str& text);

  // How many times four blanks stand before each line written; 0 at first.
  s_uint GetIndent() const { return indent_; }
  void SetIndent(s_uint indent) { indent_ = indent; }

  // The path as it was given.
  const s_str& GetName() const { return path_; }
  // In bytes, what was written but not flushed included; the read position and the state of the
  // stream stay. NaN when the file is not open, INF when the length fits no s_uint.
  s_uint GetLength() const;
  // The byte that is read next, from 0; NaN and INF as above.
  s_uint GetPosition() const;

  // Sets the fail state when closing fails, as it does for a file that is not open.
  void Close() { close(); }

 private:
  s_str path_;
  s_str tab_ = "    ";
  s_uint indent_;
};

}  // namespace Quarn
