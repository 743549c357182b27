#!/usr/bin/env python3
"""Draws the figures of the handbook's pages on estimates, tests and models: installed/Help/figures/NAME.svg.

The same bytes at every run; Python 3 and nothing else. The pictures keep to the features of SVG Tiny 1.2, and to shades
of grey that can be told apart on paper. Figures of data come from the sample files.
"""

import math
import pathlib
import random

ROOT = pathlib.Path(__file__).resolve().parent.parent
FIGURES = ROOT / "installed" / "Help" / "figures"
DATA = ROOT / "installed" / "Data"
FIRST_RECORD = 16  # of a data file; the line ahead of it holds the names
SEPARATOR = "\x01"

BLACK = "#000000"
DARK = "#444444"
MIDDLE = "#888888"
LIGHT = "#cccccc"
PALE = "#e8e8e8"


def number(value):
    text = f"{value:.1f}"
    return text[:-2] if text.endswith(".0") else text


def escaped(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


class Picture:
    def __init__(self, width, height):
        self.width = width
        self.height = height
        self._parts = []
        self.box(0, 0, width, height, fill="#ffffff")

    def box(self, x, y, width, height, fill="none", stroke="none"):
        self._parts.append(f'<rect x="{number(x)}" y="{number(y)}" width="{number(width)}" height="{number(height)}" '
                           f'fill="{fill}" stroke="{stroke}"/>')

    def line(self, x1, y1, x2, y2, stroke=BLACK, width=1.0, dashes=""):
        dashed = f' stroke-dasharray="{dashes}"' if dashes else ""
        self._parts.append(f'<line x1="{number(x1)}" y1="{number(y1)}" x2="{number(x2)}" y2="{number(y2)}" '
                           f'stroke="{stroke}" stroke-width="{number(width)}"{dashed}/>')

    def curve(self, points, stroke=BLACK, width=1.5, dashes=""):
        dashed = f' stroke-dasharray="{dashes}"' if dashes else ""
        self._parts.append(f'<polyline points="{self._points(points)}" fill="none" stroke="{stroke}" '
                           f'stroke-width="{number(width)}"{dashed}/>')

    def area(self, points, fill):
        self._parts.append(f'<polygon points="{self._points(points)}" fill="{fill}" stroke="none"/>')

    def dot(self, x, y, radius=3.0, fill=DARK, stroke="none"):
        self._parts.append(f'<circle cx="{number(x)}" cy="{number(y)}" r="{number(radius)}" fill="{fill}" '
                           f'stroke="{stroke}"/>')

    def text(self, x, y, text, anchor="middle", size=12, bold=False):
        weight = ' font-weight="bold"' if bold else ""
        self._parts.append(f'<text x="{number(x)}" y="{number(y)}" font-family="sans-serif" font-size="{size}"{weight} '
                           f'text-anchor="{anchor}" fill="{BLACK}">{escaped(text)}</text>')

    def write(self, name):
        head = (f'<?xml version="1.0" encoding="UTF-8"?>\n<svg xmlns="http://www.w3.org/2000/svg" version="1.2" '
                f'baseProfile="tiny" width="{self.width}" height="{self.height}" '
                f'viewBox="0 0 {self.width} {self.height}">\n')
        text = head + "\n".join(self._parts) + "\n</svg>\n"
        (FIGURES / f"{name}.svg").write_text(text, encoding="ascii", newline="\n")

    @staticmethod
    def _points(points):
        return " ".join(f"{number(x)},{number(y)}" for x, y in points)


class Axes:
    """A frame of a picture with scales of its own."""

    def __init__(self, picture, frame, x_range, y_range):
        self.picture = picture
        self.left, self.top, self.right, self.bottom = frame
        self.x_range = x_range
        self.y_range = y_range

    def x(self, value):
        low, high = self.x_range
        return self.left + (value - low) / (high - low) * (self.right - self.left)

    def y(self, value):
        low, high = self.y_range
        return self.bottom - (value - low) / (high - low) * (self.bottom - self.top)

    def at(self, x, y):
        return self.x(x), self.y(y)

    def draw(self, x_marks=(), y_marks=(), x_title="", y_title=""):
        self.picture.line(self.left, self.bottom, self.right, self.bottom)
        for value, text in x_marks:
            self.picture.line(self.x(value), self.bottom, self.x(value), self.bottom + 4)
            self.picture.text(self.x(value), self.bottom + 17, text, size=11)
        if y_marks or y_title:
            self.picture.line(self.left, self.top, self.left, self.bottom)
        for value, text in y_marks:
            self.picture.line(self.left - 4, self.y(value), self.left, self.y(value))
            self.picture.text(self.left - 7, self.y(value) + 4, text, anchor="end", size=11)
        if x_title:
            self.picture.text((self.left + self.right) / 2, self.bottom + 33, x_title)
        if y_title:
            self.picture.text(self.left - 30, self.top - 9, y_title, anchor="start")

    def function(self, function, low, high, steps=120):
        values = [low + (high - low) * step / steps for step in range(steps + 1)]
        return [self.at(value, function(value)) for value in values]

    def under(self, function, low, high):
        return [self.at(low, 0), *self.function(function, low, high), self.at(high, 0)]


def normal(mean, deviation=1.0):
    return lambda x: math.exp(-((x - mean) / deviation) ** 2 / 2) / (deviation * math.sqrt(2 * math.pi))


def student(df):
    factor = math.exp(math.lgamma((df + 1) / 2) - math.lgamma(df / 2)) / math.sqrt(df * math.pi)
    return lambda t: factor * (1 + t * t / df) ** (-(df + 1) / 2)


def column(file, name):
    """The numbers of a variable of a sample file."""
    lines = (DATA / file).read_bytes().decode("cp1252").replace("\r", "").split("\n")
    at = lines[FIRST_RECORD - 1].split(SEPARATOR).index(name)
    return [float(line.split(SEPARATOR)[at]) for line in lines[FIRST_RECORD:] if line]


def least_squares(x, y):
    x_mean, y_mean = sum(x) / len(x), sum(y) / len(y)
    slope = sum((a - x_mean) * (b - y_mean) for a, b in zip(x, y)) / sum((a - x_mean) ** 2 for a in x)
    return y_mean - slope * x_mean, slope


def marks(*values):
    return [(value, f"{value:g}") for value in values]


def draw_interval():
    """Twenty samples of 25 from a normal population; of the seeds from 1 on, the first with one interval that misses."""
    def intervals(seed):
        draw = random.Random(seed)
        found = []
        for _ in range(20):
            # A normal value as a sum of uniform ones: Random.random() alone is the same in every version.
            values = [100 + 10 * (sum(draw.random() for _ in range(12)) - 6) for _ in range(25)]
            mean = sum(values) / 25
            deviation = math.sqrt(sum((value - mean) ** 2 for value in values) / 24)
            half = 2.064 * deviation / 5
            found.append((mean - half, mean, mean + half))
        return found

    def missing(found):
        return sum(not low < 100 < high for low, _, high in found)

    found = next(drawn for drawn in map(intervals, range(1, 1000)) if missing(drawn) == 1)
    picture = Picture(500, 300)
    axes = Axes(picture, (30, 30, 470, 255), (88, 112), (0, 21))
    axes.draw(marks(90, 95, 100, 105, 110), x_title="Mean of the sample with its interval of 95 percent")
    picture.line(axes.x(100), 25, axes.x(100), axes.bottom, stroke=MIDDLE, dashes="5,4")
    picture.text(axes.x(100), 18, "true mean")
    for row, (low, mean, high) in enumerate(found, 1):
        misses = not low < 100 < high
        stroke = BLACK if misses else MIDDLE
        picture.line(axes.x(low), axes.y(row), axes.x(high), axes.y(row), stroke=stroke, width=3 if misses else 1.5)
        picture.dot(*axes.at(mean, row), radius=3, fill=stroke)
        if misses:
            picture.text(axes.x(high) + 6, axes.y(row) + 4, "misses", anchor="start", size=11)
    picture.write("interval")


def draw_pvalue():
    t = 1.915
    curve = student(58)
    picture = Picture(500, 250)
    axes = Axes(picture, (30, 25, 470, 200), (-4, 4), (0, 0.42))
    picture.area(axes.under(curve, -4, -t), LIGHT)
    picture.area(axes.under(curve, t, 4), LIGHT)
    picture.curve(axes.function(curve, -4, 4))
    for edge in (-t, t):
        picture.line(axes.x(edge), axes.y(curve(edge)), axes.x(edge), axes.bottom)
    axes.draw([(-t, "-1.915"), (0, "0"), (t, "1.915")], x_title="t, were there no difference (58 degrees of freedom)")
    picture.text(axes.x(-2.9), axes.y(0.075), ".0302")
    picture.text(axes.x(2.9), axes.y(0.075), ".0302")
    picture.text(470, 40, "p = .0302 + .0302 = .0604", anchor="end")
    picture.write("pvalue")


def draw_errors():
    limit, shift = 1.645, 2.6
    picture = Picture(500, 260)
    axes = Axes(picture, (20, 50, 480, 205), (-3.4, 6), (0, 0.42))
    picture.area(axes.under(normal(shift), -0.6, limit), PALE)
    picture.area(axes.under(normal(0), limit, 3.4), MIDDLE)
    picture.curve(axes.function(normal(0), -3.4, 3.8))
    picture.curve(axes.function(normal(shift), -1.2, 6), dashes="6,3")
    picture.line(axes.x(limit), 38, axes.x(limit), axes.bottom, width=1.5)
    axes.draw()
    picture.text(axes.x(limit), 30, "limit")
    picture.text(axes.x(-0.3), 46, "no difference")
    picture.text(axes.x(shift + 0.7), 46, "a difference in truth", anchor="start")
    picture.text(axes.x(limit) - 8, 222, "do not reject", anchor="end")
    picture.text(axes.x(limit) + 8, 222, "reject", anchor="start")
    picture.box(60, 238, 14, 11, fill=MIDDLE)
    picture.text(80, 248, "type I error (alpha)", anchor="start")
    picture.box(270, 238, 14, 11, fill=PALE, stroke=MIDDLE)
    picture.text(290, 248, "type II error (beta)", anchor="start")
    picture.write("errors")


def draw_many():
    def chance(tests):
        return 1 - 0.95 ** tests

    picture = Picture(500, 250)
    axes = Axes(picture, (60, 30, 475, 200), (0, 50), (0, 1))
    axes.draw(marks(1, 5, 10, 20, 30, 40, 50), [(share, f"{share:.1f}") for share in (0, 0.2, 0.4, 0.6, 0.8, 1)],
              "Number of independent tests at .05", "Chance of at least one false alarm")
    picture.curve(axes.function(chance, 1, 50))
    for tests in (1, 5, 10, 20, 50):
        picture.dot(*axes.at(tests, chance(tests)))
        text = f"{chance(tests):.2f}"[1:]
        aside, anchor = (-4, "end") if tests == 50 else (7, "start")
        picture.text(axes.x(tests) + aside, axes.y(chance(tests)) + (4 if tests == 1 else 15), text, anchor, size=11)
    picture.write("many")


def draw_effect():
    picture = Picture(510, 190)
    for panel, shift in enumerate((0.2, 0.5, 0.8)):
        axes = Axes(picture, (10 + panel * 170, 40, 160 + panel * 170, 150), (-3.2, 4), (0, 0.42))
        picture.curve(axes.function(normal(0), -3.2, 3.2, 60))
        picture.curve(axes.function(normal(shift), shift - 3.2, min(4, shift + 3.2), 60), stroke=MIDDLE, width=2.5)
        for mean, stroke in ((0, BLACK), (shift, MIDDLE)):
            picture.line(axes.x(mean), axes.y(0.399), axes.x(mean), axes.bottom, stroke=stroke, dashes="3,3")
        axes.draw()
        picture.text((axes.left + axes.right) / 2, 25, f"d = {shift:g}", bold=True)
        above = 0.5 * (1 + math.erf(shift / math.sqrt(2)))
        picture.text((axes.left + axes.right) / 2, 172, f"{100 * above:.0f} of 100 above the", size=11)
        picture.text((axes.left + axes.right) / 2, 185, "other group's mean", size=11)
    picture.write("effect")


def draw_choose():
    picture = Picture(520, 330)

    def leaf(y, condition, procedure):
        picture.text(222, y + 4, condition, anchor="start", size=11)
        picture.box(372, y - 10, 142, 20, stroke=MIDDLE)
        picture.text(443, y + 4, procedure, size=11)
        picture.line(350, y, 372, y, stroke=MIDDLE)

    def branch(y, title, leaves):
        picture.box(92, y - 15, 100, 30, fill=PALE, stroke=DARK)
        picture.text(142, y + 4, title)
        for at, (condition, procedure) in leaves:
            picture.line(192, y, 218, at, stroke=MIDDLE)
            leaf(at, condition, procedure)

    picture.text(6, 158, "What is", anchor="start", size=11)
    picture.text(6, 174, "the outcome?", anchor="start", size=11)
    picture.line(56, 146, 92, 92, stroke=MIDDLE)
    picture.line(56, 182, 92, 245, stroke=MIDDLE)
    branch(92, "measurement", zip(range(20, 170, 28), (
        ("a fixed value", "One-sample t-test"), ("two groups", "T-test"), ("the same cases", "Combine, Descriptives"),
        ("three groups or more", "One-Way ANOVA"), ("a measurement", "Correlation"), ("several variables", "Regression"))))
    branch(245, "category", zip(range(188, 330, 28), (
        ("a known share", "Z-Test"), ("groups", "Crosstabulation"), ("a second reader", "Agreement (Kappa)"),
        ("a graded test", "Diagnostic"), ("several variables", "Logistic"))))
    picture.write("choose")


def draw_paired():
    extra, drug = column("sleep.dcs", "EXTRA"), column("sleep.dcs", "DRUG")
    first = [value for value, code in zip(extra, drug) if code == 1]
    second = [value for value, code in zip(extra, drug) if code == 2]
    picture = Picture(420, 270)
    axes = Axes(picture, (60, 35, 400, 225), (0, 1), (-2, 6))
    axes.draw((), marks(-2, 0, 2, 4, 6), "", "Extra hours of sleep")
    picture.line(60, axes.y(0), 400, axes.y(0), stroke=LIGHT, dashes="4,4")
    for one, two in zip(first, second):
        picture.line(*axes.at(0.2, one), *axes.at(0.8, two), stroke=MIDDLE, width=1.5)
        picture.dot(*axes.at(0.2, one))
        picture.dot(*axes.at(0.8, two))
    picture.text(axes.x(0.2), 247, "drug A")
    picture.text(axes.x(0.8), 247, "drug B")
    picture.write("paired")


def draw_anova():
    offsets = (-1.5, -1.0, -0.5, 0, 0.4, 1.1, 1.5)  # they sum to 0
    picture = Picture(510, 230)
    for panel, (title, spread) in enumerate((("small spread within: large F", 0.5), ("large spread within: small F", 2.0))):
        axes = Axes(picture, (20 + panel * 250, 40, 240 + panel * 250, 190), (0, 4), (0, 12))
        axes.draw([(1, "A"), (2, "B"), (3, "C")])
        picture.text((axes.left + axes.right) / 2, 25, title)
        for group, mean in ((1, 4.5), (2, 6), (3, 7.5)):
            for step, offset in enumerate(offsets):
                aside = (step * 3 % 7 - 3) * 0.06
                picture.dot(*axes.at(group + aside, mean + spread * offset), fill=MIDDLE)
            picture.line(*axes.at(group - 0.35, mean), *axes.at(group + 0.35, mean), width=2.5)
    picture.text(255, 222, "The three means (lines) are the same on both sides.", size=11)
    picture.write("anova")


def draw_roc():
    test, disease = column("survey.dcs", "TEST"), column("survey.dcs", "DISEASE")
    ill = [result for result, truth in zip(test, disease) if truth == 1]
    healthy = [result for result, truth in zip(test, disease) if truth == 0]
    cuts = [(0, ""), (1, "above Low"), (2, "above Middle"), (3, "above High"), (4, "")]
    points = [(sum(result > cut for result in healthy) / len(healthy), sum(result > cut for result in ill) / len(ill))
              for cut, _ in cuts]
    picture = Picture(400, 330)
    axes = Axes(picture, (55, 35, 345, 280), (0, 1), (0, 1))
    picture.area([axes.at(x, y) for x, y in points] + [axes.at(1, 0)], PALE)
    picture.line(*axes.at(0, 0), *axes.at(1, 1), stroke=MIDDLE, dashes="5,4")
    picture.curve([axes.at(x, y) for x, y in points], width=2)
    fifths = [(step / 5, f"{step / 5:.1f}") for step in range(6)]
    axes.draw(fifths, fifths, "1 - specificity: false alarms among the healthy", "Sensitivity")
    for (x, y), (_, name) in zip(points, cuts):
        picture.dot(*axes.at(x, y))
        if name:
            picture.text(axes.x(x) + 8, axes.y(y) + 15, name, anchor="start", size=11)
    picture.text(axes.x(0.62), axes.y(0.36), "a coin: area .5", anchor="start", size=11)
    picture.write("roc")


def draw_anscombe():
    picture = Picture(510, 340)
    for panel in range(4):
        x, y = column("anscombe.dcs", f"X{panel + 1}"), column("anscombe.dcs", f"Y{panel + 1}")
        left, top = 35 + panel % 2 * 250, 30 + panel // 2 * 165
        axes = Axes(picture, (left, top, left + 210, top + 115), (3, 20), (2, 14))
        axes.draw(marks(5, 10, 15, 20), marks(5, 10))
        picture.line(left, top, left, axes.bottom)
        constant, slope = least_squares(x, y)
        picture.line(*axes.at(3, constant + 3 * slope), *axes.at(20, constant + 20 * slope), stroke=MIDDLE)
        for a, b in zip(x, y):
            picture.dot(*axes.at(a, b))
        picture.text(left + 105, top - 10, f"Set {panel + 1}: r = .82", bold=True)
    picture.write("anscombe")


def draw_residuals():
    height, weight = column("women.dcs", "HEIGHT"), column("women.dcs", "WEIGHT")
    constant, slope = least_squares(height, weight)
    picture = Picture(510, 240)
    left = Axes(picture, (45, 35, 240, 185), (57, 73), (110, 170))
    left.draw(marks(60, 65, 70), marks(120, 140, 160), "Height in inches", "Weight in pounds")
    picture.line(*left.at(57, constant + 57 * slope), *left.at(73, constant + 73 * slope), stroke=MIDDLE, width=1.5)
    right = Axes(picture, (305, 35, 500, 185), (57, 73), (-4, 4))
    right.draw(marks(60, 65, 70), marks(-4, -2, 0, 2, 4), "Height in inches", "Residual in pounds")
    picture.line(right.left, right.y(0), right.right, right.y(0), stroke=MIDDLE, dashes="5,4")
    for x, y in zip(height, weight):
        picture.dot(*left.at(x, y))
        residual = y - constant - slope * x
        picture.line(*right.at(x, 0), *right.at(x, residual), stroke=LIGHT)
        picture.dot(*right.at(x, residual))
    picture.write("residuals")


def draw_logistic():
    def probability(smokes):
        return lambda age: 1 / (1 + math.exp(7.6561 - 0.0914 * age - 1.4470 * smokes))

    picture = Picture(500, 260)
    axes = Axes(picture, (55, 35, 400, 210), (18, 85), (0, 1))
    axes.draw(marks(20, 30, 40, 50, 60, 70, 80), [(step / 5, f"{step / 5:.1f}") for step in range(6)], "Age in years",
              "Probability of the disease")
    for smokes, name, dashes in ((1, "smokers", ""), (0, "others", "6,3")):
        curve = probability(smokes)
        picture.curve(axes.function(curve, 18, 85), width=2, dashes=dashes)
        picture.text(axes.right + 8, axes.y(curve(85)) + 4, name, anchor="start")
        picture.dot(*axes.at(60, curve(60)))
        picture.text(axes.x(60) - 6, axes.y(curve(60)) - 7, f"{curve(60):.2f}"[1:], anchor="end", size=11)
    picture.line(axes.x(60), axes.y(probability(1)(60)), axes.x(60), axes.bottom, stroke=MIDDLE, dashes="3,3")
    picture.write("logistic")


def draw_margin():
    def points(cases):
        return 196 * math.sqrt(0.25 / cases)

    picture = Picture(500, 250)
    axes = Axes(picture, (60, 30, 470, 200), (0, 2500), (0, 14))
    axes.draw(marks(0, 500, 1000, 1500, 2000, 2500), marks(0, 4, 8, 12), "Cases in the sample",
              "Margin of error in percentage points (95 percent, share of one half)")
    picture.curve(axes.function(points, 50, 2500, 240))
    for cases in (100, 400, 1000, 2000):
        picture.dot(*axes.at(cases, points(cases)))
        picture.text(axes.x(cases) + 6, axes.y(points(cases)) - 5, f"{points(cases):.1f}", anchor="start", size=11)
    picture.write("share-margin")


def main():
    FIGURES.mkdir(exist_ok=True)
    for draw in (draw_interval, draw_pvalue, draw_errors, draw_many, draw_effect, draw_choose, draw_paired, draw_anova,
                 draw_roc, draw_anscombe, draw_residuals, draw_logistic, draw_margin):
        draw()


if __name__ == "__main__":
    main()
