# shellcheck shell=bash
# Sourced by the other scripts: how a step is announced, and how a preset is configured.

# step TEXT: announces the next step.
step() { printf '\n==> %s\n' "$1"; }

# configurePreset NAME: configures build/NAME unless this was done after the last change of the presets.
# Ninja itself detects changes in a CMakeLists.txt.
configurePreset() {
  if [[ build/$1/build.ninja -nt CMakePresets.json ]]; then
    step "Configuration: build/$1 is up to date"
    return
  fi
  step "Configuring build/$1"
  cmake --preset "$1"
}
