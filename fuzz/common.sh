# Sourced by fuzz/replay and fuzz/hours, from the project's root.

# Each target with the longest input that it gets.
declare -A max_length=(
  [script_tr4]=8192 [script_tr5]=8192 [language]=8192 [interface_table]=16384
  [interface_names]=16384 [settings]=300
)

# The targets work in a temporary folder, which is in memory where the system offers that.
workspace=$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")")
export TMPDIR=$workspace
trap 'rm -rf "$workspace"' EXIT

export ASAN_OPTIONS=quarantine_size_mb=16:malloc_context_size=5:detect_leaks=0
export UBSAN_OPTIONS=print_stacktrace=1

# make_seeds BUILD_DIR TARGET: puts the target's seeds into $workspace/seeds/TARGET.
make_seeds() {
  local folder=$workspace/seeds/$2
  mkdir -p "$folder"
  case $2 in
    script_tr4) cp samples/tr4/SCRIPT.DAT "$folder" ;;
    script_tr5) cp samples/tr5/SCRIPT.DAT "$folder" ;;
    language)
      local file
      for file in samples/*/*.DAT; do
        [ "${file##*/}" = SCRIPT.DAT ] || cp "$file" "$folder/${file//\//_}"
      done
      ;;
    interface_table) cp "$1"/quillmark/*.BIN "$folder" ;;
    interface_names) cp "$1"/quillmark/interface.h "$folder" ;;
    settings)
      printf 'QUILLMARK\xcd\0\0\xcd\0\xcd\xff\xff\0\0\0\0\xcd\xcd\xcd\xcd%-256s\2\0\0' ENGLISH.BIN \
        >"$folder/settings.dat"
      ;;
  esac
}

# fuzz BUILD_DIR TARGET CORPUS OPTION...: runs the target from its regressions and seeds, with what
# it finds on the way in CORPUS. An input that fails is left in BUILD_DIR/findings.
fuzz() {
  local build=$1 target=$2 corpus=$3
  shift 3
  local regressions=fuzz/regressions/$target
  [ -d "$regressions" ] || regressions=
  make_seeds "$build" "$target"
  mkdir -p "$corpus" "$build/findings"
  "$build/fuzz/$target" -max_len="${max_length[$target]}" -malloc_limit_mb=128 -rss_limit_mb=768 \
    -timeout=20 -artifact_prefix="$build/findings/$target-" "$@" \
    "$corpus" $regressions "$workspace/seeds/$target"
}
