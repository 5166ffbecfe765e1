#!/bin/sh
# A host without CMake: the compiler, the sources, the program to make.
set -eu
"$1" -std=c++20 "$2" -o "$3" $(pkg-config --cflags --libs mirlow)
