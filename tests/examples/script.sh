#!/bin/sh
# A script prints what stands beside it: script.sh PROGRAM EXAMPLE.mirlow
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$2" "$work/script" # the calculator wants to write into what it runs
cd "$work"
"$1" script >printed || [ $? -eq 1 ] # errors are part of an example
diff "${2%.mirlow}.expected" printed
