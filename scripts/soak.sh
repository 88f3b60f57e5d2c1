#!/usr/bin/env bash
# Runs scan passes on a module that fails at random, without the four seconds between them, under the
# sanitizers: no pass may be lost, and no memory, descriptor or port may leak.
#
#   scripts/soak.sh [PASSES [SEED]]     by default 20000 passes with seed 1
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh
source scripts/packages.sh

installPackages "${TEST_PACKAGES[@]}"
configurePreset sanitize
step "Building the soak test"
cmake --build build/sanitize --target test_endurance
step "Running the soak test (20 minutes for 20000 passes)"
export TESSARA_SOAK_PASSES=${1:-20000} TESSARA_SOAK_SEED=${2:-1}
build/sanitize/tests/endurance/test_endurance --gtest_filter='*Soak*'
