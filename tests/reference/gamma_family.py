#!/usr/bin/env python3
"""Reference tables of the gamma, beta and error functions and their relatives, by mpmath with 50
digits.

usage: python3 tests/reference/gamma_family.py FAMILY > tests/numeric/FAMILY_reference.inc

FAMILY: gamma, digamma, incomplete_gamma, beta, incomplete_beta, real_factorials, real_sequences,
error_function, dawson, exponential_integrals, sine_cosine_integrals or handbook_integrals. Rows are
those of reference_tables.py: exact arguments, then for each function the nearest double and the
rest. What the module does differently from the mathematical function, by a stated approximation or
an oddity that is kept, is written here once more, in 50 digits.
"""
import math
import sys

import mpmath as mp

import reference_tables
from reference_tables import down, rng, table, up

EPS = 2.0**-52
SQRT_EPS = 2.0**-26
ROOT4_EPS = 2.0**-13
ONE = mp.mpf(1)


def whole(n, low, high):
    return [float(rng.randint(low, high)) for _ in range(n)]


# With all their bits, so that the rounding of squares and sums is seen.


def scattered(n, low, high, signs=(1, -1)):
    return [rng.choice(signs) * 10 ** rng.uniform(low, high) for _ in range(n)]


def even(n, low, high):
    return [rng.uniform(low, high) for _ in range(n)]


def around(*points):
    """The points, their neighbours on both sides, and others near them, of both signs."""
    near = [y for p in points for y in (p, down(p), up(p), 0.97 * p, 1.03 * p)]
    return near + [-y for y in near]


def sides(*points):
    return [y for p in points for y in (down(p), p, up(p))]


def normal(function):
    """The function where its value is a normal double, so that last places have their meaning."""

    def value(*args):
        result = function(*args)
        if not 1e-300 < abs(result) < 1.7e308:
            raise ValueError("out of range")
        return result

    return value


def condition(function):
    """How much the relative errors of the arguments grow: the sum of |x df/dx|, over |f|."""

    def value(*args):
        base = function(*args)
        h = mp.mpf(10) ** -20
        total = mp.mpf(0)
        for i, x in enumerate(args):
            moved = list(args)
            moved[i] = x * (1 + h)
            total += abs(function(*moved) - base)
        return mp.ceil(1 + total / (h * abs(base)))

    return value


# Gamma.


def gamma_ln(x):
    if x > 0:
        return mp.loggamma(x)
    return mp.log(mp.pi / abs(mp.sinpi(x))) - mp.loggamma(1 - x)


def gamma_taylor(x):
    return mp.gamma(x) - 1 / x


def gamma_ln_taylor(x):
    return gamma_ln(1 + x) / x


def gamma_family():
    xs = sides(8.5, 1.0, 2.0, SQRT_EPS, 9.0, 9.5, 171.5) + around(0.5, 1e-10, 3.5, 20.25)
    xs += scattered(70, -300, 300, (1,)) + scattered(50, -8, 2) + even(30, 0, 10) + even(40, -40, 0)
    xs += [-n + d for n in (1, 2, 3, 10, 100) for d in (2.0**-30, -(2.0**-30), 0.5)] + [-1e15 - 0.25, 2.5e305]
    table("kGammaLn", "x, ln |Gamma(x)|", xs, gamma_ln)
    xs = sides(8.5, 1.0, 2.0, SQRT_EPS, 9.5) + around(0.5, 1e-10, 3.5, 20.25) + [171.6, 170.0, 160.5, 1e-300]
    xs += scattered(60, -8, 2) + even(90, -20, 20) + even(60, 20, 171) + even(40, -169, -20)
    xs += [-n + d for n in (1, 2, 3, 10, 100) for d in (2.0**-30, -(2.0**-30), 0.5)]
    table("kGamma", "x, Gamma(x), 1/Gamma(x)", xs, normal(mp.gamma), normal(mp.rgamma))
    xs = sides(8.5, 1.0, 2.0, 9.0, 0.1) + around(0.5, 3.5, 20.25) + even(120, -20, 20) + even(60, 20, 170)
    xs += scattered(40, -8, 1)
    table("kGammaDerivatives", "x, Gamma'(x), Gamma''(x)", xs,
          normal(lambda x: mp.psi(0, x) * mp.gamma(x)),
          normal(lambda x: (mp.psi(1, x) + mp.psi(0, x) ** 2) * mp.gamma(x)))
    xs = around(ROOT4_EPS, 1e-10, 0.5, 1.5) + scattered(120, -12, 1.5) + scattered(60, -5, -3)
    table("kGammaTaylor", "x, Gamma(x) - 1/x, ln Gamma(1 + x)/x", xs, gamma_taylor, gamma_ln_taylor)
    pairs = [(x, n) for n in (-30, -3, -1, 0, 1, 2, 9, 10, 11, 12, 40) for x in
             around(ROOT4_EPS, 0.5)[:6] + scattered(10, -8, 1) + even(5, -3, 3)]
    table("kInverseGammaTaylor", "x, n, 1/(x Gamma(x - n))", [(x, float(n)) for x, n in pairs],
          normal(lambda x, n: mp.rgamma(x - n) / x))


