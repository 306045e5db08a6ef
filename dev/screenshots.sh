#!/usr/bin/env bash
# Pictures of the sample desk's windows: screenshots.sh [BUILD]. Each window at two sizes, two scalings and in both
# palettes, in BUILD/screenshots (default build/dev).
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/dev}
cmake --build "$build" --target utility DeskScreens
out=$build/screenshots
database=$PWD/$out/parts.db
mkdir -p "$out"

tool=$PWD/$build/bin/utility
if [ ! -f "$database" ]; then
    (cd "$out" && "$tool" db make-passives --into "$database")
fi
for scale in 1 2; do
    for palette in light dark; do
        folder=$out/$palette-x$scale
        mkdir -p "$folder"
        QT_SCALE_FACTOR=$scale "$build/bin/DeskScreens" "$database" "$folder" "$palette"
    done
done
