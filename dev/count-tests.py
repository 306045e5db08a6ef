#!/usr/bin/env python3
"""Counts the tests of one run: count-tests.py FOLDER...

FOLDER holds a JSON result for each test program that ended by itself, and ctest.xml, which knows every program that was
started. A program that failed without a failing case of its own (it crashed, hung or could not start) counts as one
failure. The last line printed is "N passed, N failed"; the exit code is 1 if anything failed or nothing ran.
"""
import json
import pathlib
import sys
import xml.etree.ElementTree as xml


def count(folder):
    passed = failed = 0
    programs = {}
    for path in folder.glob("*.json"):
        result = json.loads(path.read_text(encoding="utf-8"))
        cases = [case for suite in result["testsuites"] for case in suite["testsuite"]]
        bad = [case for case in cases if case.get("failures") or case.get("result") == "SKIPPED"]
        for case in bad:
            print(f"failed: {case['classname']}.{case['name']}")
        passed += len([case for case in cases if case["status"] == "RUN"]) - len(bad)
        failed += len(bad)
        programs[path.stem] = len(bad)
    for case in xml.parse(folder / "ctest.xml").iter("testcase"):
        name = case.get("name").split(".")[0]
        good = case.get("status") == "run"
        if not good and not programs.get(name):
            print(f"failed: program {case.get('name')} ({case.get('status')})")
            failed += 1
        elif name not in programs:
            passed += 1 if good else 0
    return passed, failed


def main():
    totals = [count(pathlib.Path(folder)) for folder in sys.argv[1:]]
    passed, failed = (sum(column) for column in zip(*totals))
    print(f"{passed} passed, {failed} failed")
    return 0 if passed and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
