#!/usr/bin/env bash
# The main job, end to end: main-job.sh TOOL FOLDER. FOLDER keeps the database for the next run.
set -euo pipefail
tool=$(realpath "$1")
mkdir -p "$2"
cd "$2"
symbols=/usr/share/kicad/symbols
question=(db query Passives --where 'Kind|Equal to|Resistor' --where 'Value|Between|4k7|10k'
    --parse Value=resistor --sort Value --limit 20)

# Says what is done, as it may be typed, and does it.
run() {
    local line='$ utility' word
    for word in "$@"; do
        case $word in
            *[!A-Za-z0-9_./=,-]*) line+=" '$word'" ;;
            *) line+=" $word" ;;
        esac
    done
    printf '\n%s\n' "$line"
    "$tool" "$@"
}

echo "== Symbol libraries into $PWD/parts.db"
run db import-symbols "$symbols"
echo
echo "== A stock of passive parts"
run db make-passives
echo
echo "== Operational amplifiers with the most pins"
run db query Symbols --match 'Description|*operational amplifier*' --sort Pins --parse Pins=number --descending \
    --columns Library,Name,Pins,Units,Description --limit 10
echo
echo "== Which resistors lie between 4k7 and 10k?"
run "${question[@]}"
