#!/usr/bin/env python3
"""Prints a profile beside the known rates of the example.

usage: compare.py PROFILE.csv [KNOWN.csv] [--limit PERCENT]
Ends with status 1 when a rate is missing or off by more than the limit (3 %).
"""
import argparse
import csv
import pathlib
import sys


def profile_rows(path):
    """(field, rate) of each line that begins with two numbers."""
    rows = []
    with open(path, newline="", encoding="utf-8") as file:
        for cells in csv.reader(file):
            try:
                rows.append((float(cells[0]), float(cells[1])))
            except (ValueError, IndexError):
                continue
    return rows


def nearest(rows, field):
    return min(rows, key=lambda row: abs(row[0] / field - 1.0), default=None)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("profile")
    parser.add_argument("known", nargs="?",
                        default=pathlib.Path(__file__).resolve().parent / "known_rates.csv")
    parser.add_argument("--limit", type=float, default=3.0)
    args = parser.parse_args()

    rows = profile_rows(args.profile)
    worst = 0.0
    print("zone  sequence  BRLX [MHz]  R1 known [1/s]  R1 found [1/s]  deviation")
    with open(args.known, newline="", encoding="utf-8") as file:
        for known in csv.DictReader(file):
            field, expected = float(known["BRLX_MHz"]), float(known["R1_per_s"])
            row = nearest(rows, field)
            found = row[1] if row and abs(row[0] / field - 1.0) < 1e-4 else float("nan")
            deviation = 100.0 * (found / expected - 1.0)
            worst = max(worst, abs(deviation)) if deviation == deviation else float("inf")
            print(f"{known['zone']:>4}  {known['sequence']:<8}  {field:10.5g}  {expected:14.4f}"
                  f"  {found:14.4f}  {deviation:+8.2f} %")
    print(f"largest deviation {worst:.2f} %, allowed {args.limit:g} %")
    return 0 if worst <= args.limit else 1


if __name__ == "__main__":
    sys.exit(main())
