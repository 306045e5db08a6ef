#!/usr/bin/env python3
"""Prints a table of roads and their ratios to peers: benchmark-ratios.py RESULT.json...

Names are "Road/who": "ours..." is the library, any other a peer of the same road. Medians of the repetitions; the ratio is
the library's CPU time over the peer's, so below 1 the library is faster. Where a road measures its own time or that on
the wall, that time counts.
"""
import json
import pathlib
import sys


def medians(path):
    for row in json.loads(pathlib.Path(path).read_text(encoding="utf-8"))["benchmarks"]:
        if row.get("aggregate_name") == "median":
            road, _, who = row["run_name"].partition("/")
            own, _, clock = who.rpartition("/")
            is_measured = clock in ("manual_time", "real_time")
            time = row["real_time" if is_measured else "cpu_time"]
            yield road, own if is_measured else who, time, row["time_unit"]


def main():
    print(f"{'road':34} {'who':26} {'time':>14}  ratio")
    for path in sys.argv[1:]:
        roads = {}
        for road, who, time, unit in medians(path):
            roads.setdefault(road, []).append((who, time, unit))
        for road, rows in roads.items():
            ours = next((time for who, time, _ in rows if who.startswith("ours")), None)
            for who, time, unit in rows:
                peer = not who.startswith("ours") and ours is not None
                ratio = f"{ours / time:5.2f}" if peer else ""
                print(f"{road:34} {who:26} {time:11.1f} {unit}  {ratio}")


if __name__ == "__main__":
    main()
