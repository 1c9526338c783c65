#!/usr/bin/env python3
"""Reference tables of the smaller families of real scalars, by mpmath with 50 digits.

usage: python3 tests/reference/real_scalars.py FAMILY > tests/numeric/FAMILY_reference.inc

FAMILY: real_periodic, real_means, real_series_sums, real_units, real_peaks, real_tapers, real_solvers
or plane_rotations. The functions are written here from their definitions, in the order that is
easiest to read. Tables have the branch points of their functions with neighbours on both sides.
"""
import sys

from reference_tables import down, even, mp, rng, scattered, short, table, up

BOTH = (1, -1)
ROOT4_EPS = 2.0**-13
TWO_PI = 2 * mp.pi


def real_periodic():
    xs = [0, 1, -1, 0.5, -0.5, 2.5, -2.5, up(1.0), down(1.0), -down(1.0), up(-1.0), 2.0**52 - 0.5, 2.0**53 - 1]
    xs += [scattered(-9, 12, BOTH) for _ in range(120)] + [rng.uniform(-9, 9) for _ in range(80)]
    # What is so small below 0 that the fraction rounds to 1 is tested singly.
    table("kModuloOne", "x, fraction, whole", [x for x in xs if not -1e-16 < x < 0],
          lambda x: x - mp.floor(x), mp.floor)
    pairs = [(x, p) for x in (0.0, 1.0, -1.0, 3.0, -0.5, down(2.0), up(2.0)) for p in (2.0, 0.25, -2.0)]
    pairs += [(scattered(-3, 5, BOTH), scattered(-2, 3, BOTH)) for _ in range(200)]
    table("kModuloPeriod", "x, p, rest, base, phase", pairs,
          lambda x, p: x - abs(p) * mp.floor(x / abs(p)), lambda x, p: abs(p) * mp.floor(x / abs(p)),
          lambda x, p: TWO_PI * (x - abs(p) * mp.floor(x / abs(p))) / p)
    pairs = [(x, eps) for x in (0.5, -0.5, 1.5, -2.5, down(0.5), up(-2.5), 7.0) for eps in (1.0, 0.25, 2.0)]
    pairs += [(rng.uniform(-900, 900), scattered(-4, 2)) for _ in range(200)]
    pairs += [(rng.uniform(-900, 900), 1.0) for _ in range(50)]
    pairs += [(rng.uniform(-9, 9), eps) for eps in (0.0, -1.0) for _ in range(5)]

    def to_eps(x, eps):
        return x if eps <= 0 else mp.sign(x) * mp.floor(abs(x) / eps + mp.mpf(1) / 2) * eps
    table("kRoundToEps", "x, eps, rounded", pairs, to_eps)


def magm(a, b):
    a, b, z = max(a, b), min(a, b), mp.mpf(0)
    while abs(a - b) > mp.mpf(10)**-40 * a:
        r = mp.sqrt((a - z) * (b - z))
        a, b, z = (a + b) / 2, z + r, z - r
    return a


def real_means():
    pairs = [(1.0, 1.0), (1.0, 4.0), (4.0, 1.0), (3.0, 3.0 * (1 + 2.0**-50)), (up(1.0), 1.0)]
    pairs += [(rng.uniform(0.1, 10), rng.uniform(0.1, 10)) for _ in range(100)]
    pairs += [(scattered(-4, 4), scattered(-4, 4)) for _ in range(100)]
    table("kMeans", "a, b, arithmetic, geometric, harmonic, of squares, root mean square, Heron's, AGM, modified AGM",
          pairs, lambda a, b: (a + b) / 2, lambda a, b: mp.sqrt(a * b), lambda a, b: 2 / (1 / a + 1 / b),
          lambda a, b: mp.sqrt(2 / (1 / a**2 + 1 / b**2)), lambda a, b: mp.sqrt((a**2 + b**2) / 2),
          lambda a, b: (a + mp.sqrt(a * b) + b) / 3, mp.agm, magm)
    triples = [(scattered(-2, 2, BOTH), scattered(-2, 2, BOTH), k) for k in range(3, 23) for _ in range(11)]
    table("kHeroK", "a, b, k, mean", triples,
          lambda a, b, k: (a + b + (k - 1) * abs(a)) / (k + 1))
    triples = [(scattered(-2, 2), scattered(-2, 2), scattered(-1, 1.3, BOTH)) for _ in range(220)]
    table("kHoelder", "a, b, p, power mean, Lehmer mean", triples,
          lambda a, b, p: ((a**p + b**p) / 2)**(1 / p), lambda a, b, p: (a**p + b**p) / (a**(p - 1) + b**(p - 1)))
    triples = [(scattered(-2, 2), scattered(-2, 2), k) for k in range(-20, 21) for _ in range(6)]
    table("kHoelderI", "a, b, k, power mean, Lehmer mean", triples,
          lambda a, b, k: ((a**k + b**k) / 2)**(1 / k) if k else mp.sqrt(a * b),
          lambda a, b, k: (a**k + b**k) / (a**(k - 1) + b**(k - 1)))


