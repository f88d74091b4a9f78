#!/usr/bin/env python3
"""Makes the sounds of the naval battle: make_sounds.py [directory], by default the one this file is in.

The same bytes come out every time: chance has a fixed seed for each sound.
"""

import math
import pathlib
import random
import struct
import sys
import wave

RATE = 22050  # samples a second
PEAK = 0.8  # of full scale


def silence(seconds):
    return [0.0] * round(seconds * RATE)


def noise(seconds, rng):
    return [2 * rng.random() - 1 for _ in range(round(seconds * RATE))]


def low_pass(samples, cutoff):
    """Two poles. `cutoff` gives the frequency in Hz at a time in seconds."""
    first = second = 0.0
    filtered = []
    for i, sample in enumerate(samples):
        share = 1 - math.exp(-2 * math.pi * cutoff(i / RATE) / RATE)
        first += share * (sample - first)
        second += share * (first - second)
        filtered.append(second)
    return filtered


def high_pass(samples, frequency):
    low = low_pass(samples, lambda t: frequency)
    return [sample - lower for sample, lower in zip(samples, low)]


def tone(seconds, frequency):
    """A sine whose frequency in Hz is given at a time in seconds."""
    phase = 0.0
    samples = []
    for i in range(round(seconds * RATE)):
        samples.append(math.sin(phase))
        phase += 2 * math.pi * frequency(i / RATE) / RATE
    return samples


def shaped(samples, envelope):
    return [sample * envelope(i / RATE) for i, sample in enumerate(samples)]


def add(mix, samples, start=0.0, gain=1.0):
    """What would reach past the end of `mix` is left out."""
    first = round(start * RATE)
    for i, sample in enumerate(samples[: len(mix) - first]):
        mix[first + i] += gain * sample


def levelled(samples):
    largest = max(abs(sample) for sample in samples)
    return [sample / largest for sample in samples]


def strike(attack, decay):
    """Up in a straight line, down by 1/e every `decay` seconds."""
    return lambda t: min(t / attack, 1) * math.exp(-max(t - attack, 0) / decay)


def bubble(frequency, seconds):
    """Air that rises: the tone goes up as it fades."""
    rising = tone(seconds, lambda t: frequency * (1 + 0.9 * t / seconds))
    return shaped(rising, lambda t: math.sin(math.pi * t / seconds) * math.exp(-3 * t / seconds))


def blast(seconds, rng, brightness, decay):
    """A crack that turns dull, over a thump; pressed together so that it is dense but not clipped."""
    crack = low_pass(noise(seconds, rng), lambda t: 120 + brightness * math.exp(-t / (decay / 2)))
    mix = shaped(levelled(crack), strike(0.002, decay))
    thump = tone(seconds, lambda t: 42 + 110 * math.exp(-t / 0.07))
    add(mix, shaped(thump, strike(0.003, decay * 1.2)), gain=0.9)
    return [math.tanh(1.6 * sample) for sample in mix]


def water():
    """A shell that falls into the sea: a plop, spray, and a few bubbles."""
    rng = random.Random(1)
    mix = silence(0.9)
    plop = tone(0.16, lambda t: 150 + 380 * math.exp(-t / 0.03))
    add(mix, shaped(plop, strike(0.004, 0.04)), gain=0.7)
    spray = high_pass(low_pass(noise(0.85, rng), lambda t: 900 + 3600 * math.exp(-t / 0.18)), 350)
    add(mix, shaped(levelled(spray), strike(0.025, 0.17)), start=0.03)
    for _ in range(9):
        add(mix, bubble(300 + 600 * rng.random(), 0.05 + 0.06 * rng.random()), 0.2 + 0.55 * rng.random(),
            0.15 + 0.2 * rng.random())
    return mix


def hit():
    rng = random.Random(2)
    mix = silence(0.85)
    add(mix, blast(0.85, rng, brightness=4200, decay=0.17))
    # What flies off.
    for _ in range(14):
        chip = high_pass(noise(0.03, rng), 1500)
        add(mix, shaped(chip, strike(0.001, 0.007)), 0.12 + 0.4 * rng.random(), 0.04 + 0.1 * rng.random())
    return mix


def sunk():
    """A blast, then the ship goes down: a tone and a rumble that fall, and more and more bubbles."""
    rng = random.Random(3)
    seconds = 2.2
    mix = silence(seconds)
    add(mix, blast(seconds, rng, brightness=3000, decay=0.3))
    rumble = low_pass(noise(seconds, rng), lambda t: 90 + 260 * math.exp(-t / 0.8))
    add(mix, shaped(levelled(rumble), lambda t: min(t / 0.3, 1) * math.exp(-t / 1.4)), gain=0.8)

    def groan(t):
        return 55 + 175 * math.exp(-t / 0.75) + 4 * math.sin(2 * math.pi * 5 * t)

    def swell(t):
        return math.sin(math.pi * t / 1.9) ** 2

    add(mix, shaped(tone(1.9, groan), swell), start=0.15, gain=0.45)
    add(mix, shaped(tone(1.9, lambda t: 2 * groan(t)), swell), start=0.15, gain=0.18)
    for _ in range(36):
        start = 0.6 + 1.45 * math.sqrt(rng.random())
        add(mix, bubble(180 + 420 * rng.random(), 0.06 + 0.09 * rng.random()), start, 0.12 + 0.25 * rng.random())
    return mix


def finished(samples, fade_out):
    """Levelled to the peak, and from zero to zero so that neither end clicks."""
    fade_in = 0.003
    seconds = (len(samples) - 1) / RATE

    def edges(t):
        edge = min(t / fade_in, (seconds - t) / fade_out, 1)
        return (1 - math.cos(math.pi * max(edge, 0))) / 2

    middle = high_pass(samples, 15)  # nothing below hearing, which would only shift the whole
    return [PEAK * sample for sample in levelled(shaped(middle, edges))]


def write(path, samples):
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(b"".join(struct.pack("<h", round(32767 * sample)) for sample in samples))


def main():
    directory = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).parent
    write(directory / "Agua.wav", finished(water(), 0.15))
    write(directory / "Impacto.wav", finished(hit(), 0.15))
    write(directory / "Hundido.wav", finished(sunk(), 0.3))


if __name__ == "__main__":
    main()
