"""Tables of exact arguments and true values for tests/support/accuracy.h; imported by the scripts here.

A row holds the exact arguments and, for each function of the table, the double nearest to its true
value and what is missing to the true value in units of that double's last place.
"""
import math
import random
import sys

import mpmath as mp

mp.mp.dps = 50
rng = random.Random(20240611)


def hexadecimal(x):
    mantissa, exponent = float(x).hex().split("p")
    if "." in mantissa:
        mantissa = mantissa.rstrip("0").rstrip(".")
    return f"{mantissa}p{int(exponent)}"


def literal(x):
    return str(int(x)) if float(x) == int(x) and abs(x) < 1e6 else hexadecimal(x)


def value_columns(true, write=literal):
    """The nearest double and the rest in its last places."""
    nearest = float(true)
    if math.isinf(nearest) or math.isnan(nearest):
        raise ValueError("no double")
    rest = (mp.mpf(true) - mp.mpf(nearest)) / mp.mpf(math.ulp(nearest))
    return [write(nearest), f"{float(rest):.3f}".replace("0.", ".", 1)]


def table(name, comment, arguments, *functions, least=200, write=literal):
    """One row for each tuple of arguments at which all functions have a finite value; write prints a number."""
    rows = []
    for args in arguments:
        args = args if isinstance(args, tuple) else (args,)
        try:
            values = [f(*map(mp.mpf, args)) for f in functions]
            columns = [c for v in values for c in value_columns(v, write)]
        except (ValueError, ZeroDivisionError, OverflowError, TypeError):
            continue
        rows.append([write(a) for a in args] + columns)
    if len(rows) < least:
        sys.exit(f"{name}: {len(rows)} rows")
    print(f"// {comment}\nconstexpr double {name}[][{len(rows[0])}] = {{")
    for row in rows:
        print("{" + ",".join(row) + "},")
    print("};\n")


def down(x):
    return math.nextafter(x, -math.inf)


def up(x):
    return math.nextafter(x, math.inf)


def short(x):
    """x cut to 14 bits, so that it prints short."""
    mantissa, exponent = math.frexp(x)
    return math.ldexp(round(mantissa * 2**14), exponent - 14)


def scattered(low, high, signs=(1,)):
    """A short double between 10^low and 10^high, even by its logarithm."""
    return rng.choice(signs) * short(10 ** rng.uniform(low, high))


def even(low, high):
    return short(rng.uniform(low, high))
