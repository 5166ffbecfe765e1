#!/bin/sh
# When scripts/run builds, and what it says: run.sh TREE
root=$1
. "$root/tests/scripts/fake.sh"
tree=$work/tree
# A program that tells its arguments, in place of a build.
fake cmake "case \$1 in
--build)
  echo built >>$work/builds
  mkdir -p $tree/build
  printf '#!/bin/sh\necho calculated \"\$@\"\n' >$tree/build/mirlow
  chmod +x $tree/build/mirlow
  cp $tree/build/mirlow $tree/build/mirlow-shell
  ;;
esac
echo \"cmake \$*\""
for command in c++ make apt-get; do fake $command 'exit 0'; done
PATH=$work/bin:$PATH

message="Building mirlow and mirlow-shell, which takes a minute or two ..."
cd "$work"
expect "the output of the first run" "calculated a b" "$("$tree/scripts/run" a b 2>/dev/null)"
rm -r "$tree/build"
expect "the messages of the first run" "$message" "$("$tree/scripts/run" 2>&1 >/dev/null)"
expect "the messages of the second" "" "$("$tree/scripts/run" 2>&1 >/dev/null)"
touch -d '1 minute' "$tree/tools/new.cpp"
expect "the messages after a change" "$message" "$("$tree/scripts/run" 2>&1 >/dev/null)"

fake cmake 'echo "cmake: this is wrong"; exit 1'
expect "the messages when it does not build" "$message
cmake: this is wrong" "$("$tree/scripts/run" 2>&1 >/dev/null || true)"
"$tree/scripts/run" >/dev/null 2>&1 && { echo "status 0 without a program" >&2; exit 1; }

# A tree that belongs to somebody else, with a source that is newer than what was built.
as_nobody=
if [ "$(id -u)" -eq 0 ]; then
  command -v setpriv >/dev/null || exit 77
  as_nobody="setpriv --reuid=65534 --regid=65534 --clear-groups"
fi
chmod 755 "$work"
$as_nobody test -x "$tree/scripts/run" || exit 77 # a temporary directory of root's alone
chmod -R a-w "$tree"
expect "a tree that is read-only" "calculated 1" "$($as_nobody "$tree/scripts/run" 1 2>&1)"
