#!/usr/bin/env python3
"""Reference tables of the exact combinatorial numbers and their real forms, by Python's integers.

usage: python3 tests/reference/combinatorics.py FAMILY > tests/numeric/FAMILY_reference.inc

FAMILY: combinatorics, binomials, stirling_numbers or power_derivatives. Numbers are made by other
definitions than in the library where there are any. Rows of exact numbers end with the value and the
flags; a value that doesn't fit is the overflow value. Rows of reals are those of reference_tables.py.
"""
import sys
from fractions import Fraction
from math import comb, factorial

from reference_tables import even, mp, rng, scattered, table

U64, I64 = 2**64, 2**63
OVERFLOW, UNDEFINED, FRACTIONAL = 0x100, 0x10, 0x40
EDGES = [2**32 - 1, 2**32, 2**63 - 1, 2**63, 2**64 - 2, 2**64 - 1]


def unsigned(value):
    return (value, 0) if value < U64 else (U64 - 1, OVERFLOW)


def signed(value):
    return (value, 0) if abs(value) < I64 else (-I64, OVERFLOW)


def wrapped(value):
    return (value + I64) % U64 - I64


def literal(value, is_signed):
    if is_signed:
        return "INT64_MIN" if value == -I64 else str(value)
    return f"{value}u"


def exact(name, comment, rows, is_signed=False):
    kind = "Signed" if is_signed else "Unsigned"
    print(f"// {comment}\nconstexpr {kind}Row<{len(rows[0]) - 2}> {name}[] = {{")
    for *arguments, value, flags in rows:
        first = ",".join(literal(a, is_signed) for a in arguments)
        print(f"{{{{{first}}},{literal(value, is_signed)},{flags:#x}}},")
    print("};\n")


def double_factorial(n):
    return 1 if n < 2 else n * double_factorial(n - 2)


def bell_numbers(count):
    numbers = [1]
    for n in range(count - 1):
        numbers.append(sum(comb(n, k) * numbers[k] for k in range(n + 1)))
    return numbers


def euler_numbers(count):
    """Those of even index with their signs, by sum of C(2n, 2k) E(2k) = 0."""
    numbers = [1]
    for n in range(1, count):
        numbers.append(-sum(comb(2 * n, 2 * k) * numbers[k] for k in range(n)))
    return numbers


def fibonacci_mod(n, modulus):
    """F(n) and F(n + 1), by powers of the matrix (1, 1; 1, 0)."""
    power, result = (1, 1, 0), (1, 0, 1)  # a b / b c

    def times(x, y):
        return ((x[0] * y[0] + x[1] * y[1]) % modulus, (x[0] * y[1] + x[1] * y[2]) % modulus,
                (x[1] * y[1] + x[2] * y[2]) % modulus)
    while n:
        if n & 1:
            result = times(result, power)
        power = times(power, power)
        n >>= 1
    return result[1], result[0]


def fibonacci(n):
    return fibonacci_mod(n, 2**400)[0] if n < 400 else fibonacci_mod(n, U64)[0]


def lucas(n):
    first, second = fibonacci_mod(n, 2**400 if n < 400 else U64)
    return (2 * second - first) % 2**400 if n < 400 else (2 * second - first) % U64


def sequence(name, comment, function, end):
    """All indices up to three past the end of what fits, and those at the edges of the type."""
    rows = [(n, *unsigned(function(n))) for n in range(end + 4)] + [(n, U64 - 1, OVERFLOW) for n in EDGES]
    exact(name, comment, rows)


def pochhammer(x, n):
    if n < 0:
        return (1 if n % 2 == 0 else -1) * pochhammer(-x, -n)
    product = 1
    for i in range(n):
        product *= x + i
    return product


