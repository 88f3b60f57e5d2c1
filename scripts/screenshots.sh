#!/usr/bin/env bash
# Draws the panel in its states, and the dialogs and the windows, menus and report of modulinfo-panel in
# every language, in light and dark, at 100 %, 150 % and 200 %, for review. The pictures are written to
# build/screenshots and named <state>-<theme>-<percent>.png and
# <dialog or window>-<language number>-<theme>-<percent>.png. Needs no display.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/steps.sh

readonly pictures=build/screenshots

configurePreset dev
step "Building build/dev"
cmake --build build/dev --target panel_shots host_shots

step "Drawing the panel, the dialogs and the windows"
rm -rf "$pictures"
for scale in 1 1.5 2; do
  QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$scale build/dev/tests/qt/panel_shots "$pictures"
  for language in {1..11}; do
    QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$scale build/dev/bin/host_shots "$pictures" \
      data/modules/tessara-tm-151-error.json "$language"
  done
done
for page in "$pictures"/*.pdf; do
  pdftoppm -singlefile -r 100 -png "$page" "${page%.pdf}"
done
echo "$(find "$pictures" -name '*.png' | wc -l) pictures are in $pictures"
