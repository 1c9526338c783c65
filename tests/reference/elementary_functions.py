#!/usr/bin/env python3
"""Reference tables of the elementary functions, by mpmath with 50 digits.

usage: python3 tests/reference/elementary_functions.py FAMILY > tests/numeric/real_FAMILY_reference.inc

FAMILY: exponential, logarithm, powers, trigonometric or hyperbolic; chebyshev makes
chebyshev_reference.inc. reference_tables.py says what a row holds. Every table has the branch points
of its functions, their neighbours on both sides, and arguments scattered evenly by their logarithm.
"""
import functools
import math
import random
import sys

import reference_tables
from reference_tables import down, mp, up

rng = random.Random(20240608)
table = functools.partial(reference_tables.table, write=reference_tables.hexadecimal)
EPS = 2.0**-52
ROOT4_EPS = 2.0**-13
LN_MAX = 709.782712893384


def around(*points):
    """Points on both sides of each, of both signs."""
    near = [y for p in points for y in (p, down(p), up(p), 0.97 * p, 1.03 * p)]
    return near + [-y for y in near]


def scattered(n, low, high, signs=(1, -1)):
    """n doubles between 10^low and 10^high, evenly by their logarithm."""
    return [rng.choice(signs) * float(mp.mpf(10) ** mp.mpf(rng.uniform(low, high))) for _ in range(n)]


def even(n, low, high):
    return [rng.uniform(low, high) for _ in range(n)]


def limited(function, low, high):
    """The function, for arguments in [low, high] alone."""
    def checked(x):
        if not low <= x <= high:
            raise ValueError
        return function(x)
    return checked


def quotient(function, order, limit):
    """(function(x))/x^order with its limit at 0; needs digits for the cancellation."""
    def divided(x):
        if x == 0:
            return limit
        with mp.workdps(1000 if abs(x) < mp.mpf(10) ** -100 else 300):
            return +(function(x) / x**order)
    return divided


def exponential():
    branches = around(EPS, 2.0**-26, ROOT4_EPS)
    xs = [0.0, 1.0, -1.0, LN_MAX, down(LN_MAX), -708.0] + even(160, -708, LN_MAX) + scattered(60, -17, 0)
    table("kExp", "x, e^x", xs, mp.exp)
    xs = [0.0, 1.0, -1.0, 0.5, 1023.0, up(1023.0), -1021.5] + even(160, -1022, 1024) + scattered(60, -17, 0)
    table("kExp2", "x, 2^x", xs, lambda x: mp.power(2, x))
    xs = [0.0, 1.0, -1.0] + branches + scattered(130, -17, 1) + even(60, -50, LN_MAX)
    table("kExpTerms", "x, e^x - 1, (e^x - 1)/x, (e^x - 1 - x)/x^2", xs,
          mp.expm1, quotient(mp.expm1, 1, mp.mpf(1)),
          quotient(lambda x: mp.exp(x) - 1 - x, 2, mp.mpf(1) / 2))
    pairs = [(x, n) for n in (2, 3, 4, 7, 20, 61) for x in
             [0.0, 1.0, 0.5, 2.0] + scattered(26, -6, 1, (1,)) + even(10, -0.9, 0)]
    table("kExpt", "x, n, 1 + x + x^2/2 + x^3/3 + ... + x^n/n", pairs,
          lambda x, n: 1 + mp.fsum(x**k / k for k in range(1, int(n) + 1)))
    xs = [0.0, -5e-324, 1.0, -1.0] + even(120, -300, 300) + scattered(90, -17, 2)
    sign = lambda x: -1 if x < 0 else 1
    table("kExpSym", "x, sign(x) e^(|x|-1), sign(x) e^(|x| ln 10 - 1)", xs,
          lambda x: sign(x) * mp.exp(abs(x) - 1),
          lambda x: sign(x) * mp.exp(abs(x) * mp.log(10) - 1))


