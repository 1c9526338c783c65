#!/usr/bin/env python3
"""Makes the tables of the fit tests; arguments are exact doubles.

usage: /usr/bin/python3 tests/reference/fits.py searches > tests/fits/searches_reference.inc
       /usr/bin/python3 tests/reference/fits.py decays > tests/fits/decays_reference.inc
       /usr/bin/python3 tests/reference/fits.py exponentials > tests/fits/exponentials_reference.inc

Searches: a plain transcription of the minimiser's steps, run on the same doubles, must give the
same number of evaluations and the same last bits. Decays: scipy's bounded least squares (trust
region, from several starts) gives the weights, rates and offset that fit best. Exponentials: by
mpmath, to 30 digits.
"""
import math
import sys

import mpmath
import numpy as np
from scipy.optimize import least_squares

LIMIT = 73


class Counted:
    def __init__(self, f):
        self.f, self.calls = f, 0

    def __call__(self, x):
        self.calls += 1
        return self.f(x)


def simplex(f, start, step, tolerance, max_calls):
    counted = Counted(f)

    def f(x):
        return counted(list(x))

    best = f(start)
    if max_calls < 2:
        return counted.calls, start, best, 0
    n = len(start)
    vertices = [list(start)] + [[x + (step if i == k else 0.0) for i, x in enumerate(start)] for k in range(n)]
    scores = [f(v) for v in vertices]

    def sums_of():
        result = []
        for j in range(n):
            total = 0.0
            for v in vertices:
                total += v[j]
            result.append(total)
        return result

    sums = sums_of()
    rho = 0.5 ** (1.0 / n)
    size, stall, status = 1.0, 0, 0

    def attempt(factor, high):
        x = [factor * vertices[high][j] + (1.0 - factor) / n * (sums[j] - vertices[high][j]) for j in range(n)]
        score = f(x)
        if score < scores[high]:
            scores[high] = score
            for j in range(n):
                sums[j] += x[j] - vertices[high][j]
            vertices[high] = x
        return score

    while True:
        low = min(range(n + 1), key=lambda k: scores[k])
        high = max(range(n + 1), key=lambda k: scores[k])
        second = low
        for k in range(n + 1):
            if k != high and scores[k] > scores[second]:
                second = k
        lowest, second_score = scores[low], scores[second]
        if lowest < best:
            best, stall, size = lowest, 0, 1.0
        if counted.calls > max_calls:
            status = LIMIT
            break
        if size < tolerance:
            stall += 1
        if stall >= 3 * n:
            break
        score = attempt(-1.0, high)
        if score < lowest:
            old = scores[high]
            if old < attempt(2.0, high):
                size /= rho
        elif not score < second_score:
            old = scores[high]
            if not attempt(0.5, high) < old:
                for k in range(n + 1):
                    if k != low:
                        vertices[k] = [rho * a + (1.0 - rho) * b for a, b in zip(vertices[k], vertices[low])]
                        scores[k] = f(vertices[k])
                sums = sums_of()
            size *= rho
    last = f(vertices[low])
    return counted.calls, vertices[low], last, status


class Stop(Exception):
    pass


def coordinates(f, start, step, tolerance, max_calls):
    f = Counted(f)
    x = list(start)
    best = f(x)

    def at(k, value):
        if f.calls >= max_calls:
            raise Stop
        y = list(x)
        y[k] = value
        score = f(y)
        held = y[:k] + y[k + 1:]
        x[:k], x[k + 1:] = held[:k], held[k:]
        return score, y[k]

    try:
        s = step
        while s > tolerance:
            improved = False
            for k in range(len(x)):
                start_k = x[k]
                below = at(k, start_k - s)
                try:
                    above = at(k, start_k + s)
                except Stop:
                    above = (math.inf, start_k)
                if below[0] < best:
                    direction, (best, x[k]) = -s, below
                elif above[0] < best:
                    direction, (best, x[k]) = s, above
                else:
                    continue
                improved = True
                while True:
                    score, place = at(k, x[k] + direction)
                    if not score < best:
                        break
                    best, x[k] = score, place
            s = 1.2 * s if improved else 0.5 * s
        if f.calls >= max_calls:
            raise Stop
        return f.calls, x, best, 0
    except Stop:
        return f.calls, x, best, LIMIT


def rosenbrock(x):
    a = 1.0 - x[0]
    b = x[1] - x[0] * x[0]
    return a * a + 100.0 * (b * b)


def quadratic(x):
    a, b, c = x[0] - 1.5, x[1] + 0.25, x[2] - 3.0
    return a * a + 4.0 * (b * b) + 0.5 * (c * c) + a * b


def ridge(x):
    return abs(x[0]) + abs(x[1] - x[0])


def walled(x):
    """Clamps its argument in place, as the fits do; a simplex keeps its own places."""
    x[0] = min(max(x[0], -1.0), 0.75)
    return (x[0] - 2.0) * (x[0] - 2.0) + (x[1] + 1.0) * (x[1] + 1.0)


