#!/usr/bin/env python3
"""Writes the three sound effects into installed/Media: 16 bits, mono, 22050 Hz.

Each sound is a few notes with soft edges, computed from sines: the same bytes on every run. It needs Python 3 and
nothing else.
"""

import array
import math
import pathlib
import sys
import wave

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "installed" / "Media"
RATE = 22050
LOUDNESS = 0.35

# Note: start in seconds, length in seconds, pitch in Hz at the start and at the end.
SOUNDS = {
    "clear.wav": [(0.00, 0.30, 880.0, 523.25)],
    "clean.wav": [(0.00, 0.18, 523.25, 523.25), (0.09, 0.18, 659.25, 659.25), (0.18, 0.30, 783.99, 783.99)],
    "copy.wav": [(0.00, 0.09, 1046.5, 1046.5), (0.10, 0.16, 1318.5, 1318.5)],
    "paste.wav": [(0.00, 0.09, 1318.5, 1318.5), (0.10, 0.16, 1046.5, 1046.5)],
}


def envelope(position):
    """Loudness over a note, position from 0 to 1: a quick rise, then a gentle fall to silence."""
    return min(1.0, position / 0.06) * (1 - position) ** 2


def add_note(samples, start, length, first_pitch, last_pitch):
    count = int(length * RATE)
    phase = 0.0
    for i in range(count):
        position = i / count
        phase += 2 * math.pi * (first_pitch + (last_pitch - first_pitch) * position) / RATE
        tone = math.sin(phase) + 0.25 * math.sin(2 * phase) + 0.08 * math.sin(3 * phase)
        samples[int(start * RATE) + i] += LOUDNESS * envelope(position) * tone


def write(name, notes):
    samples = [0.0] * int(max(start + length for start, length, _, _ in notes) * RATE + 1)
    for note in notes:
        add_note(samples, *note)
    words = array.array("h", (round(32767 * max(-1.0, min(1.0, value))) for value in samples))
    if sys.byteorder == "big":
        words.byteswap()
    with wave.open(str(FOLDER / name), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(words.tobytes())


def main():
    FOLDER.mkdir(parents=True, exist_ok=True)
    for name, notes in SOUNDS.items():
        write(name, notes)


if __name__ == "__main__":
    main()
