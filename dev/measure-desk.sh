#!/usr/bin/env bash
# The sample desk beside the same window of plain widgets: measure-desk.sh [BUILD]. Prints the median time of nine starts
# until the window has been shown, and the memory once all rows are listed. Default build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/release}
cmake --build "$build" --target utility partsdesk PlainDesk >&2
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
work=$(mktemp -d)
export UTILITY_SETTINGS_DIR=$work
trap 'rm -rf "$work"' EXIT
"$build/bin/utility" db make-passives --into "$work/parts.db" >&2
ours=("$build/bin/partsdesk" "$work/parts.db")
plain=("$build/bin/PlainDesk" "$work/parts.db")

median_start() { # WORDS of a program that ends once its window was shown
    local from to
    for _ in 1 2 3 4 5 6 7 8 9; do
        from=$(date +%s%N)
        "$@" --once
        to=$(date +%s%N)
        echo $(((to - from) / 1000000))
    done | sort -n | sed -n 5p
}

memory() { # WORDS of a program; its own memory in KB, without what it shares with others
    local process last=-1 now=0
    "$@" &
    process=$!
    while [ "$now" != "$last" ]; do # until it does not grow any more
        last=$now
        sleep 3
        now=$(awk '/^Private/ {sum += $2} END {print sum}' "/proc/$process/smaps_rollup")
    done
    kill "$process"
    wait "$process" 2>/dev/null || true
    echo "$now"
}

report() { # NAME OURS PLAIN UNIT
    awk -v name="$1" -v ours="$2" -v plain="$3" -v unit="$4" \
        'BEGIN {printf "%-8s partsdesk %7d %s   plain %7d %s   ratio %.2f\n", name, ours, unit, plain, unit, ours / plain}'
}
report start "$(median_start "${ours[@]}")" "$(median_start "${plain[@]}")" ms
report memory "$(memory "${ours[@]}")" "$(memory "${plain[@]}")" KB