def digamma_family():
    xs = sides(0.1, 9.0, 1.0, 8.0, 10.0) + around(0.5, 3.5, 1.4616, 0.01) + scattered(60, -10, 12, (1,))
    xs += scattered(40, -6, 1) + even(60, -20, 20) + [-n + d for n in (1, 2, 7) for d in (1e-3, -1e-3, 0.5)]
    table("kDigamma", "x, psi(x), psi'(x)", xs, lambda x: mp.psi(0, x), lambda x: mp.psi(1, x))


# Incomplete gamma.


def lower(a, x):
    return mp.gammainc(a, 0, x)


def upper(a, x):
    return mp.gammainc(a, x)


def p_regular(a, x):
    return mp.gammainc(a, 0, x, regularized=True)


def q_regular(a, x):
    return mp.gammainc(a, x, regularized=True)


def density(a, x):
    return mp.exp((a - 1) * mp.log(x) - x - mp.loggamma(a))


def p_inverse(a, p):
    return inverses[(float(a), float(p))]


inverses = {}


def gamma_quantiles(orders, count):
    """Pairs (a, p), the quantile of each kept in inverses."""
    pairs = []
    for a in orders:
        for _ in range(count):
            x = mp.mpf(max(1e-3, float(a) + rng.uniform(-3, 4) * math.sqrt(a)))
            p = mp.mpf(float(p_regular(a, x)))
            if not 1e-12 < p < 1 - 1e-6:
                continue
            for _ in range(6):
                x -= (p_regular(a, x) - p) / density(a, x)
            inverses[(float(a), float(p))] = x
            pairs.append((float(a), float(p)))
    return pairs


def incomplete_gamma_family():
    pairs = [(a, x) for a in (0.25, 1.0, 3.5, 30.0) for x in sides(a + 1.0) + [1e-3, 0.5, a, 2 * a + 5]]
    pairs += [(float(mp.mpf(10) ** rng.uniform(-2, 2.1)),) for _ in range(200)]
    pairs = [p if len(p) == 2 else (p[0], p[0] * rng.uniform(0.05, 2.5) + rng.uniform(0, 3)) for p in pairs]
    table("kIncompleteGamma", "a, x, gamma(a, x), Gamma(a, x), P, Q", pairs,
          *map(normal, (lower, upper, p_regular, q_regular)))
    orders = [float(mp.mpf(10) ** rng.uniform(-2, 3)) for _ in range(50)] + [1.0, up(1.0), down(1.0), 0.5]
    pairs = gamma_quantiles(orders, 5)
    table("kGammaQuantile", "a, p, the x with P(a, x) = p", pairs, p_inverse)


# Beta.


def beta_family():
    pairs = [(a, b) for a in (0.5, 1.0, 8.5, 30.0) for b in sides(8.5, 1.0) + [1e-5, 100.0]]
    pairs += [(rng.uniform(0, 80), rng.uniform(0, 80)) for _ in range(100)]
    pairs += list(zip(scattered(60, -6, 1.5, (1,)), scattered(60, -6, 1.5, (1,))))
    pairs += list(zip(even(40, -10, 10), even(40, -10, 10)))
    table("kBeta", "a, b, B(a, b)", pairs, normal(mp.beta))
    pairs = list(zip(scattered(220, -8, 8, (1,)), scattered(220, -8, 8, (1,))))
    table("kBetaLn", "a, b, ln B(a, b)", pairs,
          lambda a, b: mp.loggamma(a) + mp.loggamma(b) - mp.loggamma(a + b))
    triples = list(zip(*(scattered(220, -5, 5, (1,)) for _ in range(3))))
    table("kBeta3Ln", "a, b, c, ln B(a, b, c)", triples,
          lambda a, b, c: mp.loggamma(a) + mp.loggamma(b) + mp.loggamma(c) - mp.loggamma(a + b + c))


