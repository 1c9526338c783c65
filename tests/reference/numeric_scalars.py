#!/usr/bin/env python3
"""Makes tests/numeric/scalars_reference.inc: exact arguments, results to 30 digits by mpmath.

usage: /usr/bin/python3 tests/reference/numeric_scalars.py > tests/numeric/scalars_reference.inc
"""
import random

import mpmath as mp

mp.mp.dps = 60
rng = random.Random(20240521)


def literal(x):
    return float(x).hex()


def number(y):
    return mp.nstr(mp.mpf(y), 30, min_fixed=-5, max_fixed=5)


def table(name, comment, rows):
    print(f"// {comment}")
    print(f"constexpr double {name}[][{len(rows[0])}] = {{")
    for row in rows:
        *arguments, result = row
        print("    {" + ", ".join([literal(a) for a in arguments] + [number(result)]) + "},")
    print("};\n")


def scattered(low, high):
    """A positive double with an evenly spread logarithm."""
    return float(mp.mpf(10) ** mp.mpf(rng.uniform(low, high)))


def main():
    print("// Made by tests/reference/numeric_scalars.py; arguments exact, results to 30 digits.")
    print("// clang-format off")
    pairs = [(scattered(-8, 8), scattered(-8, 8)) for _ in range(20)] + [(1.0, 1.0), (1.0, 2.0), (24.0, 6.0)]
    table("kAgm", "a, b, their arithmetic-geometric mean", [(a, b, mp.agm(a, b)) for a, b in pairs])


main()
