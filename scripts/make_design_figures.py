#!/usr/bin/env python3
"""Writes the figures of the handbook on questions, designs, samples and data into installed/Help/figures.

The pictures keep to what SVG Tiny 1.2 has: no style sheets, filters, clip paths or markers. Curves are computed;
numbers that stand in a picture are those of the sample data. It needs Python 3 and nothing else.
"""

import html
import math
import pathlib

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "installed" / "Help" / "figures"
INK = "#222222"
GREY = "#777777"
PALE = "#dddddd"
BLUE = "#1f5f99"
ORANGE = "#b85c00"


def number(value):
    return f"{value:.1f}".rstrip("0").rstrip(".")


class Figure:
    """A drawing on a white ground, measured in pixels from the upper left corner."""

    def __init__(self, width, height):
        self.width = width
        self.height = height
        self.parts = []
        self.box(0, 0, width, height, fill="#ffffff", stroke="none")

    def add(self, tag, content=None, **attributes):
        pairs = "".join(f' {name.replace("_", "-")}="{value}"' for name, value in attributes.items())
        self.parts.append(f"<{tag}{pairs}/>" if content is None else f"<{tag}{pairs}>{html.escape(content)}</{tag}>")

    def box(self, x, y, width, height, fill="#ffffff", stroke=INK, line=1):
        self.add("rect", x=number(x), y=number(y), width=number(width), height=number(height), fill=fill,
                 stroke=stroke, stroke_width=line)

    def line(self, x1, y1, x2, y2, stroke=INK, line=1, dash=None):
        more = {"stroke_dasharray": dash} if dash else {}
        self.add("line", x1=number(x1), y1=number(y1), x2=number(x2), y2=number(y2), stroke=stroke,
                 stroke_width=line, **more)

    def curve(self, points, stroke=INK, line=2, fill="none", dash=None):
        more = {"stroke_dasharray": dash} if dash else {}
        self.add("polyline", points=" ".join(f"{number(x)},{number(y)}" for x, y in points), fill=fill,
                 stroke=stroke, stroke_width=line, **more)

    def area(self, points, fill):
        self.add("polygon", points=" ".join(f"{number(x)},{number(y)}" for x, y in points), fill=fill, stroke="none")

    def dot(self, x, y, radius=4, fill=INK, stroke="none"):
        self.add("circle", cx=number(x), cy=number(y), r=number(radius), fill=fill, stroke=stroke)

    def text(self, x, y, words, size=13, anchor="middle", fill=INK, weight="normal"):
        self.add("text", words, x=number(x), y=number(y), font_family="sans-serif", font_size=size,
                 font_weight=weight, text_anchor=anchor, fill=fill)

    def arrow(self, x1, y1, x2, y2, stroke=INK, line=1.5, dash=None):
        """A line whose head, a triangle, ends at the second point."""
        length = math.hypot(x2 - x1, y2 - y1)
        along = ((x2 - x1) / length, (y2 - y1) / length)
        foot = (x2 - 9 * along[0], y2 - 9 * along[1])
        self.line(x1, y1, *foot, stroke=stroke, line=line, dash=dash)
        side = (-along[1] * 4, along[0] * 4)
        self.area([(x2, y2), (foot[0] + side[0], foot[1] + side[1]), (foot[0] - side[0], foot[1] - side[1])], stroke)

    def label_box(self, x, y, width, height, *lines, fill="#ffffff", size=13):
        """A box with lines of text in its middle."""
        self.box(x, y, width, height, fill=fill)
        first = y + height / 2 - (len(lines) - 1) * (size + 3) / 2 + size * 0.36
        for i, words in enumerate(lines):
            self.text(x + width / 2, first + i * (size + 3), words, size=size)

    def write(self, name):
        head = (f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" width="{self.width}" '
                f'height="{self.height}" viewBox="0 0 {self.width} {self.height}">')
        text = "\n".join([head, *self.parts, "</svg>"]) + "\n"
        (FOLDER / f"{name}.svg").write_text(text, encoding="ascii", newline="\n")


