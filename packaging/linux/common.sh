# shellcheck shell=bash
# Sourced by build, check and quick_check: the folders and what they share.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
here=$root/packaging/linux
# shellcheck source=../packages.sh
. "$root/packaging/packages.sh"

version=$(sed -n 's/^project(Quillmark VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")

step() { printf '== %s (%d s so far)\n' "$1" "$SECONDS"; }

fail() {
  echo "$1" >&2
  exit 1
}

# quiet LOG COMMAND ...: what the command says goes to the log, and is shown if it fails.
quiet() {
  local log=$1
  shift
  "$@" >"$log" 2>&1 && return
  tail -n 60 "$log" >&2
  fail "Failed: $* (all of it in $log)"
}