def combinatorics():
    sequence("kFactorial", "n!", factorial, 20)
    sequence("kDoubleFactorial", "n!!", double_factorial, 33)
    sequence("kCatalan", "Catalan numbers", lambda n: comb(2 * n, n) // (n + 1), 36)
    bells = bell_numbers(40)
    sequence("kBell", "Bell numbers", lambda n: bells[n], 25)
    eulers = euler_numbers(94)

    def euler(n):
        return 0 if n % 2 else abs(eulers[n // 2])
    exact("kEuler", "Euler numbers", [(n, *unsigned(euler(n))) for n in range(30)]
          + [(n, *((0, 0) if n % 2 else (U64 - 1, OVERFLOW))) for n in EDGES])
    for name, function, end in (("kFibonacci", fibonacci, 93), ("kLucas", lucas, 92)):
        exact(name, name[1:] + " numbers", [(n, function(n) % U64, 0 if n <= end else 0x40100)
                                            for n in [*range(130), 1000, *EDGES]])

    limits = [-I64, -I64 + 1, I64 - 2, I64 - 1]
    exact("kSignedFactorial", "n!", [(n, *(signed(factorial(n)) if n >= 0 else (0, 0))) for n in range(-4, 25)]
          + [(n, *((0, 0) if n < 0 else (-I64, OVERFLOW))) for n in limits], True)

    def signed_double(n):
        if n >= 0:
            return signed(double_factorial(n)) if n < 100 else (-I64, OVERFLOW)
        if n in (-1, -3):
            return (1, 0) if n == -1 else (-1, 0)
        return (-I64, UNDEFINED | (FRACTIONAL if n % 2 else 0))
    exact("kSignedDoubleFactorial", "n!!", [(n, *signed_double(n)) for n in [*range(-10, 38), *limits]], True)

    def signed_euler(n):
        if n % 2:
            return (0, 0)
        return signed(eulers[n // 2]) if 0 <= n < 180 else (-I64, OVERFLOW)
    exact("kSignedEuler", "Euler numbers", [(n, *signed_euler(n)) for n in [*range(-6, 31), *limits]], True)
    for name, function, end, limit in (("kSignedFibonacci", fibonacci, 93, 93), ("kSignedLucas", lucas, 92, 92)):
        rows = []
        for n in [*range(-100, 101), *limits]:
            value = function(abs(n)) * (-1 if n < 0 and n % 2 == 0 else 1)
            flags = (0x40100 if abs(n) > end else 0) | (0x4100 if n >= limit else 0)
            rows.append((n, wrapped(value), flags))
        exact(name, name[7:] + " numbers, wrapped", rows, True)

    pairs = [(x, n) for x in range(-6, 7) for n in range(-8, 9)]
    pairs += [(1, n) for n in (19, 20, 21, 30)] + [(-20, 20), (-21, 21), (-22, 30), (20, -20), (21, -21)]
    pairs += [(x, n) for n in (2, 3, 5, -2, -3) for x in (int(2**(63 / abs(n))) + d for d in (-3, -2, -1, 0, 1))]
    pairs += [(rng.randrange(-2**b, 2**b), rng.randrange(-20, 21)) for b in range(2, 40) for _ in range(3)]
    rows = [(x, n, *signed(pochhammer(x, n))) for x, n in pairs]
    rows += [(x, n, x, 0) for x in limits for n in (1, -1)] + [(x, 0, 1, 0) for x in limits]
    rows += [(x, n, -I64, OVERFLOW) for x in limits for n in (2, 3)]
    rows += [(x, n, 0, 0) for x, n in ((0, I64 - 1), (0, -I64), (-5, I64 - 1), (5, -I64))]
    rows += [(x, n, -I64, OVERFLOW) for x, n in ((2, I64 - 1), (-2, -I64), (-I64, I64 - 1), (I64 - 1, -I64 + 2))]
    exact("kPochhammer", "x, n, the rising factorial", rows, True)
    table("kRealEuler", "n, |E(n)|", range(0, 188, 2), lambda n: abs(eulers[int(n) // 2]), least=94)


def edge_pairs():
    """Upper indices around the largest ones that fit, for small k, and both ends of the range."""
    pairs = []
    for k in range(2, 31):
        low, high = k, 2**33
        while low < high:
            middle = (low + high + 1) // 2
            low, high = (middle, high) if comb(middle, k) < U64 else (low, middle - 1)
        pairs += [(low + d, j) for d in (-1, 0, 1) for j in (k, low + d - k)]
    pairs += [(n, k) for n in EDGES for k in (0, 1, 2, 3, n - 2, n - 1, n)]
    return [(n, k) for n, k in pairs if 0 <= k < U64]


def big_comb(n, k):
    """C(n, k), or something beyond 2^64 when it is beyond."""
    if k < 0 or k > n:
        return 0
    k = min(k, n - k)
    return comb(n, k) if k < 70 else U64


def signed_comb(n, k):
    if k < 0:
        return 0
    if n >= 0:
        return big_comb(n, k)
    return (-1)**(k % 2) * big_comb(k - n - 1, k)


def multisets(n, k):
    """Numbers of solutions of x1 + ... + xn = k."""
    if k == 0:
        return 1
    return 0 if n == 0 or k < 0 else signed_comb(n + k - 1, k)


def binomials():
    pairs = [(n, k) for n in range(24) for k in range(n + 2)] + [(n, n // 2) for n in range(24, 72)] + edge_pairs()
    pairs += [(rng.randrange(2**b), rng.randrange(9)) for b in range(5, 64) for _ in range(2)]
    exact("kBinomials", "n, k, C(n, k)", [(n, k, *unsigned(big_comb(n, k))) for n, k in pairs])
    exact("kCentralBinomials", "n, C(n, n/2)", [(n, *unsigned(big_comb(n, n // 2))) for n in [*range(72), *EDGES]])
    pairs = [(n, k) for n in range(9) for k in range(9)] + [(n - k + 1, k) for n, k in edge_pairs() if n >= k]
    pairs += [(n, k) for n in (0, 1, 2, 2**63, 2**64 - 1) for k in (0, 1, 2, 2**63, 2**64 - 1)]
    pairs = [(n, k) for n, k in pairs if n < U64]
    exact("kMultisets", "n, k, C(n + k - 1, k)", [(n, k, *unsigned(multisets(n, k))) for n, k in pairs])
    limits = [-I64, -I64 + 1, I64 - 1]
    pairs = [(n, k) for n in range(-9, 10) for k in range(-2, 11)] + [(66, 33), (67, 33), (-34, 33), (-33, 34)]
    pairs += [(rng.randrange(-2**b, 2**b), rng.randrange(12)) for b in range(3, 63) for _ in range(2)]
    pairs += [(n, k) for n in limits for k in (0, 1, 2, 3, -1)] + [(n, k) for n in (5, -5, 0, -1, -2) for k in limits]
    pairs += [(-2, 2**62), (-2, I64 - 2), (-1, I64 - 2), (I64 - 1, I64 - 2)]
    rows = [(n, k, *((n, 0) if k == 1 else signed(signed_comb(n, k)))) for n, k in pairs]
    exact("kSignedBinomials", "n, k, C(n, k)", rows, True)
    rows = [(n, k, *((n, 0) if k == 1 else signed(multisets(n, k)))) for n, k in pairs]
    exact("kSignedMultisets", "n, k, C(n + k - 1, k)", rows, True)

    def in_range(n, k):
        return k <= n and mp.log(mp.binomial(n, k)) < 709
    pairs = [(n, k) for n in range(1, 61, 3) for k in range(0, n + 1, 7)]
    pairs += [(rng.randrange(60, 1000), rng.randrange(1000)) for _ in range(200)]
    pairs += [(rng.randrange(2**b), rng.randrange(40)) for b in range(8, 50) for _ in range(3)]
    pairs = [p for p in pairs if in_range(*p)]
    table("kRealBinomials", "n, k, C(n, k)", pairs, mp.binomial)
    pairs = [(n - k + 1, k) for n, k in pairs]
    table("kRealMultisets", "n, k, C(n + k - 1, k)", pairs, lambda n, k: mp.binomial(n + k - 1, k))
    table("kRealCatalan", "n, Catalan number", [*range(60), *range(60, 515, 3)],
          lambda n: mp.binomial(2 * n, n) / (n + 1))
    table("kRealCentral", "n, C(n, n/2)", [*range(80), *range(80, 1020, 5)], lambda n: mp.binomial(n, mp.floor(n / 2)))


def triangle(rows, weight):
    numbers = [[1]]
    for n in range(1, rows):
        above = numbers[-1] + [0]
        numbers.append([0] + [weight(n, k) * above[k] + above[k - 1] for k in range(1, n + 1)])
    return numbers


def stirling_numbers():
    first = triangle(320, lambda n, k: n - 1)
    second = triangle(320, lambda n, k: k)
    pairs = [(n, k) for n in range(30) for k in range(n + 2)] + [(n, k) for n in (40, 66, 67, 90, 200, 319)
                                                                  for k in (1, 2, 3, n - 4, n - 3, n - 2, n - 1, n)]
    outside = [(n, k, *unsigned(comb(n, 2))) for n in (6074001000, 6074001001, 6074001002) for k in (n - 1,)]
    outside += [(n, k, v, 0) for n in EDGES for k, v in ((n, 1), (0, 0))] + [(n, 2**64 - 1, 0, 0) for n in EDGES[:-1]]
    for name, numbers in (("kStirling1", first), ("kStirling2", second)):
        rows = [(n, k, *unsigned(numbers[n][k] if k <= n else 0)) for n, k in pairs]
        exact(name, "n, k, Stirling number", rows + outside)
    # As pairs of signed numbers; the arguments are small.
    rows = [(n, k, *signed((first[n][k] if k <= n else 0) * (-1)**((n - k) % 2))) for n, k in pairs]
    exact("kSignedStirling1", "n, k, Stirling number of the first kind", rows, True)

    def of_first_kind(n, k):
        return first[int(n)][int(k)] if k <= n else 0
    pairs = [(n, k) for n in (18, 21, 22, 23, 30, 60, 100, 160, 171) for k in range(1, n, max(1, n // 24))]
    pairs += [(n, n - d) for n in (25, 80, 200, 300, 319) for d in (1, 2, 3, 5, 8, 20)]
    table("kRealStirling1", "n, k, Stirling number", pairs, of_first_kind)


def falling(n, d):
    product = Fraction(1)
    for i in range(d):
        product *= n - i
    return product


def power_ad(x, n, d):
    """The d-th derivative, or -d-th antiderivative, of x^n where it stays a power."""
    if d >= 0:
        return 0 if 0 <= n < d else mp.mpf(int(falling(n, d))) * x**(n - d)
    return x**(n - d) / mp.mpf(int(falling(n - d, -d)))


def signed_power_ad(x, n, d):
    x, n, d = mp.mpf(x), int(n), int(d)
    if n >= 0 or d >= 0:
        return power_ad(x, n, d)
    if d > n:
        return x**(n - d)
    # The -n - 1 divisors on the way to 1/x, then the logarithm and its antiderivatives.
    divisor = mp.mpf(int(falling(-1, -n - 1)))
    m = n - d
    harmonic = sum(mp.mpf(1) / i for i in range(1, m + 1))
    return (mp.log(abs(x)) - harmonic) * abs(x)**m / mp.factorial(m) / divisor


def power_derivatives():
    rows = [(x, n, d) for x in (0.5, -1.5, 1.0, 0.0) for n in (0, 1, 2, 5) for d in (-3, -1, 0, 1, 2, 5, 6)]
    rows += [(scattered(-2, 2, (1, -1)), rng.randrange(40), rng.randrange(-12, 13)) for _ in range(250)]
    table("kUnsignedPowers", "x, n, d, derivative", rows, lambda x, n, d: power_ad(x, int(n), int(d)))
    rows = [(x, n, d) for x in (0.5, -1.5, 1.0) for n in (-4, -2, -1, 0, 3) for d in (-7, -4, -3, -2, -1, 0, 1, 2, 5)]
    rows += [(even(-3, 3), rng.randrange(-20, 0), rng.randrange(-40, 20)) for _ in range(300)]
    table("kSignedPowers", "x, n, d, derivative", rows, signed_power_ad)


FAMILIES = {f.__name__: f for f in (combinatorics, binomials, stirling_numbers, power_derivatives)}


def main():
    family = sys.argv[1] if len(sys.argv) == 2 else ""
    if family not in FAMILIES:
        sys.exit(__doc__)
    print("// Made by tests/reference/combinatorics.py; see there what a row holds.")
    print("// clang-format off")
    FAMILIES[family]()


if __name__ == "__main__":
    main()
