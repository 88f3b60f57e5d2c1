#!/usr/bin/env bash
# Tries the README on a machine that has nothing: makes a bare Debian 12 with debootstrap, puts a clean
# clone of the last commit into it and runs ./run.sh, once more ./run.sh, and ./test.sh there. Tells
# how long each took, and ends with the first that failed.
#
#   scripts/fresh-machine.sh [FOLDER]   FOLDER: where to put the machine, with 10 GB to spare; it is
#                                       removed afterwards. /tmp without the argument.
#
# Needs root and the package debootstrap. Packages come from where this computer has its own.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh

if ((EUID != 0)); then
  echo "Only root can make a machine: run this with sudo" >&2
  exit 1
fi
if ! command -v debootstrap >/dev/null; then
  echo "debootstrap is missing: apt-get install debootstrap" >&2
  exit 1
fi

machine=$(mktemp -d "${1:-/tmp}/bookworm-XXXXXX")
readonly machine
chmod 755 "$machine"
trap 'rm -rf --one-file-system "$machine"' EXIT

# mirror: where apt on this computer gets the packages of Debian from.
mirror() {
  # shellcheck disable=SC2016 # SITE is apt's
  apt-get indextargets --format '$(SITE)' 'Created-By: Packages' | sort | uniq -c | sort -rn |
    sed -n '1s/^ *[0-9]* *//p'
}

# inside COMMAND...: runs a command in the clone on the machine, which has devices and processes of
# its own, and tells how long it took.
inside() {
  step "On the bare machine: $*"
  local begun=$SECONDS
  unshare --mount --pid --ipc --uts --fork bash -eus "$machine" "$*" <<'MACHINE'
mount --bind "$1" "$1"
mount -t proc proc "$1/proc"
mount -t sysfs sys "$1/sys"
mount -t devtmpfs dev "$1/dev"
mkdir -p "$1/dev/pts" "$1/dev/shm"
mount -t devpts -o newinstance,ptmxmode=0666,gid=5,mode=620 devpts "$1/dev/pts"
mount --bind "$1/dev/pts/ptmx" "$1/dev/ptmx"
mount -t tmpfs shm "$1/dev/shm"
exec env -i HOME=/root TERM="${TERM:-dumb}" PATH=/usr/sbin:/usr/bin:/sbin:/bin \
  chroot "$1" bash -c "cd /root/clone && $2" </dev/null
MACHINE
  echo "That took $((SECONDS - begun)) s: $*"
}

step "Making a bare Debian 12 in $machine"
debootstrap --variant=minbase --include=ca-certificates bookworm "$machine" "$(mirror)"
cp /etc/resolv.conf "$machine/etc/resolv.conf"
cp -r /etc/apt/apt.conf.d "$machine/etc/apt/"
git clone --quiet --no-hardlinks . "$machine/root/clone"

inside ./run.sh
inside ./run.sh
inside ./test.sh
step "Done: both commands of the README work on a bare Debian 12"
