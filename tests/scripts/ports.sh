#!/bin/sh
# What scripts/ports runs where, and that it fails when a test does: ports.sh TREE
root=$1
. "$root/tests/scripts/fake.sh"
for command in c++ make clang++ i686-linux-gnu-g++ aarch64-linux-gnu-g++ qemu-aarch64 \
  x86_64-w64-mingw32-g++-posix sudo apt-get; do
  fake $command 'exit 0'
done
# Says what is built, and makes the directory for it.
fake cmake 'case $1 in
  -S) mkdir -p "$4" && echo "WINE64:FILEPATH=${WINE64_FOUND:-WINE64-NOTFOUND}" >"$4/CMakeCache.txt" ;;
  --build) echo "$2 ${*##*--target }" ;;
esac'
fake ctest 'for argument; do echo "$argument"; done >'"$work"'/asked; echo "all tests passed"'
fake timeout 'shift 3; exec "$@"'
PATH=$work/bin:$PATH
mkdir "$work/tree/build"
ports() { "$work/tree/scripts/ports" "$@" 2>&1; }
left_out() { sed -n '/--exclude-regex/,$p' "$work/asked"; }

expect "all of them, in their order" "== libcxx
== i686
== aarch64
== mingw" "$(ports | grep '^==')"

# Natively all tests; with an emulator those that it can run and that end soon.
expect "32 bits" "== i686
build/ports/i686 mirlow unit_tests memory_tests process_tests play
all tests passed" "$(ports i686)"
expect "what is left out there" "" "$(left_out)"
expect "ARM" "== aarch64
build/ports/host play
build/ports/aarch64 mirlow unit_tests memory_tests
all tests passed" "$(ports aarch64)"
left_out | grep -q 'Cutting.*DeathTest' || {
  echo "nothing is left out in the emulator" >&2
  exit 1
}
grep -qx -- '--timeout' "$work/asked" || {
  echo "a test may take for ever" >&2
  exit 1
}
expect "Windows without wine" "== mingw
build/ports/host play
build/ports/mingw mirlow
mingw: built, and not run, since wine is not here" "$(ports mingw)"
fake wine64 'echo "set up"'
expect "Windows" "== mingw
build/ports/host play
build/ports/mingw mirlow
set up
all tests passed" "$(WINE64_FOUND=$work/bin/wine64 ports mingw)"

fails() { # fails WHY WHAT [PORTS...]
  why=$1
  what=$2
  shift 2
  if printed=$(ports "$@"); then
    echo "$why: it does not fail" >&2
    exit 1
  fi
  expect "$why" "$what" "$printed"
}
fails "a port that there is not" \
  "There is no port 'vax': libcxx, i686, aarch64, mingw and wasm are there." vax
fake ctest 'echo "this one failed"; exit 8'
fails "a test that fails" "== i686
build/ports/i686 mirlow unit_tests memory_tests process_tests play
this one failed" i686 libcxx
fake timeout 'echo "in time"; exit 124'
fails "tests that do not end" "== libcxx
build/ports/libcxx mirlow unit_tests memory_tests process_tests play
in time" libcxx i686
