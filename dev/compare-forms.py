#!/usr/bin/env python3
"""Compares how the tool reads form text with a parser of its own: compare-forms.py TOOL FILE...

The parser here knows the format alone: brackets, blanks, quotes with two escapes. It shares nothing with the library, so a
tree that both find is the tree of the file. Prints the files that differ and the counts; exits with 1 if any differs.
"""
import json
import re
import subprocess
import sys

TOKEN = re.compile(r'[ \t\n\v\f\r]+|([()])|"((?:\\(?!\r?\n).|[^"\\]|\\)*?)"|([^ \t\n\v\f\r()"][^ \t\n\v\f\r()]*)', re.S)
ESCAPE = re.compile(r'\\(["\\])')
LINE_END = re.compile(r"\r?\n")


def parse(text):
    root = []
    stack = [root]
    name_is_next = False
    for match in TOKEN.finditer(text):
        bracket, quoted, plain = match.groups()
        if bracket == "(":
            name_is_next = True
        elif bracket == ")":
            stack.pop()
        elif quoted is not None or plain is not None:
            value = plain if quoted is None else ESCAPE.sub(r"\1", LINE_END.sub("", quoted))
            if name_is_next:
                form = {"name": value, "items": []}
                stack[-1].append(form)
                stack.append(form["items"])
                name_is_next = False
            elif len(stack) > 1:
                stack[-1].append(value)
    return root


def main():
    tool, files = sys.argv[1], sys.argv[2:]
    sys.setrecursionlimit(100000)
    differing = 0
    for path in files:
        with open(path, encoding="utf-8-sig", newline="") as file:
            expected = parse(file.read())
        output = subprocess.run([tool, "form", "read", "--json", path], capture_output=True, check=True).stdout
        if json.loads(output) != expected:
            print(f"differs: {path}")
            differing += 1
    print(f"{len(files)} files compared, {differing} differ")
    return 1 if differing or not files else 0


if __name__ == "__main__":
    sys.exit(main())
