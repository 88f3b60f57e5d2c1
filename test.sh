#!/usr/bin/env bash
# Builds everything under the sanitizers and runs every check: the tests, the format of the sources,
# the shell scripts and, briefly, the fuzz targets. The last line counts them; a check that was skipped
# counts as failed. clang-tidy has a script of its own, scripts/lint.sh.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/steps.sh
source scripts/packages.sh

readonly build=build/sanitize

installPackages "${TEST_PACKAGES[@]}"
configurePreset sanitize
step "Building $build"
cmake --build "$build"

# check NAME COMMAND...: runs one check besides the tests and records its outcome.
checks=()
check() {
  local name=$1 outcome=passed
  shift
  step "Checking: $name"
  "$@" || outcome=failed
  checks+=("$name=$outcome")
}

mapfile -t sources < <(find src apps bench docs tests tools -name '*.cpp' -o -name '*.h')
check format clang-format --dry-run --Werror "${sources[@]}" fuzz/*/*.cpp
check shellcheck shellcheck --external-sources ./*.sh scripts/*.sh .ci/run
check fuzz scripts/fuzz.sh 2

step "Testing $build"
rm -f "$build/ctest.xml"
# Most tests spend most of their time waiting for modules and ports.
ctest --preset sanitize --parallel "$((2 * $(nproc)))" --no-tests=error \
  --output-junit "$PWD/$build/ctest.xml" || true

step "Result"
/usr/bin/python3 scripts/report.py "$build/ctest.xml" "${checks[@]}"
