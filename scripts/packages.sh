# shellcheck shell=bash
# The Debian 12 packages that this project needs, and the function that installs them. Sourced by the
# other scripts, after steps.sh.

# To build the programs and run them.
# shellcheck disable=SC2034 # used by the scripts that source this file
RUN_PACKAGES=(
  g++ cmake ninja-build pkg-config
  qt6-base-dev qt6-svg-dev qt6-wayland qt6-translations-l10n
  libmodbus-dev libasio-dev libglib2.0-dev libgdk-pixbuf-2.0-dev libexpat1-dev libhidapi-dev libudev-dev
  nlohmann-json3-dev libcli11-dev
  qt6-l10n-tools python3
  fonts-dejavu-core fonts-wqy-microhei fonts-vlgothic
  fp-utils
)

# To build and check the Debian packages.
# shellcheck disable=SC2034
PACKAGE_PACKAGES=(
  "${RUN_PACKAGES[@]}"
  dpkg-dev file lintian desktop-file-utils appstream
)

# To run every check.
# shellcheck disable=SC2034
TEST_PACKAGES=(
  "${PACKAGE_PACKAGES[@]}"
  ccache python3 shellcheck
  libgtest-dev libgmock-dev libumockdev-dev umockdev
  clang libclang-rt-14-dev clang-format clang-tidy
  libchm-bin fakeroot man-db zsh
  poppler-utils locales socat mbpoll python3-pymodbus python3-serial-asyncio
  xvfb openbox python3-xlib
)

# missingPackages NAME...: prints those of the packages that are not installed, one per line.
missingPackages() {
  comm -13 \
    <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
      sed -n 's/^installed //p' | sort -u) \
    <(printf '%s\n' "$@" | sort -u)
}

# installPackages NAME...: installs those of the packages that are missing, as root or through sudo.
installPackages() {
  if ! command -v dpkg-query >/dev/null; then
    echo "dpkg-query was not found, so no packages can be installed. These are needed: $*" >&2
    return 1
  fi
  local missing
  mapfile -t missing < <(missingPackages "$@")
  if ((${#missing[@]} == 0)); then
    step "Packages: all $# are installed"
    return
  fi

  local asRoot=(env DEBIAN_FRONTEND=noninteractive)
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "Missing packages: ${missing[*]}" >&2
      echo "Installing them needs root or sudo. Install them, then run this script again." >&2
      return 1
    fi
    asRoot=(sudo "${asRoot[@]}")
  fi
  step "Installing ${missing[*]}"
  "${asRoot[@]}" apt-get update -q
  "${asRoot[@]}" apt-get install -q -y --no-install-recommends "${missing[@]}"
}
