#!/usr/bin/env python3
"""Makes the tables of smoothing, splines and quadrature by scipy and mpmath: exact inputs as hex
floats, results to 17 digits.

usage: /usr/bin/python3 tests/reference/sampled_curves.py > tests/arrays/sampled_curves_reference.inc

Splines are scipy's CubicSpline with natural ends, Gaussian smoothing its gaussian_filter1d with the
radius of one per cent and repeated edges, the Savitzky-Golay filters its savgol_filter with
repeated edges ("nearest") and with fitted ends ("interp"). Nodes and weights of quadrature are roots
of Legendre polynomials found by mpmath with 40 digits.
"""
import math
import random

import mpmath as mp
import numpy as np
from scipy.interpolate import CubicSpline
from scipy.ndimage import gaussian_filter1d
from scipy.signal import savgol_filter

rng = random.Random(2718)


def numbers(values):
    return "{" + ", ".join(float(v).hex() for v in values) + "}"


def curve(n):
    return [rng.uniform(-3, 3) for _ in range(n)]


def splines():
    print("// x, y, targets, values")
    print("const SplineCase kSplines[] = {")
    for n in (2, 3, 4, 7, 30):
        x = np.cumsum([rng.uniform(0.1, 2) for _ in range(n)])
        y = curve(n)
        t = sorted(rng.uniform(x[0], x[-1]) for _ in range(25)) + [x[0], x[-1], x[n // 2]]
        if n < 3:  # a line, which CubicSpline takes for too few points
            values = np.interp(t, x, y)
        else:
            values = CubicSpline(x, y, bc_type="natural")(t)
        print(f"    {{{numbers(x)},\n     {numbers(y)},\n     {numbers(t)},\n     {numbers(values)}}},")
    print("};\n")


def gaussians():
    print("// input, width, smoothed")
    print("const GaussianCase kGaussians[] = {")
    for n, width in ((1, 2.0), (5, 0.7), (40, 1.0), (40, 3.25), (12, 9.0)):
        y = curve(n)
        radius = int(width * math.sqrt(math.log(100) / math.log(2)) + 0.5)
        sigma = width / math.sqrt(2 * math.log(2))
        smoothed = gaussian_filter1d(np.array(y), sigma, mode="nearest", truncate=(radius + 0.2) / sigma)
        print(f"    {{{numbers(y)}, {float(width).hex()},\n     {numbers(smoothed)}}},")
    print("};\n")


def filters():
    print("// input, derivative, points, order, with repeated edges, with fitted ends")
    print("const PolynomialFilterCase kPolynomialFilters[] = {")
    for n, d, points, order in ((30, 0, 7, 3), (30, 1, 9, 4), (30, 2, 11, 5), (9, 0, 9, 2), (50, 3, 21, 5)):
        y = np.array(curve(n))
        nearest = savgol_filter(y, points, order, deriv=d, mode="nearest")
        fitted = savgol_filter(y, points, order, deriv=d, mode="interp")
        print(f"    {{{numbers(y)}, {d}, {points}, {order},\n     {numbers(nearest)},\n     {numbers(fitted)}}},")
    print("};\n")


def legendre(n, z):
    """P_n and its derivative at z."""
    before, p = mp.mpf(0), mp.mpf(1)
    for k in range(1, n + 1):
        before, p = p, ((2 * k - 1) * z * p - (k - 1) * before) / k
    return p, n * (z * p - before) / (z * z - 1)


def quadratures():
    mp.mp.dps = 40
    print("// n, nodes of [0, 1] ascending, their weights")
    print("const QuadratureCase kQuadratures[] = {")
    for n in (1, 2, 3, 5, 8, 20, 64, 101):
        nodes = []
        for i in range((n + 1) // 2):
            z = mp.cos(mp.pi * (i + mp.mpf("0.75")) / (n + mp.mpf("0.5")))
            for _ in range(12):
                value, slope = legendre(n, z)
                z -= value / slope
            nodes.append(z)
        nodes.sort()
        weights = [2 / ((1 - z * z) * legendre(n, z)[1] ** 2) for z in nodes]
        print(f"    {{{n}, {numbers(nodes)},\n     {numbers(weights)}}},")
    print("};")


print("// Made by tests/reference/sampled_curves.py.")
print("// clang-format off")
splines()
gaussians()
filters()
quadratures()
print("// clang-format on")
