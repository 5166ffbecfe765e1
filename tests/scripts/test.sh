#!/bin/sh
# What scripts/test leaves out, and when: test.sh TREE
root=$1
[ -r /proc/self/statm ] || exit 77
. "$root/tests/scripts/fake.sh"
for command in c++ make pkg-config man mandoc tmux apt-get cmake clang++; do
  fake $command 'exit 0'
done
# The arguments, but for the number of processes, which follows --parallel.
fake ctest 'for argument; do
  case $argument in --parallel) shift ;; *[!0-9]*) echo "$argument" ;; esac
done'
PATH=$work/bin:$PATH
messages() { "$work/tree/scripts/test" "$@" 2>&1 >/dev/null | grep "^Left out" || true; }
left_out() { "$work/tree/scripts/test" "$@" 2>/dev/null; }

fake python3 'exit 0' # there are pseudo-terminals
expect "with all that is needed" "--preset
release" "$(left_out)"
expect "its messages" "" "$(messages)"
expect "with a preset" "--preset
asan
-E
^consumers" "$(left_out asan)"
expect "tidy, which looks while it builds" "" "$(left_out tidy)"

fake python3 'exit 1'
terminals="^shell\..*(AnyShell|Edit|OnScreen|Watch|AltS|Init|Colours)"
expect "without pseudo-terminals" "--preset
release
-E
$terminals" "$(left_out)"
expect "its messages" "Left out, as there is no pseudo-terminal: $terminals" "$(messages)"
