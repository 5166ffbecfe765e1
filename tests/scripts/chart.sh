#!/bin/sh
# What scripts/chart takes from the tables of a page: chart.sh TREE
root=$1
command -v gnuplot >/dev/null || exit 77
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() {
  echo "$1" >&2
  exit 1
}

cat >"$work/page.md" <<'END'
### W1, 10 (standard output: null)

| peer | median wall | ratio to sol | remark |
|---|---|---|---|
| sol | 1.00 ms | 1.0 |  |
| swift | 2.00 ms | 2.0 |  |
| snail | 90.00 ms | 90.0 |  |
| broken | - | - | exit 1 |

### W6, 10 (standard output: null)

| peer | median wall | ratio to sol | remark |
|---|---|---|---|
| swift | 3.00 ms | 3.0 |  |
| stranger | 3.00 ms | 3.0 | not in W1 |
END
"$root/scripts/chart" "$work/page.md" "$work/picture.svg" || fail "the page is refused"
for peer in swift snail; do
  grep -q "$peer" "$work/picture.svg" || fail "no row for $peer"
done
for peer in broken stranger '>sol'; do
  grep -q "$peer" "$work/picture.svg" && fail "a row for $peer"
done

# Nothing is drawn over the picture when there is nothing to draw.
echo "# No tables" >"$work/empty.md"
echo before >"$work/picture.svg"
"$root/scripts/chart" "$work/empty.md" "$work/picture.svg" 2>/dev/null && fail "an empty page is drawn"
[ "$(cat "$work/picture.svg")" = before ] || fail "the picture was written over"
