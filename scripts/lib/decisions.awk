# Keeps of a gcov report the branches that somebody wrote: those of a block that ends in two or more
# of them, none of which is an exception's, unless only exceptions lead to the block at all.
#   awk -v unrun=REPORT_OF_A_RUN_OF_NOTHING -f decisions.awk REPORT
# Both reports are of "gcov --all-blocks --branch-counts" for the same object. gcov tells by "$$$$$"
# that only exceptions lead to a block, but just while it has not been run; and which branches are
# an exception's, but just if it has. A block that has not been run is left out: either a branch
# that leads to it is reported, or its line.
# The branches of a source line are numbered anew. By that number they are recognised in the copies
# of the line, in templates and in the inline functions of several objects: gcov's own numbers count
# calls along, and the compiler does not know in every copy which of them throw nothing.

function end_block(i) {
  for (i = 0; count > 1 && i < count; ++i) print "branch " number++ " " branches[i]
  count = 0
}

function fail() {
  print FILENAME ": the two reports differ" >"/dev/stderr"
  failed = 1
  exit 1
}

{
  if ((getline unrun_line < unrun) <= 0) fail()
}
/^ *[0-9$%*]+: *[0-9]+-block / {
  end_block()
  if (unrun_line !~ $2 " *" $3 "$") fail()
  only_by_exception = unrun_line ~ /^ *\$+:/
  next
}
/^branch / {
  if (!only_by_exception && !/\(throw\)|never executed/) {
    sub(/^branch +[0-9]+ /, "")
    branches[count++] = $0
  }
  next
}
/^call |^unconditional / { next }
{
  end_block()
  if (/^ *[0-9#=*-]+: *[0-9]+:/) number = 0
  print
}
END {
  if (failed) exit 1
  end_block()
}
