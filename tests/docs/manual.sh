#!/bin/sh
# A page of the manual passes a checker without a word: manual.sh man|mandoc PAGE
# Ends with 77 when that checker is not there.
set -u
command -v "$1" >/dev/null || exit 77
case $1 in
  man) said=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$2" 2>&1 >/dev/null) ;;
  mandoc) said=$(mandoc -Tlint "$2" 2>&1) ;;
esac
[ -z "$said" ] && exit 0
echo "$said"
exit 1