def bell(z):
    return math.exp(-z * z / 2)


def roles():
    figure = Figure(460, 200)
    figure.label_box(165, 15, 130, 46, "Confounder", "sex", fill=PALE)
    figure.label_box(15, 130, 140, 46, "Independent", "class of travel")
    figure.label_box(305, 130, 140, 46, "Dependent", "survival")
    figure.arrow(157, 153, 303, 153, stroke=BLUE, line=2)
    figure.text(230, 170, "the question", size=12, fill=BLUE)
    figure.arrow(178, 63, 100, 127)
    figure.arrow(282, 63, 360, 127)
    figure.write("roles")


TARGETS = [
    ("Reliable and valid", [(-4, -3), (5, 2), (0, 6), (2, -6), (-6, 3), (6, -4)]),
    ("Reliable, not valid", [(18, -22), (25, -17), (21, -14), (27, -24), (16, -16), (22, -20)]),
    ("Right on average only", [(-30, 12), (26, -18), (8, 31), (-12, -30), (33, 14), (-22, -6)]),
    ("Neither", [(38, -5), (12, -36), (35, -32), (4, -8), (30, 17), (-3, -30)]),
]


def targets():
    figure = Figure(520, 160)
    for i, (caption, shots) in enumerate(TARGETS):
        x, y = 65 + i * 130, 70
        for radius in (50, 34, 18):
            figure.dot(x, y, radius, fill="#ffffff" if radius != 34 else "#eeeeee", stroke=GREY)
        figure.line(x - 4, y, x + 4, y, stroke=GREY)
        figure.line(x, y - 4, x, y + 4, stroke=GREY)
        for dx, dy in shots:
            figure.dot(x + dx, y + dy, 3.5, fill=BLUE)
        figure.text(x, 148, caption, size=12)
    figure.write("targets")


def designs():
    figure = Figure(520, 250)
    figure.label_box(150, 10, 220, 40, "Do you set the treatment?")
    figure.label_box(20, 95, 210, 40, "Does chance form the groups?")
    figure.label_box(290, 95, 210, 40, "Do you follow people in time?")
    figure.arrow(220, 50, 130, 93)
    figure.arrow(300, 50, 390, 93)
    figure.text(155, 72, "yes", size=12)
    figure.text(365, 72, "no", size=12)
    ends = [(10, "Experiment"), (137, "Quasi-experiment"), (264, "Cohort study"), (391, "Cross-section,")]
    for i, (x, words) in enumerate(ends):
        lines = (words, "case-control") if i == 3 else (words,)
        figure.label_box(x, 185, 119, 44, *lines, fill=PALE, size=12)
        start = (85, 165, 355, 435)[i]
        figure.arrow(start, 135, x + 60, 183)
        words, aside = ("yes", -18) if i % 2 == 0 else ("no", 18)
        figure.text((start + x + 60) / 2 + aside, 162, words, size=12)
    figure.write("designs")


def experiment():
    figure = Figure(520, 190)
    figure.label_box(10, 75, 100, 44, "All", "participants")
    figure.dot(165, 97, 28, fill=PALE, stroke=INK)
    figure.text(165, 101, "chance", size=12)
    figure.arrow(110, 97, 135, 97)
    for y, words in ((25, "Treatment"), (125, "Comparison")):
        figure.arrow(185, 97 + (-20 if y < 97 else 20), 228, y + 22)
        figure.label_box(230, y, 110, 44, words)
        figure.arrow(340, y + 22, 378, y + 22)
        figure.label_box(380, y, 130, 44, "Outcome", "measured alike")
    figure.line(445, 71, 445, 123, dash="4 3")
    figure.text(453, 101, "compare", size=12, anchor="start")
    figure.write("experiment")


SERIES = [12.1, 11.8, 12.6, 12.2, 11.9, 12.4, 9.8, 9.5, 9.9, 9.2, 9.6, 9.4]
NEIGHBOUR = [13.0, 13.4, 12.9, 13.2, 13.5, 13.1, 13.3, 12.8, 13.2, 13.4, 13.0, 13.2]


