# Sourced by ./run, ./test, ./check and the scripts of packaging/windows: makes sure of the packages that they
# need.

# What a build of the program takes; the libraries of tools and tests too, since the build tree is
# configured as a whole.
build_packages=(g++ cmake ninja-build qt6-base-dev qt6-base-dev-tools ccache
  nlohmann-json3-dev libgtest-dev libgmock-dev)
# Beside them, what the tests of the real windows take to run.
test_packages=(libqt6widgets6 libqt6test6 qt6-qpa-plugins fonts-dejavu-core)
# And ./check: the other compiler with its sanitizers and lints, and the benchmarks.
check_packages=(git libbenchmark-dev clang clang-format clang-tidy libclang-rt-14-dev)

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# ensure_packages PACKAGE...: installs what is missing; on a system without Debian's package tools it
# names the packages and stops.
ensure_packages() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "This system has no Debian packages. What is needed, by Debian's names: $*" >&2
    echo "Install these, and build as CONTRIBUTING.md tells." >&2
    exit 1
  fi
  local missing=() package
  for package in "$@"; do
    if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
      missing+=("$package")
    fi
  done
  [ ${#missing[@]} -eq 0 ] && return
  echo "Installing: ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 install -y -qq \
    --no-install-recommends "${missing[@]}" >/dev/null
}
