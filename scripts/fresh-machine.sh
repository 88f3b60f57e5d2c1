#!/usr/bin/env bash
# Tries the commands of the README on a bare machine: creates a minimal Debian 12 with debootstrap, clones
# the last commit into it and runs ./run.sh twice and ./test.sh once. Prints how long each took, and stops
# at the first that fails.
#
#   scripts/fresh-machine.sh [FOLDER]   FOLDER: where to create the machine, with 10 GB free; it is
#                                       removed afterwards. /tmp by default.
#
# Needs root and the package debootstrap. Packages come from the mirror that this computer uses.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh

if ((EUID != 0)); then
  echo "Creating a machine needs root: run this script with sudo" >&2
  exit 1
fi
if ! command -v debootstrap >/dev/null; then
  echo "debootstrap was not found. Install the package debootstrap." >&2
  exit 1
fi

machine=$(mktemp -d "${1:-/tmp}/bookworm-XXXXXX")
readonly machine
chmod 755 "$machine"
trap 'rm -rf --one-file-system "$machine"' EXIT

# mirror: prints the address from which apt on this computer downloads Debian packages.
mirror() {
  # shellcheck disable=SC2016 # SITE is apt's
  apt-get indextargets --format '$(SITE)' 'Created-By: Packages' | sort | uniq -c | sort -rn |
    sed -n '1s/^ *[0-9]* *//p'
}

# inside COMMAND...: runs a command in the clone on the machine, which has its own devices and
# processes, and prints how long it took.
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
  echo "$* took $((SECONDS - begun)) s"
}

step "Creating a bare Debian 12 in $machine"
debootstrap --variant=minbase --include=ca-certificates bookworm "$machine" "$(mirror)"
cp /etc/resolv.conf "$machine/etc/resolv.conf"
cp -r /etc/apt/apt.conf.d "$machine/etc/apt/"
git clone --quiet --no-hardlinks . "$machine/root/clone"

inside ./run.sh
inside ./run.sh
inside ./test.sh
step "Done: both commands of the README work on a bare Debian 12"
