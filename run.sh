#!/bin/sh
# Installs what is missing, builds the release, and starts Tessara on a sample data file. Without a display it runs the batch
# program on the sample instead. Arguments are handed on: ./run.sh my.dcs
set -eu
cd "$(dirname "$0")"
. scripts/packages.sh

sample=installed/Data/survey.dcs
need_packages build window
[ -f build/release/build.ninja ] || cmake --preset release >/dev/null
cmake --build --preset release

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || [ "$(uname)" = Darwin ]; then
  exec build/release/bin/tessara "${@:-$sample}"
fi
echo "There is no display here, so this is the batch program on $sample:"
echo
if [ $# -gt 0 ]; then exec build/release/bin/tessara-cli "$@"; fi
build/release/bin/tessara-cli "$sample" frequencies SEX --dispersion
build/release/bin/tessara-cli "$sample" descriptives AGE --chart
