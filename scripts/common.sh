# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# What the scripts beside this file share. Sourcing it makes errors fatal and enters the top folder of the project.
set -euo pipefail
caller_folder=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")/.."

fail() {
  printf '%s: %s\n' "$(basename "$0")" "$1" >&2
  exit 1
}

# from_caller FILE: FILE as an absolute path, taken from the folder in which the script was called.
from_caller() {
  case $1 in
    /*) printf '%s\n' "$1" ;;
    *) printf '%s/%s\n' "$caller_folder" "$1" ;;
  esac
}

# build_preset PRESET [TARGET…]: configures and builds. Away from a terminal only what goes wrong is shown.
build_preset() {
  local targets=()
  [ $# -eq 1 ] || targets=(--target "${@:2}")
  local quiet=()
  [ -t 1 ] || quiet=(-- --quiet)
  local log
  log=$(mktemp)
  if ! cmake --preset "$1" >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    fail "configuring the preset $1 failed"
  fi
  rm -f "$log"
  cmake --build --preset "$1" "${targets[@]}" "${quiet[@]}" || fail "building the preset $1 failed"
}

# tracked_files PATTERN…: the project's own files that match, each followed by a NUL.
tracked_files() {
  git ls-files -z --cached --others --exclude-standard -- "$@"
}
