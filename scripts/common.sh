# shellcheck shell=bash
# Functions that the commands and scripts of this tree share; sourced, not run.
# Sets `root`, the tree's folder. Does not change the working folder, so that paths on a command line stay valid.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# fail MESSAGE...: ends the command with an error message.
fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

# wrong_use MESSAGE...: as fail, for a command line that is wrong.
wrong_use() {
  printf '%s: %s\nTry %s --help.\n' "$(basename "$0")" "$*" "$0" >&2
  exit 2
}

# build PRESET [TARGET]...: configures and builds a preset of CMakePresets.json, or parts of it. Shows progress on terminals only, not in logs.
build() {
  local quiet=(--quiet)
  if [[ -t 1 ]]; then
    quiet=()
  fi
  echo "Building ($1)"
  (cd "$root" && cmake --preset "$1" >/dev/null && cmake --build --preset "$1" -- "${quiet[@]}" "${@:2}") ||
    fail "the build (preset $1) failed; the messages above say why"
}
