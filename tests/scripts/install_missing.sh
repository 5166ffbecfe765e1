#!/bin/sh
# What scripts/lib/install.sh says when packages are missing: install_missing.sh TREE
root=$1
. "$root/tests/scripts/fake.sh"
# The usual commands alone, so that nothing of this machine is found.
for command in sh id env; do fake $command "exec $(command -v $command) \"\$@\""; done

# said NEEDS...: its status, and what it prints on standard error.
said() {
  (
    PATH=$work/bin
    . "$work/tree/scripts/lib/install.sh"
    install_missing "$@" 2>&1 >/dev/null && echo "status 0" || echo "status 1"
  )
}

expect "nothing is missing" "status 0" "$(said sh:dash /bin/sh:dash)"
expect "without apt" "Missing: no-such-package. There is no apt-get to install them with.
status 1" "$(said no-such-command:no-such-package)"

# Without a network: apt's wall first, one line of ours last.
fake apt-get 'echo "E: $*" >&2; exit 100'
fake id 'echo 0'
expect "without a network" "Installing a b ...
E: update
Cannot install a b: see what apt says above. Is there a network?
status 1" "$(said no-such-a:a sh:dash /no/such/b:b)"

fake apt-get 'echo "apt-get $*"'
expect "as root" "Installing a ...
apt-get update
apt-get install --yes --no-install-recommends a
status 0" "$(said no-such-a:a)"

fake id 'echo 1000'
expect "as somebody else" "Missing: a. To install them, run this as root or install sudo.
status 1" "$(said no-such-a:a)"

fake sudo 'echo "as root: $4"; exec "$@"'
expect "with sudo" "Installing a ...
as root: update
apt-get update
as root: install
apt-get install --yes --no-install-recommends a
status 0" "$(said no-such-a:a)"