def logarithm():
    xs = [0.5, 1.0, 2.0, 10.0, up(1.0), down(1.0), 6e-309, 1.7e308, up(2.0**-1024), 2.0**-1022]
    xs += scattered(120, -308, 308, (1,)) + even(50, 0.5, 2) + scattered(40, -3, 3, (1,))
    table("kLogs", "x, ln x, log2 x, log10 x, x ln x - x", xs,
          mp.log, lambda x: mp.log(x, 2), mp.log10, lambda x: x * mp.log(x) - x)
    xs = [0.0, 1.0, -0.5] + around(ROOT4_EPS, 0.001) + scattered(120, -17, 0) + scattered(40, 0, 300, (1,))
    xs += even(30, -0.999, 2)
    table("kLogTerms", "x, ln(1 + x), (ln(1 + x))/x, ((ln(1 + x))/x - 1)/x",
          [x for x in xs if x > -1],
          lambda x: mp.log1p(x), quotient(mp.log1p, 1, mp.mpf(1)),
          quotient(lambda x: mp.log1p(x) - x, 2, mp.mpf(-1) / 2))
    xs = [0.0, 1.0, -1.0] + scattered(140, -17, 3) + scattered(80, -300, 308)
    sign = lambda x: -1 if x < 0 else 1
    table("kLogSym", "x, sign(x) ln(1 + |x|), the same by log10", xs,
          lambda x: sign(x) * mp.log1p(abs(x)), lambda x: sign(x) * mp.log1p(abs(x)) / mp.log(10))
    pairs = [(x, b) for b in (2.0, 10.0, 0.5, 1.0625, 1e100) for x in scattered(42, -300, 300, (1,))]
    table("kLogInBase", "x, base, the logarithm of x to that base", pairs, lambda x, b: mp.log(x) / mp.log(b))
    pairs = [(x, n) for n in (1, 2, -1, -2) for x in scattered(20, -100, 100, (1,))]
    pairs += [(-x, n) for n in (1, 2) for x in scattered(10, -100, 100, (1,))]
    pairs += [(x, n) for n in (3, 4, 5, 10, 50, 150, -3, -4, -10, -30, -170, -171, -300, -2000)
              for x in scattered(12, -1, 2.5, (1,))]

    def orders(x, n):
        n = int(n)
        if n > 0:
            return (-1) ** (n - 1) * mp.factorial(n - 1) / x**n
        return (mp.log(x) - mp.harmonic(-n)) * x**-n / mp.factorial(-n)
    table("kLogAD", "x, n, the n-th derivative (-n-th antiderivative) of ln", pairs, orders)


def powers():
    xs = [0.0, 1.0, 2.0] + scattered(130, -300, 200, (1,)) + even(80, 0.1, 4)
    table("kSqrt", "x, sqrt(x), (2/3) x sqrt(x), 0.5/sqrt(x)", [x for x in xs if x],
          mp.sqrt, lambda x: x * mp.sqrt(x) * 2 / 3, lambda x: 1 / mp.sqrt(x) / 2)
    cbrt = lambda x: mp.cbrt(x) if x >= 0 else -mp.cbrt(-x)
    xs = [1.0, -8.0, 27.0, 1e-310] + scattered(150, -200, 200) + even(80, -4, 4)
    table("kCbrt", "x, cbrt(x), 0.75 cbrt(x)^4, 1/(3 cbrt(x)^2)", xs,
          cbrt, lambda x: cbrt(x) ** 4 * 3 / 4, lambda x: 1 / cbrt(x) ** 2 / 3)
    xs = [0.0, 1.0, -1.0] + around(1e-6, 0.001) + scattered(130, -17, 0) + scattered(60, 0, 100, (1,))
    table("kRootTerms", "x, (sqrt(1 + x) - 1)/x, (cbrt(1 + x) - 1)/x", [x for x in xs if x >= -1],
          quotient(lambda x: mp.sqrt(1 + x) - 1, 1, mp.mpf(1) / 2),
          quotient(lambda x: mp.cbrt(1 + x) - 1, 1, mp.mpf(1) / 3))
    triples = [(x, b, a) for a in (1.0, -0.5, 3.25, 0.0) for b, x in
               zip(scattered(75, -3, 3, (1,)), scattered(75, -3, 3))]

    def antiderivative(x, b, a):
        if a * x + b < 0:
            raise ValueError
        return x / mp.sqrt(b) if a == 0 else 2 * mp.sqrt(a * x + b) / a
    table("kSqrt1Div", "x, b, a, the antiderivative of 1/sqrt(b + a x)", triples, antiderivative)
    pairs = [(x, y) for x, y in zip(scattered(220, -5, 5, (1,)), even(220, -60, 60))]
    pairs += [(2.0, 0.5), (10.0, 3.0), (0.5, -3.0), (1.0, 1000.0), (2.0, EPS), (2.0, up(EPS / 2))]
    table("kPow", "x, y, x^y", pairs, mp.power)
    pairs = [(x, n) for n in (2, 3, 4, 5, 10, 33, 100) for x in scattered(32, -200, 200, (1,))]
    table("kRoot", "x, n, the n-th root of x", pairs, lambda x, n: mp.root(x, int(n)))
    pairs = [(x, n) for n in (1, 2, 3, 4, 5, 7, 15, 16, 31, 100, 511, -1, -2, -3, -10, -511)
             for x in even(8, 0.3, 3) + even(6, -3, -0.3)]
    table("kWholePower", "x, n, x^n", pairs, lambda x, n: mp.power(x, int(n)))
    pairs = list(zip(scattered(100, -300, 300), scattered(100, -300, 300)))
    pairs += [(3.0, 4.0), (1e300, 1e300), (1e-200, 1e-200), (0.0, 5.0), (5.0, 0.0)]
    pairs += [(x, x * f) for x in scattered(40, -100, 100) for f in (9.99e-4, 1.001e-3, 0.001, 0.3, 0.99)]
    table("kHypot", "a, b, sqrt(a^2 + b^2)", pairs, mp.hypot)
    triples = list(zip(*(scattered(150, -2, 2) for _ in range(3))))
    triples += [(1e200 * a, 1e200 * b, 1e200 * c) for a, b, c in triples[:40]]
    triples += [(1e-250 * a, 1e-250 * b, 1e-250 * c) for a, b, c in triples[:40]]
    table("kNorm3D", "a, b, c, sqrt(a^2 + b^2 + c^2)", triples, lambda a, b, c: mp.sqrt(a * a + b * b + c * c))
    triples = list(zip(*(scattered(210, -5, 5) for _ in range(3))))
    table("kSqrNorm", "a, b, c, a^2 + b^2, a^2 + b^2 + c^2", triples,
          lambda a, b, c: a * a + b * b, lambda a, b, c: a * a + b * b + c * c)


