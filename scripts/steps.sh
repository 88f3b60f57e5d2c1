# shellcheck shell=bash
# What run.sh and test.sh share: how a step is shown, and how a preset is configured.

# step TEXT: says what comes next.
step() { printf '\n==> %s\n' "$1"; }

# configurePreset NAME: configures build/NAME unless that has happened since the presets changed.
# What changes in a CMakeLists.txt, ninja notices by itself.
configurePreset() {
  if [[ build/$1/build.ninja -nt CMakePresets.json ]]; then
    step "Configuration: build/$1 is up to date"
    return
  fi
  step "Configuring build/$1"
  cmake --preset "$1"
}
