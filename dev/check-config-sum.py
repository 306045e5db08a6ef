#!/usr/bin/env python3
"""Recomputes the sum of a configuration file: check-config-sum.py FILE; exit code 1 if it differs from the file's."""

import sys


def word(text, at):
    """Four characters count by the first two, whole; a rest of up to three by its low bytes."""
    if len(text) - at >= 4:
        return text[at] | text[at + 1] << 16
    return sum((unit & 0xFF) << (8 * place) for place, unit in enumerate(text[at : at + 3]))


def units(text):
    data = text.encode("utf-16-le", "surrogatepass")
    return [data[at] | data[at + 1] << 8 for at in range(0, len(data), 2)]


def main():
    data = open(sys.argv[1], "rb").read()
    text = data[2:].decode("utf-16-le", "surrogatepass") if data[:2] == b"\xff\xfe" else data.decode("ascii")
    found, total = None, 0
    for line in text.split("\r\n"):
        key, mark, value = line.partition("=")
        if not mark or line.startswith("[") or key.startswith("ptn_Child"):
            continue
        if key == "cs":
            found = int(value)
            continue
        counted = units(value)
        while len(counted) > 1 and counted[-1] == 0x20:
            counted.pop()
        for at in range(0, len(counted), 4):
            total ^= word(counted, at)
    print(f"in the file {found}, computed {total}")
    return 0 if found == total else 1


sys.exit(main())