def trigonometric():
    half_pi = math.pi / 2
    xs = [0.0, 1.0, -1.0] + [k * half_pi for k in range(-4, 5)] + even(120, -10, 10)
    xs += scattered(50, -17, 0) + scattered(40, 0, 5)
    table("kCircular", "x, sin, cos, tan, sec, 1 + tan^2", xs,
          mp.sin, mp.cos, mp.tan, mp.sec, lambda x: 1 + mp.tan(x) ** 2)
    xs = scattered(140, -3, 3) + even(70, -1.57, 1.57)
    table("kTanA", "x, -ln|cos x|", xs, lambda x: -mp.log(abs(mp.cos(x))))
    ratio = lambda function, order, limit: quotient(function, order, mp.mpf(limit))
    xs = [0.0] + around(0.001, 0.75) + scattered(90, -17, 0) + even(100, -1.5707, 1.5707) + [down(half_pi)]
    table("kTanTerms", "x, (tan x)/x, (tan x - x)/x^3", [x for x in xs if abs(x) < half_pi],
          ratio(mp.tan, 1, 1), ratio(lambda x: mp.tan(x) - x, 3, mp.mpf(1) / 3))
    xs = [0.0] + around(0.001) + scattered(100, -17, 0) + even(60, -7, 7) + scattered(40, 0, 5)
    table("kCosTerms", "x, (1 - cos x)/x^2, (1 - cos x)/x, (sin x)/x", xs,
          ratio(lambda x: 1 - mp.cos(x), 2, mp.mpf(1) / 2), ratio(lambda x: 1 - mp.cos(x), 1, 0),
          ratio(mp.sin, 1, 1))
    table("kSincNormalized", "x, (sin pi x)/(pi x)", scattered(130, -17, 0) + even(80, -6, 6),
          lambda x: mp.sinc(mp.pi * x))
    xs = [0.0, 1.0, -1.0, 0.5, -0.5, down(1.0), -down(1.0)] + even(150, -1, 1) + scattered(50, -17, 0)
    table("kArcs", "x, asin, acos, sqrt(1 - x^2)", xs, mp.asin, mp.acos, lambda x: mp.sqrt((1 - x) * (1 + x)))
    xs = [0.0, 1.0, -1.0] + scattered(120, -17, 17) + even(90, -3, 3)
    table("kArcTangent", "x, atan, 1/(1 + x^2)", xs, mp.atan, lambda x: 1 / (1 + x * x))
    pairs = [(r * x, r) for r in (1.0, -2.0, 3.7, 1e150, -1e-200) for x in even(42, -0.999, 0.999)]
    table("kArcsXR", "x, r, acos(x/r), asin(x/r)", pairs,
          lambda x, r: mp.acos(x / r), lambda x, r: mp.asin(x / r))
    pairs = list(zip(scattered(160, -5, 5), scattered(160, -5, 5)))
    pairs += [(x, x * f) for x in scattered(12, -100, 100) for f in (0.3, 0.9, -1.0, 2.0)]
    table("kAngles", "x, y, the angle by its cosine, by its sine, of the line, from the y axis, azimuth", pairs,
          lambda x, y: mp.acos(x / mp.hypot(x, y)), lambda x, y: mp.asin(y / mp.hypot(x, y)),
          lambda x, y: mp.atan(y / x), lambda x, y: mp.atan(x / y), lambda x, y: mp.atan2(y, x))
    xs = [0.0] + around(1.0) + scattered(200, -17, 17)
    table("kFromTan", "t, sine, cosine, t/(1 + sqrt(1 + t^2))", xs, lambda t: t / mp.sqrt(1 + t * t),
          lambda t: 1 / mp.sqrt(1 + t * t), lambda t: t / (1 + mp.sqrt(1 + t * t)))
    xs = [0.0, down(1.0), -down(1.0)] + even(130, -1, 1) + scattered(80, -17, 0)
    table("kTan2X", "t, 2t/(1 - t^2)", xs, lambda t: 2 * t / (1 - t * t))
    pairs = [(c, n) for n in (1, 2, 3, 8, 33, 64, 65, 66, 200, 1001) for c in
             [0.0, 1.0, -1.0, 0.5] + even(18, -1, 1)]
    table("kMultiples", "c, n, T_n(c), U_(n-1)(c)", pairs,
          lambda c, n: mp.chebyt(int(n), c), lambda c, n: mp.chebyu(int(n) - 1, c))


