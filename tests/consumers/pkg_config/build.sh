#!/bin/sh
# A host without CMake: the compiler, the sources, the program to make, and flags of the host's.
set -eu
compiler=$1 source=$2 program=$3
shift 3
"$compiler" -std=c++20 "$@" "$source" -o "$program" $(pkg-config --cflags --libs mirlow)
