# Makes sure that programs and packages are there. To be sourced by the scripts beside it.
#   install_missing c++:g++ /usr/include/gtest/gtest.h:libgtest-dev
# Each argument names what shows that a package is installed, a command or a file, and the package.
# Nothing is asked from the network when all is there.

is_there() {
  case $1 in
    /*) [ -e "$1" ] ;;
    *) command -v "$1" >/dev/null ;;
  esac
}

install_missing() {
  missing=
  for need in "$@"; do
    is_there "${need%%:*}" || missing="$missing ${need##*:}"
  done
  [ -n "$missing" ] || return 0
  can_install || return 1
  # What is installed is told on standard error: standard output is the program's.
  echo "Installing$missing ..." >&2
  # The list is unquoted, to be split into words.
  run_apt update && run_apt install --yes --no-install-recommends $missing || {
    echo "Cannot install$missing: see what apt says above. Is there a network?" >&2
    return 1
  }
}

can_install() {
  if ! command -v apt-get >/dev/null; then
    echo "Missing:$missing. There is no apt-get to install them with." >&2
    return 1
  fi
  [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null || {
    echo "Missing:$missing. To install them, run this as root or install sudo." >&2
    return 1
  }
}

run_apt() {
  as_root=
  [ "$(id -u)" -eq 0 ] || as_root=sudo
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get "$@" </dev/null >&2
}
