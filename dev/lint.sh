#!/usr/bin/env bash
# Everything that is checked without building: layers, texts, format, words. lint.sh [--fix]
set -uo pipefail
cd "$(dirname "$0")/.."
failed=0
passed=0

check() { # NAME COMMAND...
    local name=$1 output
    shift
    if output=$("$@" 2>&1); then
        passed=$((passed + 1))
        echo "ok      $name"
    else
        failed=$((failed + 1))
        echo "FAILED  $name"
        printf '%s\n' "$output" | head -40 | sed 's/^/        /'
    fi
}

sources() { git ls-files 'src/**.h' 'src/**.cpp' 'tests/**.h' 'tests/**.cpp' 'tools/**.h' 'tools/**.cpp' \
    'samples/**.cpp' 'fuzz/*.cpp' 'benchmarks/*.cpp' 'benchmarks/*.h'; }

format() { sources | xargs -r -P2 -n20 clang-format-14 --dry-run -Werror; }

# Words that nothing committed may hold: where we work, what we were told it in, and kin.
words() {
    ! git grep -nIiE '\bspe[c]\.md\b|\bspecificatio[n]\b|\bPart[s]? [0-9]+\.[0-9]+|\bthe spe[c]\b|/wor[k]/|/roo[t]/|/far[m]|farm-(benc[h]|studi[o])' -- . ':!*.lock'
}

# American forms outside the names that the vocabulary brings along.
spelling() {
    ! sources | xargs -r grep -nE '//.*\b([Cc]olor|[Ii]nitialize[ds]?|[Nn]ormalize[ds]?|[Bb]ehavior|[Cc]enter(ed)?|[Cc]anceled)\b' \
        | grep -vE 'CColorDialog|NormalizeRect'
}

# A header of 400 lines or a source of 1,000 hides a second class.
sizes() {
    local file lines limit bad=0
    while read -r file; do
        lines=$(wc -l <"$file")
        case $file in *Table.cpp | *Tables.cpp | *.def) continue ;; *.h) limit=400 ;; *) limit=1000 ;; esac
        [ "$lines" -le "$limit" ] || { echo "$file: $lines lines"; bad=1; }
    done < <(sources)
    return $bad
}

# The formatter leaves comments alone, since it would tear their tables.
widths() { ! sources | xargs -r grep -nE '^.{101,}$' | grep -E ':[0-9]+: *//'; }

# A stray result of a run would stand in every checkout.
names() { ! git ls-files | grep -vE '^[-A-Za-z0-9_./]+$'; }

guards() { ! sources | grep '\.h$' | xargs -r grep -L '^#pragma once' | grep .; }

if [ "${1:-}" = --fix ]; then
    sources | xargs -r -P2 -n20 clang-format-14 -i
fi

check layers dev/check-layers.py
check texts dev/check-strings.py
check format format
check words words
check spelling spelling
check sizes sizes
check widths widths
check names names
check "pragma once" guards
echo "$passed passed, $failed failed"
[ $failed = 0 ]
