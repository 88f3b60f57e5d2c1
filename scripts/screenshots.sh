#!/usr/bin/env bash
# Draws the panel in its states and the dialogs in every language, light and dark, at 100 %, 150 % and
# 200 %, for looking at. The pictures go into build/screenshots and are named <state>-<theme>-<percent>.png
# and <dialog>-<language number>-<theme>-<percent>.png. Needs no display.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh

readonly pictures=build/screenshots

configurePreset dev
step "Building build/dev"
cmake --build build/dev --target panel_shots

step "Drawing the panel and the dialogs"
rm -rf "$pictures"
for scale in 1 1.5 2; do
  QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$scale build/dev/tests/qt/panel_shots "$pictures"
done
echo "$(find "$pictures" -name '*.png' | wc -l) pictures lie in $pictures"