def is_reflected(x, a, b):
    """The module's own test, in its arithmetic."""
    return float(x) * (float(a) + float(b) + 2.0) >= float(a) + 1.0


def beta_inc(x, a, b):
    if is_reflected(x, a, b):
        return 1 - mp.betainc(b, a, 0, 1 - x)
    return mp.betainc(a, b, 0, x)


def beta_regular(x, a, b):
    return mp.betainc(a, b, 0, x, regularized=True)


def beta_density(x, a, b):
    return mp.exp((a - 1) * mp.log(x) + (b - 1) * mp.log1p(-x)) / mp.beta(a, b)


def beta_quantiles(pairs, count):
    rows = []
    for a, b in pairs:
        mean = a / (a + b)
        spread = math.sqrt(a * b / (a + b + 1)) / (a + b)
        for _ in range(count):
            x = mp.mpf(min(max(0.002, mean + rng.uniform(-3, 3) * spread), 0.998))
            p = mp.mpf(float(beta_regular(x, a, b)))
            if not 1e-10 < p < 1 - 1e-6:
                continue
            for _ in range(6):
                x -= (beta_regular(x, a, b) - p) / beta_density(x, a, b)
            inverses[(float(p), a, b)] = x
            rows.append((float(p), a, b))
    return rows


def incomplete_beta_family():
    triples = [(x, a, b) for a, b in ((0.5, 0.5), (1.0, 3.0), (2.0, 3.0), (20.0, 7.5)) for x in
               sides((a + 1) / (a + b + 2)) + [1e-10, 0.1, 0.5, 0.9, 1 - 1e-9]]
    triples += [(rng.uniform(0, 1), a, b) for a, b in
                zip(scattered(120, -1.5, 2.5, (1,)), scattered(120, -1.5, 2.5, (1,)))]
    for a, b in zip(scattered(90, 0, 3, (1,)), scattered(90, 0, 3, (1,))):
        mean = a / (a + b)
        triples.append((min(0.999, mean * rng.uniform(0.8, 1.2)), a, b))
    table("kIncompleteBeta", "x, a, b, I_x(a, b), B_x(a, b) (of its reflection 1 less the complement)",
          triples, normal(beta_regular), normal(beta_inc))
    pairs = list(zip(scattered(60, -1, 2.3, (1,)), scattered(60, -1, 2.3, (1,)))) + [(1.0, 1.0), (1.0, down(1.0))]
    rows = beta_quantiles(pairs, 5)
    table("kBetaQuantile", "p, a, b, the x with I_x(a, b) = p", rows,
          lambda p, a, b: inverses[(float(p), float(a), float(b))])


# Factorials and sequences.


def rising(x, n):
    product = ONE
    step = 1 if n > 0 else -1
    for k in range(abs(int(n))):
        product *= x + step * k
    return product


def rising_ln(x, n):
    if x < 0:
        return rising_ln(-x, -n) * (-1) ** int(n)
    if abs(n) == 1:
        return mp.log(x)
    return gamma_ln(x + n) - gamma_ln(x) if n > 0 else gamma_ln(x + 1) - gamma_ln(x + n + 1)


