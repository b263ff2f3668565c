"""MUSIC: the three looping tracks, 16-bit mono 22050 Hz. Every note, echo
and filter wraps around the loop's end, so each track loops without a seam.

  MUSIC00  menus: slow, spacious pads and a drifting arpeggio (A minor)
  MUSIC01  credits: brighter, with a lead tune (C major)
  MUSIC02  in a level: an unobtrusive working groove (D minor)
"""
import numpy as np

import synth
from synth import RATE, fft_filter, echo
from common import rng



def midi_hz(m):
    return 440.0 * 2 ** ((m - 69) / 12.0)


def chord_notes(root, quality):
    steps = {"min": (0, 3, 7), "maj": (0, 4, 7), "sus": (0, 5, 7), "min7": (0, 3, 7, 10),
             "maj7": (0, 4, 7, 11)}[quality]
    return [root + s for s in steps]


class Loop:
    """A circular buffer: a note that runs past the end continues at the start."""

    def __init__(self, seconds):
        self.n = synth.samples(seconds)
        self.buf = np.zeros(self.n)

    def add(self, start_s, x, gain=1.0):
        i = synth.samples(start_s) % self.n
        m = len(x)
        end = i + m
        if end <= self.n:
            self.buf[i:end] += x * gain
        else:
            first = self.n - i
            self.buf[i:] += x[:first] * gain
            rest = x[first:]
            while len(rest):
                k = min(len(rest), self.n)
                self.buf[:k] += rest[:k] * gain
                rest = rest[k:]


def pad_voice(freq, dur, bright=5, detune=0.004):
    out = synth.soft_saw(freq * (1 - detune), dur, bright) + synth.soft_saw(freq * (1 + detune), dur, bright)
    return out * synth.env(len(out), 0.6 * dur / 3, dur / 3, 0.7, dur / 3)


def pluck(freq, dur, bright=4, k=5.0):
    n = synth.samples(dur)
    ph = synth.phase_of(freq, n)
    x = np.zeros(n)
    for h in range(1, bright + 1):
        x += np.sin(2 * np.pi * h * ph) / (h ** 1.5) * np.exp(-np.arange(n) / RATE * (2.0 + h * 3.0))
    return x * synth.perc(n, 0.003, k)


def bell(freq, dur):
    n = synth.samples(dur)
    t = np.arange(n) / RATE
    x = (np.sin(2 * np.pi * freq * t) * np.exp(-t * 2.5)
         + 0.5 * np.sin(2 * np.pi * freq * 2.76 * t) * np.exp(-t * 4)
         + 0.25 * np.sin(2 * np.pi * freq * 5.4 * t) * np.exp(-t * 7))
    return x * synth.perc(n, 0.002, 2.5)


def bass(freq, dur):
    n = synth.samples(dur)
    ph = synth.phase_of(freq, n)
    x = np.sin(2 * np.pi * ph) + 0.35 * np.sin(4 * np.pi * ph) + 0.12 * np.sin(6 * np.pi * ph)
    return x * synth.env(n, 0.01, dur * 0.5, 0.6, min(0.08, dur * 0.3))


def kick(dur=0.3):
    n = synth.samples(dur)
    t = np.arange(n) / RATE
    f = 45 + 90 * np.exp(-t * 30)
    return np.sin(2 * np.pi * np.cumsum(f) / RATE) * synth.perc(n, 0.001, 6)


def hat(key, dur=0.06):
    x = fft_filter(rng("hat", key).uniform(-1, 1, synth.samples(dur)), low=6000)
    return x * synth.perc(len(x), 0.0005, 9)


def track_menu():
    bpm, beats = 76, 4
    beat = 60.0 / bpm
    prog = [(57, "min7"), (53, "maj7"), (48, "maj7"), (55, "sus"),
            (57, "min7"), (53, "maj7"), (50, "min7"), (52, "sus")]
    loop = Loop(len(prog) * beats * beat)
    pads = Loop(loop.n / RATE)
    for bar, (root, q) in enumerate(prog):
        t0 = bar * beats * beat
        for m in chord_notes(root, q):
            pads.add(t0, pad_voice(midi_hz(m), beats * beat * 1.25, 4), 0.16)
        loop.add(t0, bass(midi_hz(root - 12), beats * beat * 0.95), 0.35)
        arp = chord_notes(root + 12, q) + [root + 24]
        for k in range(8):
            m = arp[(k * 3 + bar) % len(arp)]
            loop.add(t0 + k * beat / 2, pluck(midi_hz(m), 1.2, 4, 4.0), 0.12)
    pads.buf = fft_filter(pads.buf, high=1600)
    mixbuf = loop.buf + pads.buf
    mixbuf = echo(mixbuf, beat * 0.75, 0.35, 4, circular=True)
    return mixbuf