def searches():
    print("// method, function, start, step, tolerance, limit of calls; status, calls, place, score")
    print("const SearchCase kSearches[] = {")
    functions = {"rosenbrock": rosenbrock, "quadratic": quadratic, "ridge": ridge, "walled": walled}
    cases = [("rosenbrock", [-1.2, 1.0], 0.2, 0.0001, 100000), ("rosenbrock", [2.0, -3.0], 1.0, 1e-6, 100000),
             ("quadratic", [0.0, 0.0, 0.0], 0.2, 0.0001, 100000), ("quadratic", [1.5, -0.25, 3.0], 0.2, 0.0001, 100000),
             ("ridge", [3.0, -2.0], 0.5, 0.001, 100000), ("walled", [0.5, 0.0], 0.2, 0.001, 100000),
             ("rosenbrock", [-1.2, 1.0], 0.2, 0.0001, 57), ("quadratic", [9.0, 9.0, 9.0], 0.2, 0.0001, 40),
             ("quadratic", [9.0, 9.0, 9.0], 0.2, 0.0001, 3), ("quadratic", [9.0, 9.0, 9.0], 0.2, 0.0001, 2),
             ("quadratic", [9.0, 9.0, 9.0], 0.2, 0.0001, 1), ("quadratic", [9.0, 9.0, 9.0], 0.2, 0.0001, 0)]
    for method, search in ((1, simplex), (3, coordinates)):
        for name, start, step, tolerance, limit in cases:
            calls, place, score, status = search(functions[name], start, step, tolerance, limit)
            hexes = lambda v: "{" + ", ".join(float(x).hex() for x in v) + "}"
            print(f"    {{{method}, {name}, {hexes(start)}, {step!r}, {tolerance!r}, {limit}, "
                  f"{status}, {calls}, {hexes(place)}, {float(score).hex()}}},")
    print("};")


def decay(x, weights, rates, offset):
    return offset + sum(w * np.exp(-r * x) for w, r in zip(weights, rates))


def best_fit(x, y, components, sign, rng):
    """The least-squares solution within the module's own bounds on the rates."""
    low, high = -math.log(0.95) / x[-1], -math.log(0.05) / x[2]
    scale = np.max(np.abs(y))
    best = None
    for _ in range(12):
        rates = np.exp(rng.uniform(np.log(low), np.log(high), components))
        start = np.concatenate([[y[-1] / scale], np.full(components, 1.0 / components), np.log(rates)])
        bounds = ([-np.inf] + [0.0] * components + [np.log(low)] * components,
                  [np.inf] + [np.inf] * components + [np.log(high)] * components)

        def residuals(p):
            return decay(x, sign * p[1:1 + components], np.exp(p[1 + components:]), p[0]) - y / scale

        r = least_squares(residuals, start, bounds=bounds, xtol=1e-14, ftol=1e-14, gtol=1e-14, max_nfev=5000)
        if best is None or r.cost < best.cost:
            best = r
    p = best.x
    order = np.argsort(p[1 + components:])
    weights = sign * p[1:1 + components][order] * scale
    return weights, np.exp(p[1 + components:][order]), p[0] * scale, math.sqrt(2 * best.cost / len(x)) * scale


def decays():
    print("// components, x, y; weights, rates (ascending), offset, rms of the best fit")
    print("const DecayCase kDecays[] = {")
    rng = np.random.default_rng(2718)
    hexes = lambda v: "{" + ", ".join(float(x).hex() for x in v) + "}"
    cases = [([100.0], [3.3], 5.0, 16, 0.5), ([100.0], [0.02], -20.0, 24, 1.0), ([-40.0], [250.0], 45.0, 16, 0.1),
             ([1e-6], [12.0], 0.0, 12, 1e-8), ([70.0, 30.0], [1.0, 12.0], 2.0, 48, 0.05),
             ([-2000.0, -1000.0], [0.4, 6.0], 3100.0, 64, 1.0), ([500.0], [40.0], 0.0, 128, 20.0)]
    for weights, rates, offset, n, noise in cases:
        x = np.geomspace(0.03 / max(rates), 5.0 / min(rates), n)
        y = decay(x, weights, rates, offset) + rng.normal(0.0, noise, n)
        w, r, o, rms = best_fit(x, y, len(weights), math.copysign(1.0, weights[0]), rng)
        print(f"    {{{len(weights)}, {hexes(x)},\n     {hexes(y)},\n     {hexes(w)}, {hexes(r)}, "
              f"{float(o).hex()}, {float(rms).hex()}}},")
    print("};")


def exponentials():
    mpmath.mp.dps = 50
    rng = np.random.default_rng(1414)
    ln2 = math.log(2.0)
    halves = [(k + 0.5) * ln2 for k in (-1000, -100, -10, -2, -1, 0, 1, 2, 10, 100, 1000)]
    edges = [math.nextafter(t, t + s) for t in halves for s in (-1.0, 1.0)]
    values = [0.0, -0.0, 1e-300, -1e-300, 2.0**-53, -(2.0**-53), 1e-8, 1.0, -1.0, -708.0, -707.999, 709.78, 709.7]
    values += list(rng.uniform(-708, 709.7, 60)) + list(rng.uniform(-2, 2, 60)) + list(rng.uniform(-50, 0, 60))
    print("// t, exp(t)")
    print("const double kExponentials[][2] = {")
    for t in values + halves + edges:
        print(f"    {{{float(t).hex()}, {mpmath.nstr(mpmath.exp(mpmath.mpf(float(t))), 30)}}},")
    print("};")


print("// Made by tests/reference/fits.py; arguments exact.")
print("// clang-format off")
{"searches": searches, "decays": decays, "exponentials": exponentials}[sys.argv[1]]()
print("// clang-format on")