def real_factorials_family():
    table("kFactorial", "n, n!", [float(n) for n in range(171)], normal(mp.factorial), least=171)
    ns = [float(n) for n in range(190)] + [1e3, 1e6, 1e9, 1e12, 2.0**52, 2.0**62]
    ns += scattered(30, 3, 17, (1,))
    table("kFactorialLn", "n, ln n!, ln n!!", [(math.floor(n),) for n in ns if n > 1],
          lambda n: mp.loggamma(n + 1), lambda n: mp.log(mp.fac2(n)) if n < 1e4 else double_factorial_ln(n))
    table("kDoubleFactorial", "n, n!!", [float(n) for n in range(301)], normal(mp.fac2))
    pairs = [(x, float(n)) for n in (0, 1, 2, 19, 20, 21, 22, 100, 170, 171) for x in
             scattered(28, -12, -1)]
    table("kByFactorial", "x, n, x n!, x/n!", pairs, normal(lambda x, n: x * mp.factorial(n)),
          normal(lambda x, n: x / mp.factorial(n)))
    pairs = [(x, float(n)) for n in (0, 1, 20, 21, 1000, 10**6, 10**12) for x in scattered(35, -200, 200)]
    table("kByFactorialLn", "x, n, ln |x n!|, ln |x/n!|", pairs,
          lambda x, n: mp.log(abs(x)) + mp.loggamma(n + 1), lambda x, n: mp.log(abs(x)) - mp.loggamma(n + 1))
    pairs = [(n, n * rng.uniform(0, 1)) for n in scattered(120, -3, 2.5, (1,))]
    pairs += [(float(n), float(rng.randint(0, n))) for n in range(1, 110)]
    table("kBinomial", "n, k, the binomial coefficient, its logarithm", pairs, normal(binomial), binomial_ln)
    pairs = [(x, float(n)) for n in (1, -1, 2, -2, 3, 7, -7, 20, -20, 100, -100) for x in
             scattered(12, -3, 2) + even(6, -12, 12) + [3.0, -3.0]]
    table("kPochhammer", "x, n, the rising factorial", pairs, normal(rising))
    pairs = [(x, float(n)) for n in (1, -1, 2, -2, 3, 7, -7, 20, -20, 10**9) for x in
             scattered(20, -3, 4) + even(6, -12, 12)]
    table("kPochhammerLn", "x, n, its logarithm, of magnitudes for x below 0", pairs, rising_ln)


def double_factorial_ln(n):
    if int(n) % 2 == 0:
        return mp.loggamma(n / 2 + 1) + n / 2 * mp.log(2)
    return mp.loggamma(n / 2 + 1) + ((n + 1) * mp.log(2) - mp.log(mp.pi)) / 2


def binomial_ln(n, k):
    return mp.loggamma(n + 1) - mp.loggamma(k + 1) - mp.loggamma(n - k + 1)


def binomial(n, k):
    return mp.exp(binomial_ln(n, k))


def stirling_rows(most):
    """The Stirling numbers of both kinds up to n = most, as integers."""
    first, second = [[1]], [[1]]
    for n in range(1, most + 1):
        s, t = first[-1] + [0], second[-1] + [0]
        first.append([(n - 1) * s[k] + (s[k - 1] if k else 0) for k in range(n + 1)])
        second.append([k * t[k] + (t[k - 1] if k else 0) for k in range(n + 1)])
    return first, second


