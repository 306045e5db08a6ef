#!/usr/bin/env bash
# Runs clang-tidy over the sources, or over those that are named: tidy.sh [SOURCE...]
# Needs the preset "fuzz", built: its commands are clang's. Takes about half an hour of a core for the whole tree.
set -euo pipefail
cd "$(dirname "$0")/.."
sources=("$@")
[ ${#sources[@]} -gt 0 ] || mapfile -t sources < <(git ls-files 'src/*.cpp' 'tools/*.cpp' 'fuzz/*.cpp')
printf '%s\n' "${sources[@]}" | xargs -P2 -n4 clang-tidy -p build/fuzz --quiet 2> >(grep -v 'warnings generated' >&2)
