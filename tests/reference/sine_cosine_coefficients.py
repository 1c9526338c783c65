#!/usr/bin/env python3
"""Makes src/numeric/sine_cosine_coefficients.h: the rational approximations of the sine and cosine
integrals, by least squares in 80 digits, re-weighted after Lawson until the largest relative error
is nearly the least.

usage: python3 tests/reference/sine_cosine_coefficients.py > src/numeric/sine_cosine_coefficients.h
"""
import mpmath as mp

mp.mp.dps = 80
POINTS = 60
ROUNDS = 16


def exponential(u):
    """g - i f at x = 1/sqrt(u): e^(ix) E1(ix)."""
    x = 1 / mp.sqrt(u)
    return x, mp.exp(1j * x) * mp.e1(1j * x)


def auxiliary_f(u):
    x, z = exponential(u)
    return -z.imag * x


def auxiliary_g(u):
    x, z = exponential(u)
    return z.real * x * x


def sine_near(u):
    x = mp.sqrt(u)
    return mp.si(x) / x


def cosine_near(u):
    x = mp.sqrt(u)
    return (mp.ci(x) - mp.euler - mp.log(x)) / u


def ratio(p, q, u):
    return mp.polyval(p[::-1], u) / mp.polyval(q[::-1], u)


def solve(us, ys, factors, top, low, degree):
    """P and Q of that degree, Q with low term 1 and P with low term low, by linear least squares."""
    rows = mp.matrix(len(us), 2 * degree)
    right = mp.matrix(len(us), 1)
    for i, (u, y, s) in enumerate(zip(us, ys, factors)):
        for k in range(1, degree + 1):
            rows[i, k - 1] = s * (u / top) ** k
            rows[i, degree + k - 1] = -s * y * (u / top) ** k
        right[i] = s * (y - low)
    solution = mp.lu_solve(rows.T * rows, rows.T * right)
    p = [mp.mpf(low)] + [solution[k] / top ** (k + 1) for k in range(degree)]
    q = [mp.mpf(1)] + [solution[degree + k] / top ** (k + 1) for k in range(degree)]
    return p, q


def fit(function, weight, top, low, degree):
    us = [top / 2 * (1 - mp.cos((2 * i + 1) * mp.pi / (2 * POINTS))) for i in range(POINTS)]
    ys = [function(u) for u in us]
    lawson = [mp.mpf(1)] * POINTS
    divisors = [mp.mpf(1)] * POINTS
    for turn in range(ROUNDS):
        factors = [mp.sqrt(a) * weight(u) / abs(y * d) for a, u, y, d in zip(lawson, us, ys, divisors)]
        p, q = solve(us, ys, factors, top, low, degree)
        divisors = [mp.polyval(q[::-1], u) for u in us]
        errors = [abs(ratio(p, q, u) / y - 1) * weight(u) for u, y in zip(us, ys)]
        if turn > 2:
            lawson = [a * e for a, e in zip(lawson, errors)]
            lawson = [a * POINTS / sum(lawson) for a in lawson]
    return p, q


def worst(function, weight, top, p, q):
    us = [top * mp.mpf(i) / 397 for i in range(1, 398)] + [top * mp.mpf(10) ** (-mp.mpf(i) / 8) for i in range(8, 90)]
    return max(abs(ratio(p, q, u) / function(u) - 1) * weight(u) for u in us)


def table(name, values):
    print(f"inline constexpr double {name}[] = {{")
    for value in values:
        print(f"    {float(value)!r},")
    print("};")


def main():
    plain = lambda u: mp.mpf(1)
    falling = lambda u: mp.sqrt(16 * u)
    sixteenth = mp.mpf(1) / 16
    print("""// Rational approximations P(u)/Q(u) of the sine and cosine integrals, the coefficients from the low
// term up. Near-minimax in the relative error, by weighted least squares in 80 digits; made by
// tests/reference/sine_cosine_coefficients.py. The errors are those of the approximations before
// their coefficients are rounded to doubles.
// clang-format off
#pragma once

namespace nuv64 {
""")
    for name, comment, function, weight, top, low, degree in (
        ("SineNear", "Si(x)/x, u = x^2 in [0, 16]; largest relative error", sine_near, plain, mp.mpf(16), 1, 7),
        ("CosineNear", "(Ci(x) - gamma - ln x)/x^2, u = x^2 in [0, 16]; largest relative error",
         cosine_near, plain, mp.mpf(16), mp.mpf(-1) / 4, 7),
        ("AuxiliaryF", "x f(x), u = 1/x^2 in [0, 1/16]; largest relative error", auxiliary_f, plain, sixteenth, 1, 9),
        ("AuxiliaryG", "x^2 g(x), u = 1/x^2 in [0, 1/16]; the relative error counts as it enters beside f,\n"
         "// by 4/x, and is then at most", auxiliary_g, falling, sixteenth, 1, 9)):
        p, q = fit(function, weight, top, low, degree)
        print(f"// {comment} {mp.nstr(worst(function, weight, top, p, q), 2)}.")
        table(f"k{name}P", p)
        table(f"k{name}Q", q)
        print()
    print("}  // namespace nuv64")
    print("// clang-format on")


if __name__ == "__main__":
    main()