def hyperbolic():
    xs = [0.0, 1.0, -1.0, LN_MAX, -LN_MAX] + even(80, -LN_MAX, LN_MAX) + scattered(80, -17, 0) + even(50, -3, 3)
    table("kHyperbolic", "x, sinh, cosh, tanh, sech", xs, mp.sinh, mp.cosh, mp.tanh, mp.sech)
    xs = [0.0, 1.0, -1.0] + scattered(120, -17, 0) + scattered(90, 0, 300)
    table("kAsinh", "x, asinh, sqrt(1 + x^2), x/sqrt(1 + x^2)", xs, mp.asinh,
          lambda x: mp.sqrt(1 + x * x), lambda x: x / mp.sqrt(1 + x * x))
    xs = [1.0, up(1.0), 2.0] + [1 + x for x in scattered(110, -15, 0, (1,))] + scattered(100, 0, 300, (1,))
    table("kAcosh", "x, acosh, sqrt(x^2 - 1), sqrt(x^2 - 1)/x", xs, mp.acosh,
          lambda x: mp.sqrt((x - 1) * (x + 1)), lambda x: mp.sqrt((x - 1) * (x + 1)) / x)
    xs = [0.0, down(1.0), -down(1.0)] + even(130, -1, 1) + scattered(80, -17, 0)
    table("kAtanh", "x, atanh, x/sqrt(1 - x^2), 1/sqrt(1 - x^2)", xs, mp.atanh,
          lambda x: x / mp.sqrt(1 - x * x), lambda x: 1 / mp.sqrt(1 - x * x))
    pairs = [(x, n) for n in (2.0, 0.5, -1.25, 3.0) for x in even(40, -5, 5) + scattered(15, -10, 0)]
    pairs += [(x, n) for n in (2.0, 1.001, 0.5) for x in even(10, -800, 800)]
    table("kRatios", "x, n, cosh(x)/cosh(n x), sinh(x)/sinh(n x)", pairs,
          lambda x, n: mp.cosh(x) / mp.cosh(n * x), lambda x, n: mp.sinh(x) / mp.sinh(n * x))
    xs = [0.0, 1.0, -1.0] + even(110, -20, 20) + scattered(60, -17, 0) + even(40, -700, 700)
    table("kSeries", "x, cosh, sinh", xs, mp.cosh, mp.sinh)


def chebyshev():
    functions = (lambda x, n: mp.chebyt(int(n), x), lambda x, n: mp.chebyu(int(n), x))
    pairs = [(x, n) for n in (1, 2, 3, 5, 8, 17, 63, 64, 65, 200, 1001) for x in
             [0.0, 1.0, -1.0, 0.5, down(1.0)] + even(15, -1, 1)]
    table("kChebyshevInside", "x in [-1, 1], n, T_n(x), U_n(x)", pairs, *functions)
    pairs = [(x, n) for n in (1, 2, 3, 8, 33, 63, 64, 65, 150) for x in
             [1.0625, -1.5, 2.0, up(1.0)] + even(10, 1, 20) + even(10, -20, -1)]
    table("kChebyshevOutside", "x outside [-1, 1], n, T_n(x), U_n(x)", pairs, *functions)


FAMILIES = {f.__name__: f for f in (exponential, logarithm, powers, trigonometric, hyperbolic, chebyshev)}


def main():
    family = sys.argv[1] if len(sys.argv) == 2 else ""
    if family not in FAMILIES:
        sys.exit(__doc__)
    print("// Made by tests/reference/elementary_functions.py; see there what a row holds.")
    print("// clang-format off")
    FAMILIES[family]()


if __name__ == "__main__":
    main()