def real_series_sums():
    counts = [0, 1, 2, 3, 4, 5, 7, 10, 31, 100, 365, 1000, 65536]
    triples = [(n, scattered(-2, 2), scattered(-2, 2)) for n in counts for _ in range(16)]
    table("kArithmetic", "n, a, b, sum from a by steps of b, sum from a to b, sum of squares", triples,
          lambda n, a, b: n * (a + (n - 1) * b / 2), lambda n, a, b: n * (a + b) / 2,
          lambda n, a, b: n * a**2 + a * b * n * (n - 1) + b**2 * (n - 1) * n * (2 * n - 1) / 6)

    def geometric(n, first, ratio):
        return first * n if ratio == 1 else first * (1 - ratio**n) / (1 - ratio)
    counts = [0, 1, 2, 3, 5, 8, 16, 33, 100]
    ratios = [1.0, up(1.0), down(1.0), 0.0, 0.5, -0.5, 2.0, -1.0, 0.999, 1.001]
    triples = [(n, scattered(-2, 2, BOTH), q) for n in counts for q in ratios]
    triples += [(n, scattered(-2, 2, BOTH), even(-2, 2)) for n in counts for _ in range(15)]
    # 0 to the power 0 is 1 here.
    table("kGeometric", "n, first, ratio, sum, sum of squares", triples, geometric,
          lambda n, first, ratio: geometric(n, first**2, ratio**2))
    triples = [(n, a, a * short(10**rng.uniform(-3, 3))) for n in (2, 3, 4, 7, 12, 40)
               for a in [scattered(-2, 2, BOTH) for _ in range(35)]]

    def from_ends(n, first, last):
        q = mp.root(last / first, int(n) - 1)
        return first * n if q == 1 else (first - q * last) / (1 - q)
    table("kGeometricEnds", "n, first, last, sum", triples, from_ends)
    triples = [(n, x, scattered(-2, 2, BOTH)) for n in counts for x in [even(-2, 2) for _ in range(24)] if x != 1]
    table("kGeoAri", "n, x, y, value", triples, lambda n, x, y: x**n + y * (1 - x**n) / (1 - x))


def real_units():
    xs = [1.0, -1.0, 180.0, 360.0] + [scattered(-6, 9, BOTH) for _ in range(140)]
    xs += [rng.uniform(-400, 400) for _ in range(70)]
    table("kUnits", "x, rad of deg, deg of rad, 2 pi x, x/(2 pi), 2 pi/x, 1/x", xs, mp.radians, mp.degrees,
          lambda x: TWO_PI * x, lambda x: x / TWO_PI, lambda x: TWO_PI / x, lambda x: 1 / x)


