#!/usr/bin/env python3
"""Makes the program's sounds, data/sounds/*.wav: a man set down on wood, and men rolling into their box.

Run it from the top of the tree; it needs nothing but Python. The same sounds come out each time.
"""
import math
import pathlib
import random
import struct
import wave

RATE = 44100
FOLDER = pathlib.Path("data/sounds")


def knock(chance, pitch, seconds):
    """One piece of wood on another: a few damped tones over a very short noise."""
    tones = [(1.0, 1.0, 55.0), (1.83, 0.55, 75.0), (2.71, 0.32, 110.0), (0.31, 0.8, 42.0)]
    samples = []
    smooth = 0.0
    for i in range(int(seconds * RATE)):
        t = i / RATE
        value = sum(loud * math.exp(-fall * t) * math.sin(2 * math.pi * pitch * ratio * t) for ratio, loud, fall in tones)
        smooth += 0.35 * (chance.uniform(-1, 1) - smooth)
        value += 1.6 * smooth * math.exp(-420.0 * t)
        samples.append(value * min(1.0, t / 0.0008))  # no step at the beginning
    return samples


def click():
    return knock(random.Random(1), 920.0, 0.14)


def roll():
    """Knocks that come closer together and die away, as men poured out do."""
    chance = random.Random(2)
    length = int(0.75 * RATE)
    samples = [0.0] * (length + RATE)
    at = 0.0
    while at < 0.55:
        loud = chance.uniform(0.25, 0.8) * math.exp(-2.2 * at)
        for i, value in enumerate(knock(chance, chance.uniform(680.0, 1150.0), 0.09)):
            samples[int(at * RATE) + i] += loud * value
        at += chance.uniform(0.018, 0.055)
    return samples[:length]


def write(name, samples, loudness):
    fade = int(0.02 * RATE)
    peak = max(abs(value) for value in samples)
    with wave.open(str(FOLDER / name), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        for i, value in enumerate(samples):
            end = min(1.0, (len(samples) - 1 - i) / fade)
            file.writeframesraw(struct.pack("<h", round(32767 * loudness * end * value / peak)))


FOLDER.mkdir(parents=True, exist_ok=True)
write("click.wav", click(), 0.6)
write("roll.wav", roll(), 0.5)
