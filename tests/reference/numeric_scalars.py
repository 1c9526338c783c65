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
    xs = [0.0, 1.0, -1.0, 1e-300, 709.0, 709.78, -700.0] + [rng.uniform(-708, 709) for _ in range(40)]
    table("kExp", "x, exp(x)", [(x, mp.exp(mp.mpf(x))) for x in xs])
    xs = [0.5, 1.0, 2.0, 10.0, 1 + 2.0**-52, 1 - 2.0**-53, 6e-309, 1.7e308]
    xs += [scattered(-307, 308) for _ in range(40)] + [rng.uniform(0.9, 1.1) for _ in range(10)]
    table("kLog", "x, ln(x)", [(x, mp.log(mp.mpf(x))) for x in xs])
    pairs = [(scattered(-5, 5), rng.uniform(-20, 20)) for _ in range(40)]
    pairs += [(2.0, 0.5), (10.0, 3.0), (0.5, -3.0), (1.0, 1000.0)]
    table("kPow", "x, y, x^y", [(x, y, mp.mpf(x) ** mp.mpf(y)) for x, y in pairs])
    pairs = [(scattered(-150, 150), scattered(-150, 150)) for _ in range(20)]
    pairs += [(3.0, 4.0), (1e300, 1e300), (1e-200, 1e-200)]
    pairs += [(x, x * f) for x in (scattered(-5, 5) for _ in range(4)) for f in (9.99e-4, 1.001e-3, 0.99)]
    table("kHypot", "a, b, sqrt(a^2 + b^2)", [(a, b, mp.hypot(a, b)) for a, b in pairs])
    pairs = [(rng.choice([-1, 1]) * scattered(-10, 10), rng.choice([-1, 1]) * scattered(-10, 10)) for _ in range(40)]
    pairs += [(1.0, 0.0), (-1.0, 0.0), (0.0, 1.0), (0.0, -1.0), (-1.0, -1.0), (-1.0, 1.0)]
    table("kAzimuth", "x, y, the angle of (x, y)", [(x, y, mp.atan2(mp.mpf(y), mp.mpf(x))) for x, y in pairs])
    pairs = [(scattered(-8, 8), scattered(-8, 8)) for _ in range(20)] + [(1.0, 1.0), (1.0, 2.0), (24.0, 6.0)]
    table("kAgm", "a, b, their arithmetic-geometric mean", [(a, b, mp.agm(a, b)) for a, b in pairs])
    rows = []
    for n in (1, 2, 3, 5, 8, 17, 63, 64, 65, 200, 1001):
        for x in [0.0, 1.0, -1.0, 0.5] + [rng.uniform(-1, 1) for _ in range(4)]:
            rows.append((x, n, mp.chebyt(n, mp.mpf(x))))
    table("kChebyshevInside", "x in [-1, 1], n, T_n(x)", rows)
    rows = []
    for n in (1, 2, 3, 8, 33, 64, 65, 150):
        for x in [1.0625, -1.5, 2.0] + [rng.choice([-1, 1]) * rng.uniform(1.1, 20) for _ in range(3)]:
            rows.append((x, n, mp.chebyt(n, mp.mpf(x))))
    table("kChebyshevOutside", "x outside [-1, 1], n, T_n(x)", rows)


main()