def real_peaks():
    xs = [0.0, 1.0, -2.0, 2.0] + [scattered(-5, 5, BOTH) for _ in range(200)]
    table("kPeak0", "x, peak", xs, lambda x: 1 / (1 + (x / 2)**2))
    rows = [(rng.uniform(-9, 9), even(-9, 9), scattered(-2, 2, BOTH), scattered(-2, 2, BOTH)) for _ in range(210)]
    table("kPeak", "x, centre, width, height, peak, area", rows,
          lambda x, c, w, h: h / (1 + ((x - c) / w / 2)**2), lambda x, c, w, h: mp.pi / 2 * w * h)
    rows = [(x, a, b, c) for _ in range(35) for a, b, c in [sorted(even(-9, 9) for _ in range(3))]
            for x in (a, b, c, up(b), down(b), even(-20, 20), even(a, c))]
    table("kBiPeak", "x, a, b, c, peak", rows,
          lambda x, a, b, c: 1 / (1 + ((x - b) / (b - a if x < b else c - b))**2))
    branch = ROOT4_EPS**0.5
    xs = [0.0, 0.5, down(1.0)] + [s * y for s in BOTH for y in (branch, up(branch), down(branch), 0.98 * branch)]
    xs += [rng.uniform(-1, 1) for _ in range(120)] + [scattered(-9, -0.1, BOTH) for _ in range(80)]
    xs += [s * (1 - scattered(-15, -1)) for s in BOTH for _ in range(20)]
    table("kChebyshevWeight", "x, weight", xs, lambda x: 1 / mp.sqrt(1 - x * x))


def gaussian(v, floor):
    return mp.mpf(0) if v < floor else mp.power(2, 1 - 1 / v)


def step_up(x, w):
    s = x**2 / (w**2 + x**2)
    return (1 - s) / 2 if x < 0 else (1 + s) / 2


def rect(x, a, b, wa, wb):
    if a < x < b:
        return mp.mpf(1)
    distance, width = (x - b, wb) if x >= b else (a - x, wa)
    return width**2 / (width**2 + distance**2) if width else mp.mpf(1)


def reledge(x, centre, r):
    k = 1 + min(max(r, mp.mpf(0)), mp.mpf(1))
    width = centre - centre / k if x < centre else k * centre - centre
    return width**2 / (width**2 + (x - centre)**2)


def threshold(x, low, mid, high, k):
    if abs(x - mid) * 1000 <= high - low:
        return mp.mpf(1) / 2
    if x < mid:
        if x <= 0 or 1 / x - 1 / mid > 1000 * (1 / low - 1 / mid):
            return mp.mpf(0)
        t = k * (1 / x - 1 / mid) / (1 / low - 1 / mid)
        return 1 / (2 * (1 + t**2))
    if x - mid > 1000 * (high - mid):
        return mp.mpf(1)
    t = k * (x - mid) / (high - mid)
    return (1 + 2 * t**2) / (2 * (1 + t**2))


def lo_taper(x, bound, factor):
    e = factor * abs(bound)
    return x if abs(x) > e else (1 if x >= 0 else -1) * (abs(x) + (1 - abs(x) / e)**2 * bound)


def hi_taper(x, bound, factor):
    e = bound / factor
    return x if abs(x) < e else mp.sign(x) * (2 * e - e**2 / abs(x))


def interval_taper(x, low, high, f):
    from_low, to_high = low + f * (high - low), high - f * (high - low)
    return hi_taper(lo_taper(x, low, from_low / low), high, high / to_high)


