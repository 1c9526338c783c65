#!/usr/bin/env python3
"""Makes tests/core/real_printing_reference.inc: what RealToBuffer writes.

The digits come from repeated division, floor and multiplication in doubles, and the text depends on
each rounding of these steps. So the steps are repeated here in Python's doubles, and each result is
held against the exact value in rationals: its error must stay within the roundings of the steps.

usage: python3 tests/reference/real_printing.py > tests/core/real_printing_reference.inc
"""
import math
import random
from fractions import Fraction

DIGITS = "0123456789ABCDEF"


def integer(value, radix):
    text = ""
    magnitude = abs(value)
    while True:
        text = DIGITS[magnitude % radix & 15] + text
        magnitude //= radix
        if magnitude == 0:
            return ("-" if value < 0 else "") + text


def printed(value, digits, radix):
    if abs(value) < 2.0**-1024:
        return "0"
    exponent, mantissa = 0, abs(value)
    while mantissa >= radix:
        mantissa /= radix
        exponent += 1
    while mantissa < 1.0:
        mantissa *= radix
        exponent -= 1
    if digits == 0:
        digits = math.floor(-math.log(2.0**-52) / math.log(radix))
    text = ""
    exact = Fraction(0)
    for place in range(digits):
        digit = math.floor(mantissa)
        text += DIGITS[digit & 15]
        exact += Fraction(digit) * Fraction(radix) ** (exponent - place)
        mantissa = (mantissa - digit) * radix
    if radix <= 16:
        steps = abs(exponent) + 4
        error = abs(exact - abs(Fraction(value)))
        unit = Fraction(radix) ** (exponent - digits + 1)
        assert error <= unit + abs(Fraction(value)) * steps * Fraction(2) ** -52, value
    sign = "-" if value < 0 else ""
    if exponent < -3 or exponent >= digits:
        return sign + text[0] + "." + text[1:] + ("e" if radix == 10 else "_") + integer(exponent, radix)
    if exponent < 0:
        return sign + "0." + "0" * (-exponent - 1) + text
    return sign + text[: exponent + 1] + "." + text[exponent + 1 :]


rng = random.Random(3)
values = [1.0, 0.1, 1.5, 0.0625, 1e6, 123456.789, 9.999999999999998, 1e-3, 9.99e-4, 1e-4, 1e22, 1e23,
          2.0**-1024, 5e-324, 1.7976931348623157e308, 2.2250738585072014e-308, 0.0, -0.0, 1 / 3,
          math.pi, 255.0, 4096.0, 99999.5]
values += [rng.uniform(-1000, 1000) for _ in range(60)]
values += [rng.uniform(1, 10) * 10.0 ** rng.randint(-300, 300) for _ in range(120)]

print("// {value, digits, radix, text}; made by tests/reference/real_printing.py")
print("constexpr PrintedReal kPrintedReals[] = {")
for value in values:
    for _ in range(3):
        digits = rng.choice([0, 1, 2, 3, 6, 10, 15, 17, 20])
        radix = rng.choice([10, 10, 10, 2, 3, 7, 8, 16, 36])
        text = printed(value, digits, radix)
        print("    {%s, %d, %d, \"%s\"}," % (value.hex(), digits, radix, text))
print("};")
