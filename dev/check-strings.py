#!/usr/bin/env python3
"""Checks the catalogue of texts against itself and against the code.

Told as file:line: fault; exit code 1 if there is any:
  - an entry that is not one line "UTILITY_TEXT(id, IDS_NAME, u"text")", a number or name given twice, numbers out of order
  - a template with a hole in its inserts (%2 without %1), an open "%1!lu", or a % that means nothing
  - an IDS_ name in the code that the table lacks
  - a text of the library's own numbers that no code uses (agreed numbers stay, whether used or not)
  - two messages with one name
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TEXTS = ROOT / "src/resources/Strings.def"
MESSAGES = ROOT / "src/resources/MessageNames.def"
CODE_FOLDERS = ["src", "tools", "tests", "samples", "benchmarks", "fuzz"]

FIRST_OWN_ID = 10900
FIRST_HOST_ID = 11000

ENTRY = re.compile(r'UTILITY_TEXT\((\d+), (IDS_[A-Z0-9_]+), u"((?:[^"\\]|\\["\\nt])*)"\)')
MESSAGE = re.compile(r'UTILITY_MESSAGE\((0x[0-9A-F]{4}), (MSG_[A-Z0-9_]+), u"([^"\\]+)"\)')
# What a positional template may hold behind a percent sign.
INSERT = re.compile(r"%(?:([1-9]\d?)(?:!([^!]*)!|(?!!))|[%n0])")
PRINTF_FORM = re.compile(r"[-0]*\d*(?:\.\d+)?(?:[hl]|I64)?[cdsuxXfg]")
NAME_IN_CODE = re.compile(r"\bIDS_[A-Z0-9_]+\b")


def insert_faults(text):
    """What is wrong with the inserts of one template."""
    numbers = set()
    position = text.find("%")
    while position >= 0:
        found = INSERT.match(text, position)
        if not found:
            yield f"'{text[position:position + 6]}' is no insert"
            return
        if found.group(1):
            numbers.add(int(found.group(1)))
        if found.group(2) is not None and not PRINTF_FORM.fullmatch(found.group(2)):
            yield f"'{found.group(2)}' is no form of a value"
        position = text.find("%", found.end())
    missing = set(range(1, max(numbers, default=0))) - numbers
    if missing:
        yield f"insert %{min(missing)} is missing"


def read_table(path, pattern):
    """The entries of a table as (line number, match); other lines must be empty or comments."""
    entries, faults = [], []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line or line.startswith("//"):
            continue
        found = pattern.fullmatch(line)
        if found:
            entries.append((number, found))
        else:
            faults.append((path, number, f"no entry: {line[:60]}"))
    return entries, faults


def check_texts(used):
    entries, faults = read_table(TEXTS, ENTRY)
    names, last = {}, 0
    for line, entry in entries:
        id_, name, text = int(entry.group(1)), entry.group(2), entry.group(3)
        if id_ <= last:
            faults.append((TEXTS, line, f"{id_} does not come behind {last}"))
        if name in names:
            faults.append((TEXTS, line, f"{name} is given twice"))
        if FIRST_OWN_ID <= id_ < FIRST_HOST_ID and name not in used:
            faults.append((TEXTS, line, f"{name} is used nowhere"))
        faults += [(TEXTS, line, fault) for fault in insert_faults(text)]
        names[name] = last = id_
    for name in sorted(set(used) - set(names)):
        faults.append((*used[name], f"{name} is not in the table"))
    return faults


def check_messages():
    entries, faults = read_table(MESSAGES, MESSAGE)
    seen = {}
    for line, entry in entries:
        folded = entry.group(3).lower()
        if folded in seen:
            faults.append((MESSAGES, line, f"the name of line {seen[folded]} again"))
        seen[folded] = line
    return faults


def names_in_code():
    """Every IDS_ name that code uses, with the first place."""
    used = {}
    for folder in CODE_FOLDERS:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix not in (".cpp", ".h"):
                continue
            for line, text in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                for name in NAME_IN_CODE.findall(text.split("//")[0]):
                    used.setdefault(name, (path, line))
    return used


def main():
    faults = check_texts(names_in_code()) + check_messages()
    for path, line, fault in faults:
        print(f"{path.relative_to(ROOT)}:{line}: {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
