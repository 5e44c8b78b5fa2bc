# shellcheck shell=bash
# Shared by the commands and scripts of this tree: sourced, not run.
# Sets `root`, the tree's folder, and leaves the caller's folder as it is, so that paths on a command line stay valid.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# fail MESSAGE...: ends the command with a message for people.
fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

# wrong_use MESSAGE...: as fail, for a command line that makes no sense.
wrong_use() {
  printf '%s: %s\nTry %s --help.\n' "$(basename "$0")" "$*" "$0" >&2
  exit 2
}

# build PRESET: configures and builds a preset of CMakePresets.json. Progress is for terminals, not for logs.
build() {
  local quiet=(--quiet)
  if [[ -t 1 ]]; then
    quiet=()
  fi
  echo "Building ($1)"
  (cd "$root" && cmake --preset "$1" >/dev/null && cmake --build --preset "$1" -- "${quiet[@]}") ||
    fail "the build (preset $1) failed; the messages above say why"
}