def quasi():
    figure = Figure(460, 230)
    figure.line(45, 190, 440, 190)
    figure.line(45, 190, 45, 25)
    figure.line(231, 25, 231, 190, stroke=GREY, dash="5 4")
    figure.text(231, 18, "new rule", size=12)
    figure.text(240, 215, "months", size=12)
    figure.text(52, 34, "accidents", size=12, anchor="start")

    def place(values):
        return [(60 + i * 31, 190 - (value - 7) * 21) for i, value in enumerate(values)]

    for values, colour, words in ((NEIGHBOUR, GREY, "town without the rule"), (SERIES, BLUE, "town with the rule")):
        figure.curve(place(values), stroke=colour)
        for x, y in place(values):
            figure.dot(x, y, 3, fill=colour)
        x, y = place(values)[-1]
        figure.text(x + 30, y + (-12 if colour == GREY else 22), words, size=12, anchor="end", fill=colour)
    figure.write("quasi")


def cohort():
    figure = Figure(520, 210)
    figure.arrow(150, 190, 505, 190)
    figure.text(190, 206, "past", size=12)
    figure.text(327, 206, "start of the study", size=12)
    figure.text(475, 206, "later", size=12)
    rows = [("Cohort study", 327, 475, "exposure", "disease"),
            ("Case-control study", 327, 190, "cases and controls", "exposure"),
            ("Cross-section", 327, 327, "both at once", "")]
    for i, (caption, start, end, first, second) in enumerate(rows):
        y = 35 + i * 58
        figure.text(8, y + 4, caption, anchor="start", weight="bold")
        figure.dot(start, y, 6, fill=BLUE)
        figure.text(start, y - 12, first, size=12)
        if second:
            figure.arrow(start + (9 if end > start else -9), y, end, y, stroke=BLUE, line=2)
            figure.text(end, y - 12, second, size=12)
    figure.write("cohort")


