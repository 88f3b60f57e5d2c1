#!/usr/bin/env bash
# fuzz.sh [SECONDS]: builds the fuzz targets and runs each of them for so long, 600 s unless told.
# What they learn is kept under build/fuzz/corpus and used by the next run; an input that brings
# one down lies in build/fuzz/finds.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh
source scripts/packages.sh

readonly seconds=${1:-600} build=build/fuzz

if [[ ! $seconds =~ ^[1-9][0-9]*$ ]]; then
  echo "fuzz.sh [SECONDS]: \"$seconds\" is no number of seconds" >&2
  exit 2
fi

installPackages "${TEST_PACKAGES[@]}"
step "Building $build"
cmake -G Ninja -S fuzz -B "$build" -DCMAKE_CXX_COMPILER=clang++ \
  -DTESSARA_FUZZ_SECONDS="$seconds"
cmake --build "$build"

step "Fuzzing, $seconds s each"
ctest --test-dir "$build" --parallel "$(nproc)" --no-tests=error --output-on-failure
