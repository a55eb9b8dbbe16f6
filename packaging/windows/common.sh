# shellcheck shell=bash
# Sourced by build and check: the folders, and the two builds. All output goes to build/windows.
# environment: QUILLMARK_CACHE  the folder that keeps the static Qt; JOBS  compilers at a time

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
here=$root/packaging/windows
output=$root/build/windows
cache=$(realpath -m "${QUILLMARK_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/quillmark}")
qt=$cache/qt-windows
jobs=${JOBS:-$(nproc)}
# shellcheck source=../packages.sh
. "$root/packaging/packages.sh"

step() { printf '== %s (%d s so far)\n' "$1" "$SECONDS"; }

# quiet LOG COMMAND ...: what the command says goes to the log, and is shown if it fails.
quiet() {
  local log=$1
  shift
  "$@" >"$log" 2>&1 && return
  tail -n 60 "$log" >&2
  echo "Failed: $* (all of it in $log)" >&2
  return 1
}

# make_host_tools TARGET ...: the tools that run while building and testing are programs of this machine.
make_host_tools() {
  quiet "$output/host-configure.log" cmake -G Ninja -S "$root" -B "$output/host" \
    -DCMAKE_BUILD_TYPE=Release
  quiet "$output/host-build.log" cmake --build "$output/host" -j "$jobs" --target "$@"
}

# make_windows TESTING TARGET ...: the cross build, with or without the test programs.
make_windows() {
  quiet "$output/configure.log" cmake -G Ninja -S "$root" -B "$output/program" \
    -DCMAKE_BUILD_TYPE=Release -DQUILLMARK_WERROR=ON -DBUILD_TESTING="$1" -DQUILLMARK_MANUAL=ON \
    -DCMAKE_TOOLCHAIN_FILE="$qt/lib/cmake/Qt6/qt.toolchain.cmake" \
    -DQT_CHAINLOAD_TOOLCHAIN_FILE="$here/mingw-w64-x86_64.toolchain.cmake" \
    -DCMAKE_MODULE_PATH="$here/modules" -DCMAKE_CROSSCOMPILING_EMULATOR=/usr/bin/wine \
    -DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST \
    -DQUILLMARK_HOST_TOOLS="$output/host"
  shift
  quiet "$output/build.log" cmake --build "$output/program" -j "$jobs" --target "$@"
}

# start_wine: a Wine of our own in build/windows/wine, with readable fonts. Its services are started
# with no pipe of ours, which they would keep open, and without root's right to pass over the modes of
# files, so that a read-only file is one.
start_wine() {
  export WINEPREFIX=$output/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='
  unset DISPLAY WAYLAND_DISPLAY
  mkdir -p "$WINEPREFIX"
  stop_wine
  local limited=()
  [ "$(id -u)" -ne 0 ] || limited=(setpriv --bounding-set=-dac_override)
  "${limited[@]}" wineserver -p </dev/null >/dev/null 2>&1
  quiet "$output/wine.log" "${limited[@]}" wine wineboot -u </dev/null
  if [ ! -f "$WINEPREFIX/ready" ]; then
    quiet "$output/wine.log" wine regedit /S "$here/wine-fonts.reg" </dev/null
    quiet "$output/wine.log" wine winecfg -v win10 </dev/null
    touch "$WINEPREFIX/ready"
  fi
}

# stop_wine: ends what runs in that Wine, and in no other.
stop_wine() {
  wineserver -k </dev/null >/dev/null 2>&1 || true
  wineserver -w </dev/null >/dev/null 2>&1 || true
}
