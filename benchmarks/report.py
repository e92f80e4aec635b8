#!/usr/bin/python3
"""Measures every row of bars.csv, prints a table and writes the results as JSON. Used by run and check."""
import argparse
import csv
import json
import os
import platform
import sys

import measuring

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(HERE)
START, END = "<!-- figures: benchmarks/run --write-docs -->", "<!-- end of figures -->"


def read_bars():
    with open(os.path.join(HERE, "bars.csv"), encoding="utf-8") as file:
        return list(csv.DictReader(file))


def is_met(value, relation, bar):
    return {"<=": value <= bar, ">=": value >= bar, "==": value == bar}[relation]


def rows_of(figures):
    rows = []
    for bar in read_bars():
        value = figures[bar["figure"]]
        wanted = {"<=": "at most", ">=": "at least", "==": "exactly"}[bar["relation"]] + f" {bar['bar']} {bar['unit']}"
        rows.append({"figure": bar["figure"], "what": bar["what"], "measured": value, "unit": bar["unit"],
                     "bar": wanted, "met": is_met(value, bar["relation"], float(bar["bar"]))})
    return rows


def shown(row):
    digits = 0 if row["measured"] >= 100 or row["measured"] == int(row["measured"]) else 2
    return f"{row['measured']:,.{digits}f} {row['unit']}"


def print_table(rows):
    width = max(len(row["what"]) for row in rows)
    print(f"{'What':{width}}  {'Measured':>14}  {'Bar':<22}  Met")
    for row in rows:
        print(f"{row['what']:{width}}  {shown(row):>14}  {row['bar']:<22}  {'yes' if row['met'] else 'NO'}")


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        names = [line.split(":", 1)[1].strip() for line in file if line.startswith("model name")]
    return f"{len(names)} processors ({names[0] if names else platform.machine()}), {platform.system()}"


def write_docs(rows):
    path = os.path.join(ROOT, "docs", "performance.md")
    with open(path, encoding="utf-8") as file:
        text = file.read()
    before, rest = text.split(START)
    after = rest.split(END)[1]
    lines = ["", f"Measured on {machine()}.", "", "| What | Measured | Bar | Met |", "|---|---|---|---|"]
    lines += [f"| {row['what']} | {shown(row)} | {row['bar']} | {'yes' if row['met'] else '**no**'} |" for row in rows]
    with open(path, "w", encoding="utf-8") as file:
        file.write(before + START + "\n".join(lines) + "\n\n" + END + after)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True, help="folder with the built programs")
    parser.add_argument("--rounds", type=int, default=3, help="number of rounds")
    parser.add_argument("--pictures", action="store_true", help="draw the diagrams in docs/images")
    parser.add_argument("--write-docs", action="store_true", help="draw the diagrams and update the table in docs/performance.md")
    parser.add_argument("--check", action="store_true", help="report missed bars and exit with status 1")
    options = parser.parse_args()

    def log(text):
        print(text, file=sys.stderr, flush=True)

    figures, growth = measuring.measure(measuring.Programs(options.build), options.rounds, log)
    rows = rows_of(figures)
    print_table(rows)
    with open(os.path.join(options.build, "results.json"), "w", encoding="utf-8") as file:
        json.dump({"machine": machine(), "rows": rows, "growth": growth}, file, ensure_ascii=False, indent=2)
    if options.pictures or options.write_docs:
        import pictures
        pictures.draw(growth, os.path.join(ROOT, "docs", "images"))
    if options.write_docs:
        write_docs(rows)
    missed = [row for row in rows if not row["met"]]
    if options.check:
        for row in missed:
            log(f"missed: {row['what']}: {shown(row)}, {row['bar']}")
    return 1 if options.check and missed else 0


if __name__ == "__main__":
    sys.exit(main())
