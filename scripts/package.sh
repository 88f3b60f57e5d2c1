#!/usr/bin/env bash
# Builds the product, makes Debian packages of it in build/packages and checks them. Arguments are passed
# on to cmake, for example the manufacturer's data for the about box and the packages:
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
