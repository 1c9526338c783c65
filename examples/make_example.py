#!/usr/bin/env python3
"""Makes the example experiment: ffc_example.sdf, a fast-field-cycling measurement as an instrument
of the classic Stelar layout would have written it, and known_rates.csv, the rates put into it.

The sample relaxes by one rotational motion (Bloembergen, Purcell, Pound, Phys. Rev. 73, 679 (1948))
over a constant rate:

  R1(nu) = R_inf + C * (J(w) + 4 J(2 w)),  J(w) = 1 / (1 + (w t)^2),  w = 2 pi nu

Twelve zones, logarithmic in the relaxation field. Below 6 MHz they are prepolarized (PP/S): the
magnetization decays from the polarization field's value to the relaxation field's. Above they start
from zero (NP/S) and grow. Each zone has 16 delays between 4 T1MX and T1MX / 100, T1MX being an
operator's guess of T1 (two digits), written as formulas, and 64 points of a decaying free induction
signal for each delay, with Gaussian noise of a fixed seed. The same run gives the same bytes.
"""
import argparse
import math
import pathlib
import random
import sys

FOLDER = pathlib.Path(__file__).resolve().parent

R_INF = 2.0     # 1/s
C = 9.0         # 1/s
TAU_C = 60e-9   # s

ZONES = 12
LOWEST, HIGHEST = 0.01, 20.0   # MHz, proton Larmor frequency at the relaxation field
CROSSOVER = 6.0                # MHz, PP/S below and NP/S above
POLARIZATION = 25.0            # MHz
ACQUISITION = 16.2             # MHz

BLOCKS = 16
POINTS = 64
DWELL = 1.0          # us
DEAD_TIME = 14e-6    # s, time of the first point
T2_STAR = 150e-6     # s
OFFSET = 4000.0      # Hz
PHASE = 0.6          # rad
FULL_SCALE = 8000.0  # signal of the magnetization in the polarization field, in units of the file
NOISE = 25.0         # standard deviation of each quadrature channel, the same units
VFAC = 0.125
SEED = 20240601


def rate(field):
    """R1 in 1/s at a field in MHz."""
    w = 2e6 * math.pi * field
    spectral_density = lambda u: 1.0 / (1.0 + (u * TAU_C) ** 2)
    return R_INF + C * (spectral_density(w) + 4.0 * spectral_density(2.0 * w))


def field_of_zone(index):
    return LOWEST * (HIGHEST / LOWEST) ** (index / (ZONES - 1))


def delays(t1_guess):
    """The block axis from BINI = 4 T1MX to BEND = 0.01 T1MX, logarithmic."""
    first, last = 4.0 * t1_guess, 0.01 * t1_guess
    return [first * (last / first) ** (k / (BLOCKS - 1)) for k in range(BLOCKS)]


def magnetization(field, prepolarized, tau):
    """As a fraction of the equilibrium magnetization in the polarization field."""
    equilibrium = field / POLARIZATION
    start = 1.0 if prepolarized else 0.0
    return equilibrium + (start - equilibrium) * math.exp(-rate(field) * tau)


def noise(source):
    """One Gaussian number by Box and Muller from two uniform ones."""
    radius = math.sqrt(-2.0 * math.log(1.0 - source.random()))
    return NOISE * radius * math.cos(2.0 * math.pi * source.random())


def block_lines(amplitude, source):
    for k in range(POINTS):
        t = DEAD_TIME + 1e-6 * DWELL * k
        size = FULL_SCALE * amplitude * math.exp(-t / T2_STAR)
        angle = 2.0 * math.pi * OFFSET * t + PHASE
        real = size * math.cos(angle) + noise(source)
        imaginary = size * math.sin(angle) + noise(source)
        yield f"{round(real)}\t{round(imaginary)}"


def zone_parameters(number, field, prepolarized, t1_guess):
    return [
        ("ZONE", number), ("USER", "example"), ("SMPL", "one-motion model liquid"),
        ("EXP ", f"{'PP' if prepolarized else 'NP'}/S [made by make_example.py]"),
        ("EXPT", 0), ("TEMP", 298), ("RD  ", 0.5), ("TAU ", "(0.01*T1MX)"), ("T1MX", t1_guess),
        ("SWT ", 0.003), ("TPOL", 0.5), ("BPOL", POLARIZATION), ("BRLX", f"{field:.9g}"),
        ("BACQ", ACQUISITION), ("NUC ", "1H"), ("SF  ", ACQUISITION), ("NS  ", 1), ("BS  ", POINTS),
        ("SW  ", 1000000), ("DW  ", DWELL), ("FOFF", OFFSET), ("NBLK", BLOCKS), ("DBLK", 0),
        ("BACR", "TAU"), ("BGRD", "LOG"), ("BINI", "(4*T1MX)"), ("BEND", "(0.01*T1MX)"),
        ("NGRP", 0), ("VFAC", VFAC), ("XOFF", f"{DEAD_TIME:.9g}"), ("TDOM", 1), ("DATA", 0),
    ]


def zone_lines(index, source):
    field = field_of_zone(index)
    prepolarized = field < CROSSOVER
    t1_guess = float(f"{1.0 / rate(field):.2g}")
    for key, value in zone_parameters(index + 1, field, prepolarized, t1_guess):
        yield f"{key}=\t{value}"
    for tau in delays(t1_guess):
        yield from block_lines(magnetization(field, prepolarized, tau), source)
    yield ""


def main():
    parser = argparse.ArgumentParser(description="Makes the example experiment.")
    parser.add_argument("--check", action="store_true", help="only compare with the files there")
    args = parser.parse_args()
    source = random.Random(SEED)
    lines = ["STELAR Data File", ""]
    rates = ["zone,sequence,BRLX_MHz,R1_per_s"]
    for index in range(ZONES):
        field = field_of_zone(index)
        lines += zone_lines(index, source)
        sequence = "PP/S" if field < CROSSOVER else "NP/S"
        rates.append(f"{index + 1},{sequence},{field:.9g},{rate(field):.6g}")
    stale = False
    for name, rows in (("ffc_example.sdf", lines), ("known_rates.csv", rates)):
        path, content = FOLDER / name, ("\n".join(rows) + "\n").encode("ascii")
        if not args.check:
            path.write_bytes(content)
        elif not path.exists() or path.read_bytes() != content:
            print(f"{path} is not what make_example.py makes")
            stale = True
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main())
