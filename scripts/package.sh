#!/usr/bin/env bash
# Builds what is delivered, makes the Debian packages of it and checks them. They lie in build/packages
# afterwards. What the about box and the packages say of the maker is given as for the build:
#
#   scripts/package.sh [-DTESSARA_MAKER_COMPANY="..." ...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh
source scripts/packages.sh

readonly packages=build/packages

installPackages "${PACKAGE_PACKAGES[@]}"
configurePreset release
if (($# > 0)); then
  cmake "$@" build/release
fi
step "Building build/release"
cmake --build build/release

step "Making the packages"
rm -rf "$packages"
cpack --config build/release/CPackConfig.cmake -B "$packages"
rm -rf "$packages/_CPack_Packages"

step "Checking the packages: lintian"
lintian --allow-root --fail-on error,warning "$packages"/*.deb
step "Packages"
ls -l "$packages"/*.deb
