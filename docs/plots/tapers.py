#!/usr/bin/env python3
"""Draws the soft functions and tapers of the built library, for docs/tapers.md.

usage: python3 docs/plots/tapers.py LIBRARY [FOLDER]

LIBRARY is the shared library of a build; its own functions are called, so the pictures show what it
does. FOLDER, this one by default, takes one SVG file for each picture.
"""
import ctypes
import math
import pathlib
import sys

WIDTH, HEIGHT = 720, 412
LEFT, RIGHT, TOP, BOTTOM = 56, 16, 52, 40
POINTS = 601
COLOURS = ("#0072b2", "#d55e00", "#009e73", "#cc79a7", "#7a6a00", "#444444")


def callable_of(library, name, count):
    function = getattr(library, name)
    function.restype = ctypes.c_double
    function.argtypes = [ctypes.c_double] * count
    return function


class Curve:
    """name(x, *parameters), labelled by that call."""

    def __init__(self, name, *parameters, dashed=False, jumps=True):
        self.name, self.parameters, self.dashed, self.jumps = name, parameters, dashed, jumps
        self.label = f"{name}({', '.join(['x', *(f'{p:g}' for p in parameters)])})"

    def values(self, library, xs):
        function = callable_of(library, self.name, 1 + len(self.parameters))
        return [function(x, *self.parameters) for x in xs]


class Picture:
    def __init__(self, title, x_range, y_range, x_ticks, y_ticks, curves, logarithmic=False, guides=(), corner="right",
                 jump=None):
        self.title, self.x_range, self.y_range = title, x_range, y_range
        self.x_ticks, self.y_ticks, self.curves = x_ticks, y_ticks, curves
        self.logarithmic, self.guides, self.corner, self.jump = logarithmic, guides, corner, jump

    def place_x(self, x):
        low, high = self.x_range
        share = math.log(x / low) / math.log(high / low) if self.logarithmic else (x - low) / (high - low)
        return LEFT + share * (WIDTH - LEFT - RIGHT)

    def place_y(self, y):
        low, high = self.y_range
        return HEIGHT - BOTTOM - (y - low) / (high - low) * (HEIGHT - TOP - BOTTOM)

    def xs(self):
        low, high = self.x_range
        for i in range(POINTS):
            share = i / (POINTS - 1)
            yield low * (high / low)**share if self.logarithmic else low + share * (high - low)

    def svg(self, library):
        parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}" '
                 f'viewBox="0 0 {WIDTH} {HEIGHT}" font-family="sans-serif" font-size="13" fill="#222">',
                 f'<title>{self.title}</title>', f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#fff"/>',
                 f'<text x="{LEFT}" y="22" font-size="15">{self.title}</text>']
        parts += self.axes() + self.lines(library) + self.legend()
        return "\n".join(parts + ["</svg>", ""])

    def axes(self):
        bottom, top = self.place_y(self.y_range[0]), self.place_y(self.y_range[1])
        left, right = self.place_x(self.x_range[0]), self.place_x(self.x_range[1])
        parts = []
        for x in self.x_ticks:
            at = self.place_x(x)
            parts.append(f'<path d="M{at:.1f} {bottom:.1f}V{top:.1f}" stroke="#e4e4e4"/>')
            parts.append(f'<text x="{at:.1f}" y="{bottom + 18:.1f}" text-anchor="middle">{x:g}</text>')
        for y in self.y_ticks:
            at = self.place_y(y)
            parts.append(f'<path d="M{left:.1f} {at:.1f}H{right:.1f}" stroke="#e4e4e4"/>')
            parts.append(f'<text x="{left - 8:.1f}" y="{at + 4.5:.1f}" text-anchor="end">{y:g}</text>')
        for x, text in self.guides:
            at = self.place_x(x)
            parts.append(f'<path d="M{at:.1f} {bottom:.1f}V{top:.1f}" stroke="#999" stroke-dasharray="2 3"/>')
            parts.append(f'<text x="{at:.1f}" y="{top - 6:.1f}" text-anchor="middle" fill="#666">{text}</text>')
        parts.append(f'<rect x="{left:.1f}" y="{top:.1f}" width="{right - left:.1f}" height="{bottom - top:.1f}" '
                     'fill="none" stroke="#888"/>')
        parts.append(f'<text x="{right:.1f}" y="{HEIGHT - 6}" text-anchor="end" font-style="italic">x</text>')
        return parts

    def lines(self, library):
        parts = []
        xs = list(self.xs())
        for curve, colour in zip(self.curves, COLOURS):
            # A new piece begins after a value that is not a number, and where the function jumps.
            path, pen = [], "M"
            for x, y in zip(xs, curve.values(library, xs)):
                if x == self.jump and curve.jumps:
                    pen = "M"
                if math.isfinite(y):
                    path.append(f"{pen}{self.place_x(x):.1f} {self.place_y(y):.1f}")
                    pen = "L"
                else:
                    pen = "M"
            dash = ' stroke-dasharray="7 4"' if curve.dashed else ""
            parts.append(f'<path d="{"".join(path)}" fill="none" stroke="{colour}" stroke-width="2"{dash}/>')
        return parts

    def legend(self):
        longest = max(len(curve.label) for curve in self.curves)
        width = 44 + 7.0 * longest
        x = WIDTH - RIGHT - 8 - width if self.corner == "right" else LEFT + 8
        height = 8 + 18 * len(self.curves)
        parts = [f'<rect x="{x:.1f}" y="{TOP + 8}" width="{width:.1f}" height="{height}" fill="#fff" '
                 'fill-opacity="0.85" stroke="#ccc"/>']
        for i, (curve, colour) in enumerate(zip(self.curves, COLOURS)):
            y = TOP + 21 + 18 * i
            dash = ' stroke-dasharray="7 4"' if curve.dashed else ""
            parts.append(f'<path d="M{x + 8:.1f} {y}h24" stroke="{colour}" stroke-width="2"{dash}/>')
            parts.append(f'<text x="{x + 38:.1f}" y="{y + 4}" font-family="monospace" font-size="11.5">{curve.label}</text>')
        return parts


