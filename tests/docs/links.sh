#!/bin/sh
# Each link of the pages below a directory leads to a file there, and to a heading of it if it names
# one: links.sh DIRECTORY PAGE...
# Pages are files or directories, relative to that. Links to other sites are not followed.
set -u
cd "$1" || exit 1
shift

# "page:target", one a line. What stands in code is no link.
list_links() {
  find "$@" -name '*.md' -exec awk '
    /^ *```/ { in_code = !in_code }
    in_code || /^    / { next }
    {
      gsub(/`[^`]*`/, "")
      while (match($0, /\]\([^)]*\)/)) {
        print FILENAME ":" substr($0, RSTART + 2, RLENGTH - 3)
        $0 = substr($0, RSTART + RLENGTH)
      }
    }' {} +
}

# As sites make them of headings: lower case, "-" for blanks, other signs left out.
list_anchors() {
  sed -n 's/^##* //p' "$1" | tr 'A-Z ' 'a-z-' | sed 's/[^a-z0-9_-]//g'
}

status=0
complain() {
  echo "$1: $2" >&2
  status=1
}
links=$(list_links "$@" | grep -v ':[a-z]*://')
[ -n "$links" ] || complain "$*" "no links found"
while IFS=: read -r page target; do
  file=${target%%#*}
  path=$(dirname "$page")/$file
  [ -n "$file" ] || path=$page
  if ! [ -e "$path" ]; then
    complain "$page" "no file '$target'"
  elif [ "$target" != "$file" ] && ! list_anchors "$path" | grep -qx -e "${target#*#}"; then
    complain "$page" "no heading '$target'"
  fi
done <<END
$links
END
exit $status