def track_credits():
    bpm, beats = 112, 4
    beat = 60.0 / bpm
    prog = [(60, "maj"), (55, "maj"), (57, "min"), (53, "maj"),
            (60, "maj"), (55, "maj"), (53, "maj"), (55, "sus"),
            (57, "min"), (53, "maj"), (60, "maj"), (55, "maj")]
    melody = [  # (beat offset within the bar, semitones above the root octave, length in beats)
        [(0, 12, 1), (1, 16, 1), (2, 19, 1.5), (3.5, 17, 0.5)],
        [(0, 14, 1.5), (1.5, 11, 0.5), (2, 14, 2)],
        [(0, 12, 1), (1, 16, 1), (2, 19, 1), (3, 21, 1)],
        [(0, 19, 2), (2, 17, 1), (3, 16, 1)],
    ]
    loop = Loop(len(prog) * beats * beat)
    for bar, (root, q) in enumerate(prog):
        t0 = bar * beats * beat
        for m in chord_notes(root, q):
            loop.add(t0, pad_voice(midi_hz(m), beats * beat, 3), 0.09)
        for k in range(4):
            loop.add(t0 + k * beat, bass(midi_hz(root - 12 + (7 if k % 2 else 0)), beat * 0.9), 0.32)
        for off, semi, ln in melody[bar % 4]:
            f = midi_hz(60 + semi + (0 if bar < 8 else -12 + 12))
            x = synth.soft_square(f, ln * beat * 0.95, 3) * synth.env(synth.samples(ln * beat * 0.95), 0.01, 0.2, 0.5, 0.05)
            loop.add(t0 + off * beat, x, 0.16)
        for k in range(8):
            loop.add(t0 + k * beat / 2, hat(bar * 8 + k), 0.05 if k % 2 else 0.08)
        loop.add(t0, kick(), 0.3)
        loop.add(t0 + 2 * beat, kick(), 0.25)
    return echo(loop.buf, beat * 0.5, 0.25, 3, circular=True)


def track_level():
    bpm, beats = 96, 4
    beat = 60.0 / bpm
    prog = [(50, "min"), (46, "maj"), (53, "maj"), (48, "maj")] * 3
    loop = Loop(len(prog) * beats * beat)
    r = rng("levelmelody")
    scale = [0, 2, 3, 5, 7, 9, 10]
    for bar, (root, q) in enumerate(prog):
        t0 = bar * beats * beat
        pattern = [0, 0, 12, 0, 7, 0, 12, 10]
        for k, semi in enumerate(pattern):
            loop.add(t0 + k * beat / 2, bass(midi_hz(root - 12 + semi), beat * 0.45), 0.28)
        for m in chord_notes(root + 12, q):
            loop.add(t0, pad_voice(midi_hz(m), beats * beat, 3), 0.06)
        loop.add(t0, kick(), 0.28)
        loop.add(t0 + 2 * beat, kick(), 0.2)
        for k in range(8):
            loop.add(t0 + k * beat / 2, hat(100 + bar * 8 + k), 0.07 if k % 2 else 0.04)
        if bar % 4 in (1, 3):
            for k in range(3):
                deg = scale[int(r.integers(0, len(scale)))]
                loop.add(t0 + (1 + k) * beat, bell(midi_hz(62 + 12 + deg), 1.5), 0.1)
    return echo(fft_filter(loop.buf, high=6000), beat * 0.75, 0.3, 3, circular=True)


TRACKS = [(track_menu, "music: menus (A minor, slow pads)"),
          (track_credits, "music: credits (C major, lead tune)"),
          (track_level, "music: in a level (D minor groove)")]


def generate(reg):
    for i, (fn, role) in enumerate(TRACKS):
        x = fn()
        x = x - x.mean()
        x = x * (0.6 / np.max(np.abs(x)))
        reg.sound("MUSIC", "MUSIC%02d" % i, x, RATE, role)