def real_tapers():
    floors = (0.0, 0.01, 0.125, 0.5)
    rows = [(x, w, rng.choice(floors)) for w in (1.0, 0.3, -2.0, 1e-3)
            for x in [0.0, w, -w, up(0.0)] + [w * scattered(-2, 1.5, BOTH) for _ in range(48)]]
    rows.append((-1e-9, 1.0, 0.0))
    table("kSteps", "x, w, floor, up L, down L, up G, down G", rows, lambda x, w, f: step_up(x, w),
          lambda x, w, f: 1 - step_up(x, w), lambda x, w, f: gaussian(step_up(x, w), f),
          lambda x, w, f: 1 - gaussian(step_up(x, w), mp.mpf(0.01)))
    rows = [(x, a, b, wa, wb, rng.choice(floors)) for _ in range(22)
            for a, b, wa, wb in [(even(-5, 0), even(0, 5), scattered(-2, 1), scattered(-2, 1))]
            for x in [a, b, up(a), down(b), down(a), up(b)] + [even(-15, 15) for _ in range(5)]]
    rows += [(x, -1.0, 1.0, wa, wb, 0.01) for x in (-9.0, -1.0, 0.0, 1.0, 9.0) for wa, wb in ((0, 1), (1, 0))]
    table("kRects", "x, a, b, wa, wb, floor, L, G", rows, lambda x, a, b, wa, wb, f: rect(x, a, b, wa, wb),
          lambda x, a, b, wa, wb, f: gaussian(rect(x, a, b, wa, wb), f))
    rows = [(x, w, edge, rng.choice(floors)) for _ in range(20) for w, edge in [(scattered(-1, 1), scattered(-1, 1))]
            for x in [w / 2, -w / 2, up(w / 2), down(-w / 2)] + [even(-2 * w, 2 * w) for _ in range(7)]]
    table("kBumps", "x, width, edge, floor, L, G", rows, lambda x, w, e, f: rect(x, -w / 2, w / 2, e, e),
          lambda x, w, e, f: bump_g(x, w, e, f))
    rows = [(x, c, r, rng.choice(floors)) for r in (-0.5, 0.03, 0.1, 0.25, 0.5, 0.75, 1.0, 2.0) if r > 0
            for c in (1.0, 37.0, 0.011) for x in [c, up(c), down(c)] + [c * scattered(-1, 1) for _ in range(8)]]
    table("kReledges", "x, centre, r, floor, L, G", rows, lambda x, c, r, f: reledge(x, c, r),
          lambda x, c, r, f: gaussian(reledge(x, c, r), f))
    rows = []
    for _ in range(24):
        low, mid, high = sorted(scattered(-1, 1) for _ in range(3))
        zone = (high - low) / 1000
        xs = [mid, mid - 0.97 * zone, mid + 0.97 * zone, mid - 1.03 * zone, mid + 1.03 * zone, low, high, -1.0]
        xs += [mid + 970 * (high - mid), mid + 1030 * (high - mid)]
        xs += [1 / (1 / mid + f * (1 / low - 1 / mid)) for f in (970, 1030)] + [scattered(-2, 2) for _ in range(3)]
        k, floor = scattered(-0.5, 1), rng.choice(floors)
        rows += [(short(x), low, mid, high, k, floor) for x in xs]
    table("kThresholds", "x, low, mid, high, k, floor, L, G", rows, lambda x, l, m, h, k, f: threshold(x, l, m, h, k),
          lambda x, l, m, h, k, f: gaussian(threshold(x, l, m, h, k), f))
    rows = [(x, m, r, rng.choice(floors)) for r in (0.1, 0.25, 0.5, 1.0, 3.0) for m in (1.0, 42.0)
            for x in [m, m / (1 + r), m * (1 + r)] + [m * scattered(-1, 1) for _ in range(18)]]
    table("kRelativeThresholds", "x, mid, r, floor, L, G", rows,
          lambda x, m, r, f: threshold(x, m / (1 + r), m, m * (1 + r), 3),
          lambda x, m, r, f: gaussian(threshold(x, m / (1 + r), m, m * (1 + r), 3), f))
    rows = [(x, low, high, factor) for low in (0.5, 1.0, 0.01) for high in (4.0, 25.0) for factor in (1.5, 2.0, 3.0)
            for e in (factor * low, high / factor)
            for x in (e, up(e), down(e), -up(e), scattered(-3, 2, BOTH), scattered(-3, 2, BOTH), 0.0)]
    table("kTapers", "x, low, high, factor, low taper, high taper, both", rows, lambda x, l, h, f: lo_taper(x, l, f),
          lambda x, l, h, f: hi_taper(x, h, f), lambda x, l, h, f: hi_taper(lo_taper(x, l, f), h, f))
    rows = [(x, low, high, f) for low in (0.5, 1.0, 0.01) for high in (4.0, 25.0) for f in (0.125, 0.25, 0.5)
            for x in [scattered(-3, 2, BOTH) for _ in range(10)] + [low, high]]
    table("kIntervalTapers", "x, low, high, f, taper", rows, interval_taper)


def bump_g(x, width, edge, floor):
    once = gaussian(rect(x, -width / 2, width / 2, edge, edge), mp.mpf(0.01))
    return mp.mpf(0) if once == 0 else gaussian(once, floor)