def real_sequences_family():
    ns = [float(n) for n in range(1, 130)] + [math.floor(n) for n in scattered(90, 2, 15, (1,))]
    table("kHarmonic", "n, H_n", ns, mp.harmonic)
    first, second = stirling_rows(500)
    pairs = [(n, k) for n in range(0, 14) for k in range(0, n + 2)]
    pairs += [(n, k) for n in (20, 21, 22, 26, 27, 28, 60, 120, 300) for k in
              sorted({1, 2, 3, n // 3, n // 2, n - 9, n - 2, n - 1, n})]
    pairs += [(n, rng.randint(2, n)) for n in (rng.randint(27, 320) for _ in range(150))]
    at = lambda rows, n, k: mp.mpf(rows[int(n)][int(k)]) if k <= n else mp.mpf(0)
    rows = [(float(n), float(k)) for n, k in pairs if k > n or first[n][k] < 10**308 and second[n][k] < 10**308]
    table("kStirling", "n, k, the Stirling numbers of the first kind with sign and of the second", rows,
          lambda n, k: (-1) ** int(n - k) * at(first, n, k), lambda n, k: at(second, n, k))
    pairs = [(209, 49), (213, 49), (495, 3)] + [(rng.randint(130, 500), rng.randint(2, 160)) for _ in range(700)]
    rows = [(float(n), float(k)) for n, k in pairs if k < n and second[n][k] < 10**308]
    table("kStirlingSecond", "n, k, the Stirling number of the second kind", rows, lambda n, k: at(second, n, k))


# The error function and Dawson's integral.


def fast_tail(x):
    coefs = [0.254829592, -0.284496736, 1.421413741, -1.453152027, 1.061405429]
    t = 1 / (1 + mp.mpf(0.3275911) * abs(x))
    return sum(mp.mpf(c) * t ** (k + 1) for k, c in enumerate(coefs)) * mp.exp(-x * x)


def erf_fast(x):
    return (1 - fast_tail(x)) * (-1 if x < 0 else 1)


def erfc_fast(x):
    return 2 - fast_tail(x) if x < 0 else fast_tail(x)


def erf_inverse_fast(x):
    middle = [1.50140941, 0.246640727, -0.00417768164, -0.00125372503, 0.00021858087, -4.39150654e-6,
              -3.5233877e-6, 3.43273939e-7, 2.81022636e-8]
    tail = [2.83297682, 1.00167406, 0.00943887047, -0.0076224613, 0.00573950773, -0.00367342844,
            0.00134934322, 0.000100950558, -0.000200214257]
    w = -mp.log((1 + x) * (1 - x))
    if abs(w - 5) < 1e-12:
        raise ValueError("undecided in double arithmetic")
    coefs, t = (middle, w - 2.5) if w < 5 else (tail, mp.sqrt(w) - 3)
    return x * sum(mp.mpf(c) * t**k for k, c in enumerate(coefs))


def dawson(x):
    return mp.sqrt(mp.pi) / 2 * mp.exp(-x * x) * mp.erfi(x)


TWO_BY_ROOT_PI = 2 / mp.sqrt(mp.pi)


def error_function_family():
    xs = around(0.5, 1.0, 2.0, 0.84375, 1.25, 1 / 0.35, 1e-8) + even(90, -6, 6) + scattered(90, -12, 0.7)
    xs += even(30, 0, 26)
    table("kErf", "x, erf, erfc", xs, normal(mp.erf), normal(mp.erfc))
    table("kErfFast", "x, the fast approximations of erf and erfc, as they are", xs,
          normal(erf_fast), normal(erfc_fast))
    xs = [x for x in around(0.5, 0.25) + even(120, -1, 1)]
    xs += [1 - s for s in scattered(60, -15, -1, (1,))] + [s - 1 for s in scattered(20, -15, -1, (1,))]
    edge = math.sqrt(-math.expm1(-5.0))
    xs += [edge * (1 + d) for d in (1e-9, -1e-9, 1e-6, -1e-6)] + scattered(20, -30, -1)
    table("kErfInverse", "x, the approximation of the inverse of erf, as it is, and that inverse", xs,
          erf_inverse_fast, inverse_erf)
    xs = around(0.5, 1.0, 2.0) + even(120, -6, 6) + scattered(70, -8, 0.7) + even(20, 6, 26)
    table("kErfAntiderivatives", "x, e^(-x^2)/sqrt(pi) + x erf(x), -e^(-x^2)/sqrt(pi) + x erfc(x)", xs,
          normal(lambda x: mp.exp(-x * x) / mp.sqrt(mp.pi) + x * mp.erf(x)),
          normal(lambda x: -mp.exp(-x * x) / mp.sqrt(mp.pi) + x * mp.erfc(x)))
    table("kErfDerivatives", "x, erf', erf''", xs + even(10, -26, 26),
          normal(lambda x: TWO_BY_ROOT_PI * mp.exp(-x * x)),
          normal(lambda x: -2 * x * TWO_BY_ROOT_PI * mp.exp(-x * x)))
    table("kErfi", "x, erfi, erfi', erfi''", xs, normal(mp.erfi),
          normal(lambda x: TWO_BY_ROOT_PI * mp.exp(x * x)),
          normal(lambda x: 2 * x * TWO_BY_ROOT_PI * mp.exp(x * x)))
    table("kFaddeeva", "x, w(ix) and its derivative", xs, normal(faddeeva),
          normal(lambda x: 2 * x * faddeeva(x) - TWO_BY_ROOT_PI))


def inverse_erf(x):
    return mp.erfinv(x)


def faddeeva(x):
    return mp.exp(x * x) * mp.erfc(x)


def rational5(x):
    p = [1, 0.10499349466048, 0.04240606039766, 0.00726441824394, 0.00050640337857, 0.0001789970704]
    q = [1, 0.77154710187852, 0.2909738638668, 0.06945557612124, 0.01400054416892, 0.0008327944835,
         0.0003579941408]
    u = x * x
    return x * sum(mp.mpf(c) * u**k for k, c in enumerate(p)) / sum(mp.mpf(c) * u**k for k, c in enumerate(q))


def dawson_family():
    xs = around(ROOT4_EPS, 1 / ROOT4_EPS, 0.924, 4.0, 1.0) + even(120, -8, 8) + scattered(100, -10, 6)
    xs += even(40, 3, 7)
    table("kDawson", "x, F(x) and its fast rational approximation, as it is", xs, dawson_far, rational5)
    table("kDawsonDerivatives", "x, F', F'', and what stands for F'''", [x for x in xs if abs(x) < 1e4],
          lambda x: 1 - 2 * x * dawson_far(x), lambda x: 2 * ((2 * x * x - 1) * dawson_far(x) - x),
          lambda x: 4 * (x * x - 1 + (2 * x * x - 3) * x * dawson_far(x)))


def dawson_far(x):
    """By the confluent function where e^(x^2) is out of any range."""
    if abs(x) < 30:
        return dawson(x)
    u = 1 / (2 * x * x)
    total, term = ONE, ONE
    for k in range(1, 200):
        term *= (2 * k - 1) * u
        total += term
        if term < mp.mpf(10) ** -55:
            break
    return total / (2 * x)


# Exponential, sine and cosine integrals.


def entire(x):
    return mp.nsum(lambda k: 0, [1, 1]) if x == 0 else mp.euler + mp.log(x) + mp.e1(x) if x > 0 else \
        mp.re(mp.euler + mp.log(-x) - mp.ei(-x))


def exponential_integral(x, n):
    """mpmath's own loses digits where both arguments are large."""
    with mp.workdps(300):
        return +mp.expint(n, x)


def exponential_integrals_family():
    xs = sides(1.0) + even(100, 0, 12) + scattered(80, -300, 0, (1,)) + scattered(40, -4, 1, (1,))
    table("kE1", "x, E_1(x)", xs, mp.e1)
    pairs = [(x, float(n)) for n in (0, 1, 2, 3, 10, 100, 255, 256, 257, 258, 1000, 10**6) for x in
             sides(1.0) + even(12, 0, 4) + scattered(8, -6, 2.5, (1,))]
    table("kEn", "x, n, E_n(x)", pairs, normal(exponential_integral))
    xs = even(120, -30, 20) + scattered(120, -12, 1)
    table("kEin", "x, Ein(x)", xs, entire)


def sine_cosine_integrals_family():
    xs = sides(4.0) + even(150, 0, 4) + scattered(60, -8, 0, (1,)) + [0.6165, 3.3842]
    xs += [2.558744748633807, 3.5187196304321002]  # where roundings add up
    table("kNear", "x up to 4, Si(x), Ci(x)", [x for x in xs if x <= 4.0], mp.si, mp.ci)
    xs = sides(4.0) + even(150, 4, 40) + scattered(90, 0.7, 9, (1,))
    xs += [8.959452118651894, 24.324135287596395, 121.39386234523461]
    table("kFar", "x above 4, Si(x), Ci(x)", [x for x in xs if x > 4.0], mp.si, mp.ci)


# The handbook's integrals: as the module has them.


def as_14(x, a, b, n):
    if n == 0:
        return x
    if b == 0:
        return x * a**int(n)
    return mp.log(abs(a + b * x)) / b if n == -1 else (a + b * x) ** int(n + 1) / (b * (n + 1))


def as_16(x, c, b, a):
    d = b * b - 4 * a * c
    w = 2 * a * x + b
    if d > 0:
        r = mp.sqrt(d)
        return mp.log(abs((w - r) / (w + r))) / r
    return mp.atan(w / mp.sqrt(-d)) if d < 0 else -2 / w


def as_19(x, c, b, a):
    if a == 0:
        if b == 0:
            return x * x / (2 * c)
        if c != 0 and b < 0:
            raise ValueError("no logarithm")
        return x / b if c == 0 else (x - c * mp.log(abs(b * x + c) / b)) / b
    value = mp.log(abs(c + b * x + a * x * x))
    return (value - b * as_16(x, c, b, a)) / (2 * a) if b != 0 else value / (2 * a)


def as_20(x, a, b, c, d):
    v = b * c - a * d
    if v != 0:
        return mp.log(abs((c * x + d) / (a * x + b))) / v
    return -1 / c / (a * x + b) if c != 0 else x / (b * d)


def as_21(x, a, b):
    if b == 0:
        return x / (a * a)
    return -1 / (b * b * x) if a == 0 else mp.atan(b * x / a) / (a * b)


def as_22(x, a, b):
    return (x / a) ** 2 / 2 if b == 0 else mp.log(a * a + b * b * x * x) / (2 * b * b)


def as_33(x, c, b, a):
    if a < 0:
        d = mp.sqrt(b * b - 4 * a * c)
        return mp.re(-mp.asin((2 * a * x + b) / d) / mp.sqrt(-a)) if abs(2 * a * x + b) <= d else 1 / ONE * 0 / 0
    b, c, root = b / a, c / a, mp.sqrt(a)
    d = 4 * c - b * b
    if d < 0:
        raise ValueError("no root")
    return (mp.log(abs(2 * x + b)) if d == 0 else mp.asinh((2 * x + b) / mp.sqrt(d))) / root


def as_51(x, n, m):
    v = n + 1
    if m == 0:
        return x**v / v
    t = -v * mp.log(x)
    expt = 1 + sum(t**k / k for k in range(1, int(m) + 1))
    return -(x**v) / (-v) ** int(m + 1) * mp.factorial(m) * expt


def handbook_integrals_family():
    def rows(count, *ranges):
        return [tuple(reference_tables.even(*r) for r in ranges) for _ in range(count)]

    def emit(name, comment, arguments, function):
        table(name, comment + "; and how it magnifies the errors of its arguments", arguments, function,
              condition(function))

    whole = [(x, a, b, float(n)) for n in (0, -1, 1, 2, 3, -2, -3, 10, -10) for x, a, b in
             rows(24, (-3, 3), (-3, 3), (-3, 3))]
    emit("k14", "x, a, b, n, the integral of (a + b x)^n",
         whole + [(1.5, 2.5, 0.0, 4.0), (1.5, 2.5, 0.0, -1.0)], as_14)
    quadratics = rows(220, (-5, 5), (-3, 3), (-3, 3), (-3, 3)) + [(2.0, 1.0, 2.0, 1.0), (2.0, -1.0, 2.0, -1.0)]
    emit("k16", "x, c, b, a, what stands for the integral of 1/(a x^2 + b x + c)", quadratics, as_16)
    lines = [(x, c, b, 0.0) for x, c, b in rows(30, (-5, 5), (-3, 3), (0.1, 3))]
    emit("k19", "x, c, b, a, what stands for the integral of x/(a x^2 + b x + c)",
         quadratics + lines + [(x, c, 0.0, a) for x, c, a in rows(20, (-5, 5), (-3, 3), (-3, 3))], as_19)
    emit("k20", "x, a, b, c, d, the integral of 1/((a x + b)(c x + d))",
         rows(220, (-5, 5), *[(-3, 3)] * 4) + [(2.0, 1.0, 2.0, 2.0, 4.0), (2.0, 0.0, 2.0, 0.0, 4.0)], as_20)
    emit("k21", "x, a, b, the integral of 1/(a^2 + b^2 x^2)",
         rows(210, (-5, 5), (-3, 3), (-3, 3)) + [(2.0, 3.0, 0.0), (2.0, 0.0, 3.0)], as_21)
    emit("k22", "x, a, b, the integral of x/(a^2 + b^2 x^2)",
         rows(210, (-5, 5), (-3, 3), (-3, 3)) + [(2.0, 3.0, 0.0), (2.0, 0.0, 3.0)], as_22)
    falling = rows(160, (-1, 1), (0.5, 3), (-1, 1), (-2, 0))
    rising_rows = rows(100, (-5, 5), (1, 5), (-2, 2), (0.3, 3)) + [(x, c, b, 1.0) for x, c, b in
                                                                  rows(60, (-5, 5), (1, 5), (-2, 2))]
    emit("k33", "x, c, b, a, the integral of 1/sqrt(a x^2 + b x + c)",
         falling + rising_rows + [(2.0, 1.0, 2.0, 1.0)], as_33)
    emit("k51", "x, n, m, what stands for the integral of x^n (ln x)^m",
         [(x, float(n), float(m)) for n in (0, 1, 2, 5, 20) for m in (0, 1, 2, 3, 7, 30) for x in
          even(5, 0, 1) + even(3, 1, 5)], as_51)


def main():
    family = sys.argv[1]
    rng.seed("nuv64 " + family)
    print("// Made by tests/reference/gamma_family.py; see there what a row holds.")
    print("// clang-format off")
    globals()[family + "_family"]()


if __name__ == "__main__":
    main()
