#!/bin/sh
# Builds the probe as the release is built and looks at the guards of program and module.
#
#   check.sh SOURCE_FOLDER BUILD_FOLDER
set -u
cmake -S "$1" -B "$2" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O3 -DNDEBUG" >/dev/null || exit 1
cmake --build "$2" >/dev/null || exit 1

missing=0
# need FILE WHAT PATTERN OPTION: the answer of readelf holds the pattern.
need() {
  readelf "$4" -W "$1" | grep -Eq "$3" || { echo "${1##*/}: no $2"; missing=1; }
}

for file in "$2/bin/probe" "$2/bin/libmodule.so"; do
  need "$file" "stack protector" '__stack_chk_fail' -s
  need "$file" "checked strcpy" '__strcpy_chk' -s
  need "$file" "relocations made read-only" 'GNU_RELRO' -l
  need "$file" "binding at the start" 'BIND_NOW|FLAGS.* NOW' -d
  need "$file" "free place in memory" 'Type:.*DYN' -h
done
need "$2/bin/probe" "position-independent program" 'FLAGS_1.*PIE' -d
exit $missing
