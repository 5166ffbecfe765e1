# Shows the comments of a header to Doxygen: "//" says as much as "///" where it stands above a
# declaration or behind one. The comment on top of a file is the file's, and that of its first class
# without one. A comment holds for all declarations down to the next blank line or comment. A member
# without one gets a character that nobody sees: its name says it.
#   awk -f filter.awk interpreter/state.h

# What Doxygen would take for commands, tags or links; not in `code`.
function escaped(text,   parts, n, i, out) {
  n = split(text, parts, "`")
  out = ""
  for (i = 1; i <= n; i++) {
    if (i % 2 == 1 || i == n) gsub(/[\\@<>&#%~]/, "\\\\&", parts[i])
    out = out (i > 1 ? "`" : "") parts[i]
  }
  return out
}

# One line of a comment, without its slashes. Lines set in by three blanks or more are code.
function comment(text,   out) {
  if (text ~ /^   /) {
    out = (in_code ? "" : "/// @code\n") "/// " substr(text, 4) "\n"
    in_code = 1
    return out
  }
  return end_code() "///" escaped(text) "\n"
}
function end_code(   out) {
  out = in_code ? "/// @endcode\n" : ""
  in_code = 0
  return out
}

# Does the definition of a class begin at the line?
function begins_class(i) {
  if (lines[i] ~ /^template/ && lines[i] !~ /;$/) i++
  return lines[i] ~ /^(class|struct) .*[^;]$/
}

function show(i,   line, at) {
  line = lines[i]
  # What every class has needs no words; and nobody outside names what is private.
  if (line ~ /= (default|delete);/ || line ~ /^ *(virtual )?~/) line = ""
  at = index(line, "  // ")
  if (at) line = substr(line, 1, at - 1) "  ///<" escaped(substr(line, at + 4))
  print line
}

# Does a member of a class, or of a type within it, begin at the line?
function begins_member(line) {
  if (line ~ /^(class|struct) .*[{]$/) in_class = 1
  if (line ~ /^};/) in_class = 0
  if (in_class && line ~ /^  (class|struct|enum)[^;]*[{]$/) in_type = 1
  if (line ~ /^  };/) in_type = 0
  if (!in_class || line ~ /^ *([})#]|\/\/)/) return 0
  return indent(line) == 3 || (in_type && indent(line) == 5)
}

function indent(line) { return match(line, /[^ ]/) }

{ lines[NR] = $0 }

END {
  for (i = 1; i <= NR && lines[i] ~ /^\/\//; i++) top = top comment(substr(lines[i], 3))
  top = top end_code()
  print "/// @file\n" top
  said = ""     # the comment that holds
  complete = 1  # may a declaration begin here?
  for (; i <= NR; i++) {
    line = lines[i]
    # A heading belongs to no declaration.
    if (line ~ /^ *\/\/ ----/) continue
    if (line ~ /^ *\/\/( |$)/) {
      if (!above) said = ""
      at = indent(line)
      sub(/^ *\/\//, "", line)
      said = said comment(line)
      above = 1
      continue
    }
    said = said end_code()
    above = 0
    is_member = begins_member(line) && line !~ /= (default|delete);|^ *(virtual )?~/
    if (line ~ /^ *$/ || line ~ /^ *(public|private|protected):$/) said = ""
    if (begins_class(i) && said == "" && complete) {
      printf "%s", top
      top = ""
    } else if (indent(line) == at && complete && line !~ /^ *[})]/ && line !~ /  \/\/ /) {
      printf "%s", said
    }
    if (is_member && complete && (said == "" || indent(line) != at) && line !~ /  \/\/ /) print "/// &zwnj;"
    show(i)
    sub(/  \/\/ .*/, "", line)
    complete = line ~ /([;{}]|:|^) *$/
  }
}
