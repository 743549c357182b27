"""The invented health survey: 400 people who never lived, drawn by a fixed rule.

Every run yields the same people. Only Random.random() is used: its sequence for a seed is the same in every
Python version, while the ready-made distributions may change.
"""

import math
import random

SEED = 1908
PEOPLE = 400


class Draw:
    def __init__(self, seed):
        self._random = random.Random(seed)

    def uniform(self):
        return self._random.random()

    def normal(self, mean, deviation):
        """A normal value: the sum of twelve uniform numbers less six is close enough to one."""
        return mean + deviation * (sum(self._random.random() for _ in range(12)) - 6)

    def chance(self, probability):
        return self._random.random() < probability

    def choice(self, weights):
        """A number from 1 on, with chances in proportion to the weights."""
        point = self._random.random() * sum(weights)
        for number, weight in enumerate(weights, 1):
            if point < weight:
                return number
            point -= weight
        return len(weights)


def within(value, lowest, highest):
    return max(lowest, min(highest, value))


def logistic(eta):
    return 1 / (1 + math.exp(-eta))


def person(number, draw):
    sex = draw.choice([48, 52])
    age = int(within(draw.normal(47, 16), 18, 85))
    region = draw.choice([24, 31, 20, 25])
    education = draw.choice([14, 33, 29, 24])
    smokes = 1 if draw.chance(logistic(0.1 - 0.35 * education + 0.25 * (sex == 1))) else 0
    height = round(within(draw.normal(177 if sex == 1 else 164, 6.5), 145, 205))
    weight = round(within(draw.normal(24.5 + 0.04 * (age - 47), 3.6), 17, 42) * (height / 100) ** 2, 1)
    exercise = round(within(draw.normal(3.2 + 0.5 * education - 1.1 * smokes, 2.1), 0, 14), 1)
    pressure = round(within(draw.normal(112 + 0.42 * (age - 20) + 5 * smokes + 3 * (sex == 1), 11), 85, 210))
    health = 6 - int(within(round(draw.normal(1.6 + 0.022 * age + 0.5 * smokes - 0.12 * exercise, 0.9)), 1, 5))
    disease = 1 if draw.chance(logistic(-6.1 + 0.07 * age + 1.1 * smokes)) else 0
    test = 1 + int(within(math.floor(draw.normal(0.9 + 1.5 * disease, 0.95) + 0.5), 0, 3))
    reader_a = 1 + int(within(math.floor(draw.normal(0.7 + 0.8 * disease, 0.7) + 0.5), 0, 2))
    reader_b = reader_a if draw.chance(0.78) else draw.choice([45, 35, 20])

    # Some people do not answer: 9, 99 and 999 stand for "no answer", 8 for "does not know".
    if draw.chance(0.05):
        smokes = 9
    if draw.chance(0.03):
        education = 9
    if draw.chance(0.04):
        weight = 999
    if draw.chance(0.06):
        exercise = 99
    if draw.chance(0.03):
        health = 8 if draw.chance(0.5) else 9
    pressure = 999 if draw.chance(0.05) else pressure
    remark = "" if draw.chance(0.85) else ["by telephone", "by letter", "at home"][draw.choice([50, 30, 20]) - 1]
    return [number, sex, age, region, education, smokes, health, height, weight, exercise, pressure, test, disease,
            reader_a, reader_b, remark]


def people():
    draw = Draw(SEED)
    return [person(number, draw) for number in range(1, PEOPLE + 1)]