def people(figure, x, y, chosen, marked_bands=False, blocks=False):
    """A town of 60 people in ten columns and six rows; the chosen ones are filled."""
    for row in range(6):
        for column in range(10):
            gap = (column // 2) * 5 if blocks else 0
            drop = (row // 2) * 7 if marked_bands else 0
            at = (x + column * 19 + gap, y + row * 17 + drop)
            picked = (row, column) in chosen
            figure.dot(*at, 5, fill=BLUE if picked else "#ffffff", stroke=BLUE if picked else GREY)


SIMPLE = {(0, 3), (0, 8), (1, 0), (1, 1), (2, 6), (2, 9), (3, 2), (3, 3), (4, 0), (4, 7), (5, 4), (5, 5)}
STRATIFIED = {(0, 2), (0, 7), (1, 4), (1, 9), (2, 0), (2, 5), (3, 3), (3, 8), (4, 1), (4, 6), (5, 3), (5, 9)}


def schemes():
    figure = Figure(520, 320)
    systematic = {(row, column) for row in range(6) for column in range(10) if (row * 10 + column) % 5 == 2}
    cluster = {(row, column) for row in range(6) for column in (4, 5)}
    figure.text(125, 22, "Simple: any twelve", weight="bold")
    people(figure, 40, 45, SIMPLE)
    figure.text(395, 22, "Systematic: every fifth", weight="bold")
    people(figure, 310, 45, systematic)
    figure.text(125, 182, "Stratified: four of each part", weight="bold")
    people(figure, 40, 205, STRATIFIED, marked_bands=True)
    figure.text(395, 182, "Cluster: one whole block", weight="bold")
    people(figure, 300, 205, cluster, blocks=True)
    figure.write("schemes")


def frame():
    figure = Figure(500, 200)
    steps = [("Population", "all you speak of", 480), ("Sampling frame", "those on your list", 380),
             ("Sample", "those drawn", 250), ("Respondents", "those who answer", 150)]
    for i, (first, second, width) in enumerate(steps):
        shade = ("#ffffff", "#f0f0f0", "#e2e2e2", "#d0d0d0")[i]
        figure.label_box(250 - width / 2, 8 + i * 47, width, 40, first, second, fill=shade, size=12)
    figure.write("frame")


def means():
    """Sampling distributions of the mean age of survey.dcs, drawn as normal curves."""
    figure = Figure(500, 260)
    mean, deviation = 47.04, 15.00

    def across(age):
        return 30 + (age - 10) * 440 / 74

    figure.line(30, 215, 470, 215)
    for age in range(10, 85, 10):
        figure.line(across(age), 215, across(age), 220)
        figure.text(across(age), 235, str(age), size=12)
    figure.text(250, 254, "age in years", size=12)
    curves = ((1, GREY, "6 4", (62, 150)), (4, ORANGE, None, (330, 110)), (25, BLUE, None, (285, 45)))
    for n, colour, dash, label in curves:
        spread = deviation / math.sqrt(n)
        points = []
        for step in range(0, 371):
            age = 10 + step * 0.2
            points.append((across(age), 215 - 39 * math.sqrt(n) * bell((age - mean) / spread)))
        figure.curve(points, stroke=colour, dash=dash)
        words = "single people" if n == 1 else f"means of {n}"
        figure.text(*label, words, size=12, anchor="start", fill=colour)
    figure.line(across(mean), 215, across(mean), 15, stroke=GREY, dash="2 3")
    figure.write("means")


def margin():
    """The margin of error of a proportion of one half, by the number of cases."""
    figure = Figure(460, 240)

    def place(n, error):
        return 55 + n * 380 / 2000, 195 - error * 1400

    for error in (0, 0.02, 0.04, 0.06, 0.08, 0.10, 0.12):
        x, y = place(0, error)
        figure.line(x, y, 435, y, stroke=PALE)
        figure.text(x - 6, y + 4, f"{error * 100:.0f}", size=12, anchor="end")
    for n in range(0, 2001, 500):
        x, y = place(n, 0)
        figure.line(x, y, x, y + 5)
        figure.text(x, y + 19, str(n), size=12)
    figure.curve([place(n, 1.96 * math.sqrt(0.25 / n)) for n in range(70, 2001, 10)], stroke=BLUE)
    for n in (100, 400, 1600):
        error = 1.96 * math.sqrt(0.25 / n)
        figure.dot(*place(n, error), 4, fill=BLUE)
        x, y = place(n, error)
        figure.text(x + 8, y - 8, f"n = {n}: {error * 100:.1f}", size=12, anchor="start")
    figure.text(245, 234, "cases", size=12)
    figure.text(60, 18, "margin of error, percentage points", size=12, anchor="start")
    figure.write("margin")


def skew():
    """A curve with a long tail to the right: mode, median and mean of the gamma shape 2, scale 1."""
    figure = Figure(440, 215)

    def place(value, height):
        return 30 + value * 52, 165 - height * 340

    points = [place(step * 0.05, step * 0.05 * math.exp(-step * 0.05)) for step in range(0, 151)]
    figure.area([place(0, 0), *points, place(7.5, 0)], "#eeeeee")
    figure.curve(points)
    figure.line(20, 165, 430, 165)
    for value, words, drop, colour in ((1, "mode", 182, GREY), (1.678, "median", 198, BLUE), (2, "mean", 182, ORANGE)):
        x, top = place(value, value * math.exp(-value))
        figure.line(x, 165, x, top, stroke=colour, line=2)
        figure.text(x + (8 if words == "mean" else 0), drop, words, size=12, fill=colour)
    figure.text(330, 120, "a few high values", size=12)
    figure.arrow(330, 127, 330, 156)
    figure.write("skew")


def axis():
    figure = Figure(480, 240)
    bars = (("smoke", 130.02), ("do not", 124.25))
    for x, low, high, title in ((45, 122, 132, "Axis from 122"), (290, 0, 140, "Axis from 0")):
        figure.text(x + 80, 20, title, weight="bold")
        figure.line(x, 200, x + 165, 200)
        figure.line(x, 200, x, 32)
        ticks = range(122, 133, 2) if low else range(0, 141, 20)
        for tick in ticks:
            y = 200 - (tick - low) / (high - low) * 160
            figure.line(x - 4, y, x, y)
            figure.text(x - 7, y + 4, str(tick), size=11, anchor="end")
        for i, (words, value) in enumerate(bars):
            height = (value - low) / (high - low) * 160
            figure.box(x + 20 + i * 72, 200 - height, 50, height, fill=BLUE if i == 0 else "#9db8d2", stroke=INK)
            figure.text(x + 45 + i * 72, 216, words, size=12)
    figure.text(240, 235, "mean blood pressure in mmHg, people who smoke and who do not", size=12)
    figure.write("axis")


def normal_bands():
    figure = Figure(500, 250)

    def place(z, height):
        return 250 + z * 66, 165 - height * 140

    def band(first, last):
        steps = [first + (last - first) * i / 40 for i in range(41)]
        return [place(first, 0), *[place(z, bell(z)) for z in steps], place(last, 0)]

    for limit, shade in ((3.4, "#f2f2f2"), (1.96, "#dde6ee"), (1, "#a9c3dc")):
        figure.area(band(-limit, limit), shade)
    figure.curve([place(-3.4 + i * 0.05, bell(-3.4 + i * 0.05)) for i in range(137)])
    figure.line(20, 165, 480, 165)
    for z in range(-3, 4):
        x, y = place(z, 0)
        figure.line(x, y, x, y + 5)
        figure.text(x, y + 18, str(z), size=12)
    for limit, y, words in ((1, 198, "68.3 percent"), (1.96, 216, "95 percent"), (3, 234, "99.7 percent")):
        left, right = place(-limit, 0)[0], place(limit, 0)[0]
        figure.arrow(250, y - 4, left, y - 4, stroke=GREY)
        figure.arrow(250, y - 4, right, y - 4, stroke=GREY)
        figure.box(208, y - 12, 84, 15, stroke="none")
        figure.text(250, y, words, size=12)
    figure.write("normal-bands")


THIRD_SET = [(10, 7.46), (8, 6.77), (13, 12.74), (9, 7.11), (11, 7.81), (14, 8.84), (6, 6.08), (4, 5.39), (12, 8.15),
             (7, 6.42), (5, 5.73)]


def far_point():
    figure = Figure(440, 250)

    def place(x, y):
        return 50 + (x - 3) * 32, 210 - (y - 4) * 20

    figure.line(50, 210, 420, 210)
    figure.line(50, 210, 50, 20)
    for x in range(4, 15, 2):
        figure.text(place(x, 4)[0], 226, str(x), size=12)
    for y in range(4, 14, 2):
        figure.text(44, place(3, y)[1] + 4, str(y), size=12, anchor="end")
    figure.curve([place(3.5, 3.002 + 0.49973 * 3.5), place(14.4, 3.002 + 0.49973 * 14.4)], stroke=ORANGE)
    figure.curve([place(3.5, 4.00565 + 0.34539 * 3.5), place(14.4, 4.00565 + 0.34539 * 14.4)], stroke=BLUE, dash="6 4")
    for point in THIRD_SET:
        figure.dot(*place(*point), 4.5, fill=ORANGE if point == (13, 12.74) else INK)
    figure.text(235, 72, "line of all eleven", size=12, fill=ORANGE)
    figure.text(345, 165, "line of the other ten", size=12, fill=BLUE)
    figure.text(235, 244, "X3", size=12)
    figure.text(58, 28, "Y3", size=12, anchor="start")
    figure.write("far-point")


FIGURES = [roles, targets, designs, experiment, quasi, cohort, schemes, frame, means, margin, skew, axis,
           normal_bands, far_point]


def main():
    FOLDER.mkdir(parents=True, exist_ok=True)
    for draw in FIGURES:
        draw()


if __name__ == "__main__":
    main()
