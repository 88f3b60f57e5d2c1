#!/usr/bin/env bash
# Runs clang-tidy on the project's own sources, after building the files that they include. Sources
# that have not changed since they were last found clean are skipped. The first run takes longer than
# all the tests, so this is a step of its own before a commit.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh
source scripts/packages.sh

readonly build=build/dev

installPackages "${TEST_PACKAGES[@]}"
configurePreset dev
step "Building $build"
cmake --build "$build"

mapfile -t sources < <(find src apps bench tests tools -name '*.cpp' -o -name '*.h')
step "Checking: clang-tidy"
/usr/bin/python3 scripts/tidy.py "$build" "${sources[@]}"
