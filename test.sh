#!/bin/sh
# Installs what is missing, builds with sanitizers, and runs every test: one line per suite, and a count at the end.
#
#   ./test.sh            all suites
#   ./test.sh --tidy     clang-tidy over the sources as well (slow)
set -u
cd "$(dirname "$0")" || exit 1
. scripts/packages.sh

passed=0
failed=0
log=build/test-logs

# suite NAME COMMAND...: runs a command, keeps its output in a file, prints one line; the output too when it fails.
suite() {
  name=$1
  shift
  start=$(date +%s)
  if "$@" >"$log/$name.log" 2>&1; then
    passed=$((passed + 1))
    printf '%-28s passed  %4d s\n' "$name" $(($(date +%s) - start))
  else
    failed=$((failed + 1))
    printf '%-28s FAILED  %4d s\n' "$name" $(($(date +%s) - start))
    tail -n 60 "$log/$name.log"
  fi
}

format_check() {
  git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
}

# A compiler cache that holds nothing yet does not help: there the headers of libraries are compiled once for all.
headers_once() {
  held=$(ccache --print-stats 2>/dev/null | sed -n 's/^files_in_cache[[:space:]]*//p')
  [ "${held:-0}" -gt 0 ] || echo -DTESSARA_PRECOMPILED=ON
}

# A short run of each fuzz target, from the stored corpus and what earlier runs have found here.
fuzz_run() {
  found=build/fuzz/corpus-$1
  mkdir -p "$found"
  [ -d /dev/shm ] && export TMPDIR=/dev/shm  # the targets that load write a file at each step
  build/fuzz/bin/"$1" -max_total_time=5 -rss_limit_mb=2048 -timeout=20 -print_final_stats=1 "$found" "fuzz/corpus/$1"
}

mkdir -p "$log"
need_packages build window test || exit 1
export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1}"
export LSAN_OPTIONS="suppressions=$PWD/tests/leaks.supp:print_suppressions=0"

suite format format_check
[ -f build/debug/build.ninja ] || cmake --preset debug $(headers_once) >"$log/configure.log" 2>&1
suite build cmake --build --preset debug
# The whole runs of tests/reports are one suite; every other test is one of its own.
for tests in $(ctest --test-dir build/debug -N | sed -n 's/^ *Test *#[0-9]*: //p' | sed 's|/.*|/|' | uniq); do
  suite "${tests%/}" ctest --test-dir build/debug --output-on-failure -R "^$tests"
done
[ -f build/fuzz/build.ninja ] || cmake --preset fuzz $(headers_once) >"$log/configure-fuzz.log" 2>&1
suite fuzz-build cmake --build --preset fuzz
for target in $(ls fuzz/fuzz_*.cpp | sed 's|.*/||; s|\.cpp$||'); do
  suite "$target" fuzz_run "$target"
done
if [ "${1:-}" = --tidy ]; then suite tidy scripts/tidy.sh; fi

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
