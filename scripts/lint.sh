#!/usr/bin/env bash
# Runs clang-tidy over the project's own sources, after building what they include; only what has
# changed since it was last found clean is looked at. From nothing it takes longer than all the
# tests, so it is a step of its own before a commit.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh
source scripts/packages.sh

readonly build=build/sanitize

installPackages "${TEST_PACKAGES[@]}"
configurePreset sanitize
step "Building $build"
cmake --build "$build"

mapfile -t sources < <(find src apps bench tests -name '*.cpp' -o -name '*.h')
step "Checking: clang-tidy"
/usr/bin/python3 scripts/tidy.py "$build" "${sources[@]}"