UNIT = (0, 0.25, 0.5, 0.75, 1)
PICTURES = {
    "soft_steps": Picture(
        "Soft steps", (-6, 6), (-0.05, 1.45), range(-6, 7, 2), UNIT,
        [Curve("rSoftStepUpL", 1), Curve("rSoftStepUpG", 1, 0), Curve("rSoftStepDownL", 1, dashed=True),
         Curve("rSoftStepDownG", 1, dashed=True)], guides=((-1, "-w"), (1, "w"))),
    "soft_rectangles": Picture(
        "Windows with soft edges", (-8, 8), (-0.05, 1.45), range(-8, 9, 2), UNIT,
        [Curve("rSoftEdgedRectL", -2, 2, 2, 0.5), Curve("rSoftEdgedRectG", -2, 2, 2, 0.5, 0.01),
         Curve("rSoftEdgedRectL", -2, 2, 1, 0, dashed=True)], guides=((-2, "a"), (2, "b"))),
    "bumps": Picture(
        "Bumps: one form, transformed once and twice", (-8, 8), (-0.05, 1.45), range(-8, 9, 2), UNIT,
        [Curve("rBumpL", 4, 1), Curve("rSoftEdgedRectG", -2, 2, 1, 1, 0.01), Curve("rBumpG", 4, 1, 0),
         Curve("rBumpG", 4, 1, 0.2, dashed=True)], guides=((-2, "-width/2"), (2, "width/2"))),
    "relative_bumps": Picture(
        "Bumps on a relative scale", (0.5, 200), (-0.05, 1.45), (0.5, 1, 2, 5, 10, 20, 50, 100, 200), UNIT,
        [Curve("rBumpReledgeL", 10, 1), Curve("rBumpReledgeG", 10, 1, 0.01), Curve("rBumpReledgeL", 10, 0.25, dashed=True),
         Curve("rBumpReledgeG", 10, 0.25, 0.01, dashed=True)], logarithmic=True, guides=((5, "centre/2"), (20, "2 centre"))),
    "thresholds": Picture(
        "Thresholds", (1, 100), (-0.05, 1.45), (1, 2, 5, 10, 20, 50, 100), UNIT,
        [Curve("rThresholdL", 5, 10, 30, 3), Curve("rThresholdG", 5, 10, 30, 3, 0.01),
         Curve("rThresholdL", 5, 10, 30, 1, dashed=True), Curve("rThresholdRelL", 10, 0.25, dashed=True)],
        logarithmic=True, guides=((5, "low"), (10, "mid"), (30, "high")), corner="left"),
    "bound_tapers": Picture(
        "Tapers towards bounds", (-10, 10), (-10.5, 10.5), range(-10, 11, 2), range(-10, 11, 2),
        [Curve("rSmoothLoBoundTaper", 1, 2), Curve("rSmoothHiBoundTaper", 6, 2, jumps=False), Curve("rSmoothHiAndLoBoundsTaper", 1, 6, 2, dashed=True),
         Curve("rSmoothIntervalTaper", 1, 6, 0.25)], jump=0, corner="left"),
    "low_taper": Picture(
        "The low taper near zero, bound 1", (0, 4), (0, 4.2), (0, 1, 2, 3, 4), (0, 1, 2, 3, 4),
        [Curve("rSmoothLoBoundTaper", 1, f, dashed=f < 2) for f in (1, 1.5, 2, 3)], corner="left"),
    "peaks": Picture(
        "Lorentzian peaks", (-8, 8), (-0.05, 1.45), range(-8, 9, 2), UNIT,
        [Curve("rLorentzianPeak", 0, 1, 1), Curve("rLorentzianPeak", 0, 0.5, 1), Curve("rBiLorentzianPeak", -3, 0, 1, dashed=True)]),
}


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    library = ctypes.CDLL(str(pathlib.Path(sys.argv[1]).resolve()), mode=1)
    folder = pathlib.Path(sys.argv[2]) if len(sys.argv) == 3 else pathlib.Path(__file__).parent
    for name, picture in PICTURES.items():
        (folder / f"{name}.svg").write_text(picture.svg(library), encoding="utf-8")
        print(folder / f"{name}.svg")


if __name__ == "__main__":
    main()
