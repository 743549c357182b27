#!/bin/sh
# clang-tidy over all sources, by the configuration in .clang-tidy. Needs a configured debug build.
set -eu
cd "$(dirname "$0")/.."
git ls-files 'src/*.cpp' | grep -v /tests/ |
  xargs -P 2 -n 4 clang-tidy -p build/debug --quiet --warnings-as-errors='*'
