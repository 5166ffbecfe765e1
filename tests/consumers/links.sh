#!/bin/sh
# Fails when an installed page links to what is not installed.
#   links.sh PREFIX/share/doc/mirlow
set -eu
cd "$1"
find . -name '*.md' | sort | {
  missing=0
  links=0
  while read -r page; do
    for link in $(grep -oE '\]\([^)#: ]+[)#]' "$page" | sed 's/^..//; s/.$//' | sort -u); do
      links=$((links + 1))
      [ -e "$(dirname "$page")/$link" ] || {
        echo "$page links to $link" >&2
        missing=1
      }
    done
  done
  echo "$links links"
  [ "$missing" -eq 0 ] && [ "$links" -ge 20 ]
}
