# For tests of scripts: a copy of scripts/ in a directory of its own, and commands that only say that
# they were called. To be sourced; "$root" is the tree to test, "$work" the directory.
set -eu
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
mkdir "$work/tree" "$work/bin"
cp -r "$root/scripts" "$work/tree/"
touch "$work/tree/main.cpp" "$work/tree/CMakeLists.txt"
mkdir "$work/tree/cmake" "$work/tree/utils" "$work/tree/interpreter" "$work/tree/types" \
  "$work/tree/tools"

# fake NAME BODY: a command that runs the lines of sh given. Never through a link: that would write
# into the command which the link leads to.
fake() {
  rm -f "$work/bin/$1"
  printf '#!/bin/sh\n%s\n' "$2" >"$work/bin/$1"
  chmod +x "$work/bin/$1"
}

# expect WHAT EXPECTED PRINTED
expect() {
  [ "$2" = "$3" ] || {
    printf '%s: expected\n%s\nbut got\n%s\n' "$1" "$2" "$3" >&2
    exit 1
  }
}