def quadratic(a, b, c):
    """The value returned, root1, root2."""
    if a == 0:
        return -c / b, -c / b, mp.mpf(0)
    h, d = b / a / 2, (b / a / 2)**2 - c / a
    if d < 0:
        return -h, -h, mp.sqrt(-d)
    if h < 0:
        return -(c / a) / (mp.sqrt(d) - h), mp.sqrt(d) - h, mp.mpf(0)
    return -h - mp.sqrt(d), -(c / a) / (mp.sqrt(d) + h), mp.mpf(0)


def real_solvers():
    rows = [(a, b, c) for a in (0.0, 1.0) for b in (0.5, -3.0) for c in (0.0, 2.0, -7.0)]
    rows += [(1.0, 0.0, 1.0), (1.0, 0.0, -1.0), (2.0, 4.0, 2.0), (2.0, -4.0, 2.0), (1.0, 1e8, 1.0), (1.0, -1e8, 1.0)]
    rows += [(a, scattered(-2, 2, BOTH), scattered(-2, 2, BOTH)) for a in [1.0, 0.0] * 10 for _ in range(3)]
    rows += [tuple(scattered(-2, 2, BOTH) for _ in range(3)) for _ in range(150)]
    table("kQuadratics", "a, b, c, result, root1, root2", rows, *(lambda a, b, c, i=i: quadratic(a, b, c)[i] for i in range(3)))


def jacobi(p, q, r):
    """p and q after the step, r, c and s."""
    d = p - q
    if 5 * mp.mpf(2)**-52 * abs(d) > r:
        return (p, q, 0, 1, 0) if p > q else (q, p, -1, -1, 0)
    if 5 * mp.mpf(2)**-52 * r > abs(d):
        c = mp.sqrt(mp.mpf(1) / 2)
        return p, q, 0, c, -c if d < 0 else c
    u = d / r / 2
    t = mp.sign(u) / (abs(u) + mp.sqrt(1 + u**2))
    c = 1 / mp.sqrt(1 + t**2)
    return p - t * r, q + t * r, 0, c, c * t


def plane_rotations():
    rows = [(3.0, 4.0), (-3.0, 4.0), (5.0, 0.0), (-5.0, 0.0), (0.0, -2.0), (1e300, 1e300), (1e-300, -1e-300)]
    rows += [(1.0, r) for r in (0.001, down(0.001), up(0.001), -0.00099, 0.00101)]
    rows += [(scattered(-5, 5, BOTH), scattered(-5, 5, BOTH)) for _ in range(200)]
    table("kGivens", "a, b, length, c, s", rows, mp.hypot, lambda a, b: a / mp.hypot(a, b), lambda a, b: b / mp.hypot(a, b))
    limit = 5 * 2.0**-52
    rows = [(p, q, r) for p, q in ((2.0, 1.0), (1.0, 2.0)) for r in (limit, up(limit), down(limit), 0.0, -0.5, 0.97 / limit, 1.03 / limit)]
    rows += [(p, q, 1.0) for p, q in ((1.0, 1.0), (1.0, 1 + 2.0**-51), (1.0, 1 - 2.0**-51), (1.0, 1 + 2.0**-49))]
    rows += [(scattered(-2, 2, BOTH), scattered(-2, 2, BOTH), scattered(-3, 3)) for _ in range(200)]
    table("kJacobi", "p, q, r, p and q after it, r, c, s", rows, *(lambda p, q, r, i=i: mp.mpf(jacobi(p, q, r)[i]) for i in range(5)))


FAMILIES = {f.__name__: f for f in (real_periodic, real_means, real_series_sums, real_units, real_peaks, real_tapers,
                                    real_solvers, plane_rotations)}


def main():
    family = sys.argv[1] if len(sys.argv) == 2 else ""
    if family not in FAMILIES:
        sys.exit(__doc__)
    print("// Made by tests/reference/real_scalars.py; reference_tables.py says what a row holds.")
    print("// clang-format off")
    FAMILIES[family]()


if __name__ == "__main__":
    main()
