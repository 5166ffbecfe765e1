#!/bin/sh
# Fails when the shared library shows anything but the namespace Quarn and the functions in C, or
# when it or the static one has a symbol that is to be unique in the process.
#   exports.sh libmirlow.so libmirlow.a
set -eu
shown=$(nm -D --defined-only --demangle "$1" | cut -c 18-)
foreign=$(echo "$shown" | grep -vE \
  '^[A-Za-z] ((vtable|typeinfo|typeinfo name|guard variable) for )?(Quarn::|mirlow_)' || true)
unique=$(nm --demangle "$1" "$2" 2>/dev/null | grep -E '^[0-9a-f]+ u ' || true)
[ -z "$foreign$unique" ] || {
  printf 'not of the interface, or unique:\n%s\n%s\n' "$foreign" "$unique" >&2
  exit 1
}
count=$(echo "$shown" | wc -l)
echo "$count symbols are shown"
# A library that shows nothing would pass the above.
[ "$count" -ge 50 ]
