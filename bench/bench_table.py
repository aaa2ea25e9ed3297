#!/usr/bin/env python3
# Copyright (C) 2026 Oru Camera. All rights reserved.
#
# Proprietary and confidential: use, copying and distribution only under a written
# license agreement with Oru Camera. See the NOTICE file at the top of this tree.

"""Prints the table of a Google Benchmark JSON file: each library benchmark ("<name>/library...")
with its baseline ("<name>/baseline...") and the ratio of the two. Time per iteration is real time
for benchmarks measured in real time (several threads), CPU time otherwise; medians where the
file holds repetitions."""
import json
import sys


def main(path):
    with open(path) as f:
        runs = json.load(f)["benchmarks"]
    times = {}
    order = []
    for run in runs:
        if run.get("run_type") == "aggregate" and run.get("aggregate_name") != "median":
            continue
        name = run.get("run_name", run["name"])
        if "error_occurred" in run:
            times[name] = None
        else:
            real = "real_time" in name
            value = run["real_time"] if real else run["cpu_time"]
            times[name] = (value, run["time_unit"])
        if name not in order:
            order.append(name)

    rows = []
    for name in order:
        parts = name.split("/")
        if len(parts) < 2 or not parts[1].startswith("library"):
            continue
        base_name = "/".join([parts[0], "baseline"] + parts[2:])
        lib = times[name]
        base = times.get(base_name)
        ratio = f"{lib[0] / base[0]:.2f}" if lib and base else "-"
        rows.append((name, fmt(lib), fmt(base), ratio))

    header = ("benchmark", "library", "baseline", "ratio")
    width = max(len(r[0]) for r in rows + [header])
    print(f"| {header[0]:<{width}} | {header[1]:>11} | {header[2]:>11} | {header[3]:>5} |")
    print(f"|{'-' * (width + 2)}|{'-' * 12}:|{'-' * 12}:|{'-' * 6}:|")
    for r in rows:
        print(f"| {r[0]:<{width}} | {r[1]:>11} | {r[2]:>11} | {r[3]:>5} |")


def fmt(time):
    if time is None:
        return "-"
    value, unit = time
    ns = value * {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[unit]
    return f"{ns / 1000:.2f} us"


if __name__ == "__main__":
    main(sys.argv[1])
