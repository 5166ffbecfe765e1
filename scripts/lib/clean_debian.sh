# A clean Debian in a temporary directory, which is removed at the end of the script that sources this.
#   make_clean_debian [MIRROR]   with debootstrap; the mirror is that of this machine if none is given
#   inside COMMAND...            runs it there; "$clean" is the directory
# It wants root and the network. Nothing of this machine is mounted in it, not even /proc.

find_mirror() {
  apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Codename: bookworm' | head -n 1
}

make_clean_debian() {
  install_missing debootstrap:debootstrap
  clean=$(mktemp -d)
  trap 'rm -rf --one-file-system "$clean"' EXIT
  trap 'exit 1' HUP INT TERM # which runs the one above
  chmod 755 "$clean" # for users other than root
  debootstrap --variant=minbase --include=ca-certificates bookworm "$clean" "${1:-$(find_mirror)}" >&2
  # The same certificates and ways through the network as here.
  cp -r /etc/apt/apt.conf.d "$clean/etc/apt/"
}

inside() {
  chroot "$clean" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM=dumb LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive "$@"
}
