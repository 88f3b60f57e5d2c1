#!/usr/bin/env bash
# fuzz.sh [SECONDS]: builds the fuzz targets and runs each of them for that time, 600 s by default.
# The corpus is kept in build/fuzz/corpus for the next run; inputs that crash a target are saved in
# build/fuzz/finds.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh
source scripts/packages.sh

readonly seconds=${1:-600} build=build/fuzz

if [[ ! $seconds =~ ^[1-9][0-9]*$ ]]; then
  echo "fuzz.sh [SECONDS]: \"$seconds\" is not a number of seconds" >&2
  exit 2
fi

installPackages "${TEST_PACKAGES[@]}"
step "Building $build"
cmake -G Ninja -S fuzz -B "$build" -DCMAKE_CXX_COMPILER=clang++ \
  -DTESSARA_FUZZ_SECONDS="$seconds"
cmake --build "$build"

step "Fuzzing, $seconds s each"
ctest --test-dir "$build" --parallel "$(nproc)" --no-tests=error --output-on-failure
