#!/usr/bin/python3
"""Writes the music of the welcome video: music.py FILE.wav. Soft plucked chords over a low pad, 30
seconds, mono."""

import array
import math
import sys
import wave

RATE = 22050
SECONDS = 30
BAR = 3.2  # seconds
CHORDS = [  # bass, then the notes of the broken chord, in semitones above C3
    (0, (12, 16, 19, 24)),
    (-5, (11, 14, 19, 23)),
    (-3, (12, 16, 21, 24)),
    (-7, (12, 17, 21, 24)),
    (0, (12, 16, 19, 28)),
    (-10, (14, 17, 21, 26)),
    (-5, (14, 17, 19, 23)),
    (0, (12, 16, 19, 24)),
    (0, (12, 19, 24, 28)),
]

samples = [0.0] * (RATE * SECONDS)


def add_note(start, half_tone, length, loudness, attack, decay, harmonics):
    frequency = 130.81 * 2 ** (half_tone / 12)
    first = int(start * RATE)
    for n in range(min(int(length * RATE), len(samples) - first)):
        t = n / RATE
        envelope = min(1.0, t / attack) * math.exp(-t / decay) * min(1.0, (length - t) * 8)
        turn = 2 * math.pi * frequency * t
        samples[first + n] += (
            loudness * envelope * sum(a * math.sin(h * turn) for h, a in harmonics)
        )


for bar, (bass, notes) in enumerate(CHORDS):
    start = bar * BAR
    add_note(start, bass, BAR + 0.6, 0.16, 0.5, 4.0, ((1, 1.0), (2, 0.25)))
    for note in notes[:3]:
        add_note(start, note - 12, BAR + 0.6, 0.035, 0.9, 5.0, ((1, 1.0), (2, 0.15)))
    for step, which in enumerate((0, 1, 2, 3, 2, 1, 2, 1)):
        add_note(
            start + step * BAR / 8,
            notes[which],
            2.4,
            0.11,
            0.008,
            0.7,
            ((1, 1.0), (2, 0.35), (3, 0.12), (4, 0.05)),
        )

for n in range(len(samples)):  # fade in and out
    t = n / RATE
    samples[n] *= min(1.0, t / 1.5) * min(1.0, (SECONDS - t) / 3.0)
peak = max(abs(s) for s in samples)
with wave.open(sys.argv[1], "wb") as out:
    out.setnchannels(1)
    out.setsampwidth(2)
    out.setframerate(RATE)
    out.writeframes(array.array("h", (int(s / peak * 14000) for s in samples)).tobytes())
