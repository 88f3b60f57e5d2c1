#!/usr/bin/env bash
# Scan passes on a module that fails at random, without the four seconds between them, under the
# sanitizers: no pass, no memory, no descriptor and no port may get lost.
#
#   scripts/soak.sh [PASSES [SEED]]     20000 passes with seed 1 without arguments
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh
source scripts/packages.sh

installPackages "${TEST_PACKAGES[@]}"
configurePreset sanitize
step "Building the soak"
cmake --build build/sanitize --target test_endurance
step "Soaking (20 minutes for 20000 passes)"
export TESSARA_SOAK_PASSES=${1:-20000} TESSARA_SOAK_SEED=${2:-1}
build/sanitize/tests/endurance/test_endurance --gtest_filter='*Soak*'
