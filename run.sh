#!/usr/bin/env bash
# Builds the programs and shows what they do: the panel, filled from a module. Without a display it
# prints the panel as text and draws it into a picture.
#
#   ./run.sh                      the simulated sample module
#   ./run.sh --simulate FILE      another simulated module
#   ./run.sh --port COM9          a module at a port
#
# Other arguments are passed on to the program that shows the panel.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/steps.sh
source scripts/packages.sh

readonly programs=build/release/bin
readonly picture=build/panel.png

installPackages "${RUN_PACKAGES[@]}"
configurePreset release
step "Building the programs in build/release"
cmake --build build/release --target modulinfo modulinfo-panel

module=(--simulate data/modules/tessara-tm-151.json)
for argument in "$@"; do
  case $argument in
    --simulate | --simulate=* | --port | --port=*) module=() ;;
  esac
done

# What the first picture does not need is built after it.
buildRest() {
  step "Building the rest: help, library, reference"
  cmake --build build/release
}

if [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
  step "Opening the panel"
  "$programs/modulinfo-panel" --read "${module[@]}" "$@" &
  buildRest
  wait %1
  exit
fi
step "Reading the module (no display: the panel as text)"
"$programs/modulinfo" read "${module[@]}" "$@"
step "Drawing the panel"
"$programs/modulinfo-panel" "${module[@]}" "$@" --screenshot "$picture"
echo "The picture is in $picture"
buildRest
