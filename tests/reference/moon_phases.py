#!/usr/bin/env python3
"""Phases of the moon for the test of tMoonPhases: writes tests/core/moon_phases_reference.inc.

The series of J. Meeus, Astronomical Algorithms, 2nd edition, chapter 49, without the planetary
terms (0.0007 days at most). Checked against the two examples of that chapter before anything is
written.
"""
import math
import pathlib

OUT = pathlib.Path(__file__).resolve().parent.parent / "core" / "moon_phases_reference.inc"

# (multiple of M, of M', of F, of Omega, power of E): coefficient in days
NEW = {
    (0, 1, 0, 0, 0): -0.40720, (1, 0, 0, 0, 1): 0.17241, (0, 2, 0, 0, 0): 0.01608,
    (0, 0, 2, 0, 0): 0.01039, (-1, 1, 0, 0, 1): 0.00739, (1, 1, 0, 0, 1): -0.00514,
    (2, 0, 0, 0, 2): 0.00208, (0, 1, -2, 0, 0): -0.00111, (0, 1, 2, 0, 0): -0.00057,
    (1, 2, 0, 0, 1): 0.00056, (0, 3, 0, 0, 0): -0.00042, (1, 0, 2, 0, 1): 0.00042,
    (1, 0, -2, 0, 1): 0.00038, (-1, 2, 0, 0, 1): -0.00024, (0, 0, 0, 1, 0): -0.00017,
}
FULL = dict(NEW)
FULL.update({
    (0, 1, 0, 0, 0): -0.40614, (1, 0, 0, 0, 1): 0.17302, (0, 2, 0, 0, 0): 0.01614,
    (0, 0, 2, 0, 0): 0.01043, (-1, 1, 0, 0, 1): 0.00734, (1, 1, 0, 0, 1): -0.00515,
    (2, 0, 0, 0, 2): 0.00209,
})
QUARTER = {
    (0, 1, 0, 0, 0): -0.62801, (1, 0, 0, 0, 1): 0.17172, (1, 1, 0, 0, 1): -0.01183,
    (0, 2, 0, 0, 0): 0.00862, (0, 0, 2, 0, 0): 0.00804, (-1, 1, 0, 0, 1): 0.00454,
    (2, 0, 0, 0, 2): 0.00204, (0, 1, -2, 0, 0): -0.00180, (0, 1, 2, 0, 0): -0.00070,
    (0, 3, 0, 0, 0): -0.00040, (-1, 2, 0, 0, 1): -0.00034, (1, 0, 2, 0, 1): 0.00032,
    (1, 0, -2, 0, 1): 0.00032, (2, 1, 0, 0, 2): -0.00028, (1, 2, 0, 0, 1): 0.00027,
    (0, 0, 0, 1, 0): -0.00017,
}
KIND = {0: NEW, 1: QUARTER, 2: FULL, 3: QUARTER}


def phase_moment(k):
    """Julian ephemeris day; k counts lunations from the new moon of 6 January 2000."""
    phase = round(4 * (k - math.floor(k)))
    t = k / 1236.85
    mean = (2451550.09766 + 29.530588861 * k + 0.00015437 * t**2 - 0.00000015 * t**3
            + 0.00000000073 * t**4)
    e = 1 - 0.002516 * t - 0.0000074 * t**2
    m = 2.5534 + 29.1053567 * k - 0.0000014 * t**2 - 0.00000011 * t**3
    mp = 201.5643 + 385.81693528 * k + 0.0107582 * t**2 + 0.00001238 * t**3 - 0.000000058 * t**4
    f = 160.7108 + 390.67050284 * k - 0.0016118 * t**2 - 0.00000227 * t**3 + 0.000000011 * t**4
    o = 124.7746 - 1.56375588 * k + 0.0020672 * t**2 + 0.00000215 * t**3
    correction = sum(c * e**p * math.sin(math.radians(a * m + b * mp + g * f + h * o))
                     for (a, b, g, h, p), c in KIND[phase].items())
    if phase % 2:
        w = (0.00306 - 0.00038 * e * math.cos(math.radians(m)) + 0.00026 * math.cos(math.radians(mp))
             - 0.00002 * math.cos(math.radians(mp - m)) + 0.00002 * math.cos(math.radians(mp + m))
             + 0.00002 * math.cos(math.radians(2 * f)))
        correction += w if phase == 1 else -w
    return mean + correction


def main():
    assert abs(phase_moment(-283) - 2443192.65118) < 0.001      # example 49.a, new moon
    assert abs(phase_moment(544.75) - 2467636.49186) < 0.001    # example 49.b, last quarter
    rows = []
    for lunation in range(0, 2475, 11):                         # 1900 to 2100
        phases = range(4) if lunation % 2 else range(3, -1, -1)
        rows += [(lunation, p, phase_moment(lunation - 1237 + p / 4)) for p in phases]
    lines = [f"{{{n}, {p}, {jd:.4f}}}," for n, p, jd in rows]
    OUT.write_text("// Made by tests/reference/moon_phases.py: lunation from 1900, phase, Julian day.\n"
                   + "\n".join(lines) + "\n", encoding="utf-8")
    print(len(rows), "phases")


if __name__ == "__main__":
    main()
