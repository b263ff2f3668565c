"""MUSIC: the three looping tracks, 16-bit mono 22050 Hz, written by a small
sequencer: parts of notes on a bar-and-beat grid, a handful of instruments,
a bus per part, a shared reverb and echo, and a master level.

  MUSIC00  menus: slow and spacious, pads, a soft electric-piano arpeggio,
           far-off bells and a vibraphone tune, no drums (A minor, 84 bpm,
           24 bars)
  MUSIC01  credits: bright and warm, a plucked lead tune over strummed
           chords, bass and light drums (C major, 112 bpm, 32 bars)
  MUSIC02  in a level: an unobtrusive, steady groove for thinking to:
           marimba figures, round bass, brushed percussion, sparse bells
           (D dorian, 92 bpm, 24 bars)

The loop point is not a seam: a note that runs past the last bar carries on
at the first, and the filters, the echo and the reverb are all circular, so
the end flows into the start exactly as it does when the game repeats the
track. The last bars of each tune lead back into the first.
"""
import functools

import numpy as np

import synth
from synth import RATE, samples, hz, midi, wave, sine, fm, noise, adsr, strike, band
from common import rng


# ---------------------------------------------------------------- notation

def notes(names):
    return [midi(s) for s in names.split()]


def parse_line(text, beats_per_bar=4):
    """'E5:1 G5:1 C6:1.5 B5:.5 | A5:1 ...' -> [(beat, midi, beats)], one
    bar between bars; 'r' is a rest. Every bar must add up to a full bar."""
    out = []
    for bar, chunk in enumerate(text.split("|")):
        pos = 0.0
        for tok in chunk.split():
            name, length = tok.split(":")
            length = float(length)
            if name != "r":
                out.append((bar * beats_per_bar + pos, midi(name), length))
            pos += length
        assert abs(pos - beats_per_bar) < 1e-9 or not chunk.split(), (bar, chunk, pos)
    return out


# ---------------------------------------------------------------- the grid

def fft_friendly(n):
    """The nearest length at or above n with no prime factor above 7."""
    while True:
        m = n
        for p in (2, 3, 5, 7):
            while m % p == 0:
                m //= p
        if m == 1:
            return n
        n += 1


class Song:
    """A loop of `bars` bars; parts add notes to named buses, wrapping round
    the end of the loop."""

    def __init__(self, name, bpm, bars, beats=4):
        self.name, self.bpm, self.bars, self.beats = name, bpm, bars, beats
        # The loop is filtered and reverberated by FFT over its whole length:
        # a length with only small prime factors keeps that fast. Finding one
        # moves the tempo by a hair (well under 0.1 %).
        self.n = fft_friendly(samples(bars * beats * 60.0 / bpm))
        self.beat = self.n / float(RATE * bars * beats)
        self.buses = {}
        self.r = rng("music", name, "feel")

    def seconds(self, beat):
        return beat * self.beat

    def add(self, bus, beat, x, gain=1.0, humanise=0.0):
        buf = self.buses.setdefault(bus, np.zeros(self.n))
        jitter = self.r.uniform(-humanise, humanise) if humanise else 0.0
        i = samples(self.seconds(beat) + jitter) % self.n
        x = x * gain
        while len(x):
            k = min(len(x), self.n - i)
            buf[i:i + k] += x[:k]
            x = x[k:]
            i = 0


# ---------------------------------------------------------------- instruments
# Each returns a whole note, cached: tunes repeat, and the same note at the
# same length is the same sound (the caller scales it for velocity).

def _key(*k):
    return rng("music-note", *k)


@functools.lru_cache(maxsize=None)
def pad(m, held, attack=0.8, release=1.4, bright=1800.0):
    """Saws, low-passed and slowly drifting: a warm string pad. The detuned
    voices are kept quieter than the centre one, so the chorus shimmers
    without beating the note in and out."""
    n = samples(held + release)
    t = synth.seconds_axis(n)
    f = hz(m)
    out = np.zeros(n)
    r = _key("pad", m)
    for v, (c, g) in enumerate(((-7.0, 0.3), (0.0, 1.0), (5.0, 0.3))):
        drift = 1.0 + 0.0015 * np.sin(2 * np.pi * (0.13 + 0.07 * v) * t + r.uniform(0, 6.28))
        out += g * wave("saw", f * synth.cents(c) * drift, n, start=r.uniform(), limit=30)
    out = band(out, 90.0, bright, 2)
    return out * adsr(n, attack, 0.6, 0.85, release, held)


@functools.lru_cache(maxsize=None)
def epiano(m, held, vel=1.0):
    """A soft electric piano: FM with a decaying index, bright at the strike,
    round as it rings, with the faint 'tine' of a struck metal reed."""
    f = hz(m)
    release = 0.25
    n = samples(held + release)
    t = synth.seconds_axis(n)
    idx = (0.6 + 1.4 * vel) * np.exp(-t / 0.3) + 0.2
    body = fm(f, n, 1.0, idx)
    tine = sine(f * 4.0, n) * np.exp(-t / 0.05) * 0.15 if f * 4 < 9000 else 0.0
    tau = 1.8 * (261.6 / f) ** 0.5
    env = strike(n, 0.002, tau, 0.0) * adsr(n, 0.001, 0.1, 1.0, release, held)
    return (body + tine) * env


@functools.lru_cache(maxsize=None)
def bell(m, held):
    """A glassy bell: FM at an inharmonic ratio, long ring."""
    f = hz(m)
    n = samples(held + 2.0)
    t = synth.seconds_axis(n)
    idx = 2.2 * np.exp(-t / 0.25) + 0.3
    x = fm(f, n, 3.5, idx) * 0.7 + sine(f, n) * 0.5
    return x * strike(n, 0.002, 0.9, 0.3)


@functools.lru_cache(maxsize=None)
def vibes(m, held):
    """A mellow vibraphone: a pure bar tone with its fourth partial at the
    strike and a slow tremolo."""
    f = hz(m)
    n = samples(held + 1.5)
    t = synth.seconds_axis(n)
    x = np.sin(2 * np.pi * f * t) + 0.25 * np.sin(2 * np.pi * 4.0 * f * t) * np.exp(-t / 0.06)
    trem = 1.0 - 0.18 * (0.5 - 0.5 * np.cos(2 * np.pi * 4.5 * t))
    env = strike(n, 0.003, 1.6, 0.0) * adsr(n, 0.001, 0.1, 1.0, 1.2, held)
    return x * trem * env


@functools.lru_cache(maxsize=None)
def pluck(m, held, bright=0.6, t60=1.4):
    """A plucked nylon-ish string."""
    release = 0.12
    n = samples(held + release)
    x = synth.pluck(hz(m), n, _key("pluck", m, held, bright), t60=t60, bright=bright, position=0.23)
    return x * adsr(n, 0.001, 0.1, 1.0, release, held)


@functools.lru_cache(maxsize=None)
def flute(m, held):
    """A soft, breathy lead for sustained melody notes."""
    f = hz(m)
    release = 0.12
    n = samples(held + release)
    t = synth.seconds_axis(n)
    vib = 1.0 + 0.0045 * np.sin(2 * np.pi * 5.2 * t) * np.clip((t - 0.25) / 0.3, 0, 1)
    ph = synth.phase(f * vib, n)
    x = np.sin(2 * np.pi * ph) + 0.2 * np.sin(4 * np.pi * ph) + 0.07 * np.sin(6 * np.pi * ph)
    breath = band(noise(n, _key("breath", m, held)), f, f * 3, 2) * 0.08
    return (x + breath) * adsr(n, 0.04, 0.2, 0.8, release, held)


@functools.lru_cache(maxsize=None)
def bass(m, held, style="round"):
    """'round': a sine bass with a touch of growl on the attack; 'pluck':
    a plucked synth bass whose filter closes as it rings."""
    f = hz(m)
    release = 0.07
    n = samples(held + release)
    t = synth.seconds_axis(n)
    if style == "round":
        ph = synth.phase(f, n)
        growl = np.exp(-t / 0.08)
        x = (np.sin(2 * np.pi * ph) + (0.25 + 0.35 * growl) * np.sin(4 * np.pi * ph)
             + 0.15 * growl * np.sin(6 * np.pi * ph))
        return x * adsr(n, 0.008, 0.4, 0.75, release, held)
    x = wave("saw", f, n, limit=30) * 0.7 + sine(f, n) * 0.6

    def gain(fr, tt):
        return synth.lowpass(fr, 180.0 + 1300.0 * np.exp(-tt / 0.09), 2)
    return synth.sweep(x, gain) * adsr(n, 0.004, 0.25, 0.6, release, held)


@functools.lru_cache(maxsize=None)
def marimba(m):
    """A wooden bar: a fundamental, its tuned fourth partial and a mallet
    knock, dying quickly."""
    f = hz(m)
    n = samples(1.2)
    t = synth.seconds_axis(n)
    x = np.sin(2 * np.pi * f * t) * np.exp(-t / (0.45 * (300.0 / f) ** 0.3))
    if f * 3.93 < 9000:
        x += 0.3 * np.sin(2 * np.pi * f * 3.93 * t) * np.exp(-t / 0.05)
    if f * 9.2 < 9500:
        x += 0.08 * np.sin(2 * np.pi * f * 9.2 * t) * np.exp(-t / 0.015)
    knock = band(noise(samples(0.01), _key("mallet", m)), 800.0, 4000.0, 2)
    x[:len(knock)] += knock * np.hanning(len(knock)) * 0.2
    return x * synth.fade_curve(n, 0.001, 0.05)


# ---------------------------------------------------------------- drums

@functools.lru_cache(maxsize=None)
def kick(variant=0, soft=False):
    n = samples(0.35)
    t = synth.seconds_axis(n)
    f = 48.0 + (95.0 if soft else 120.0) * np.exp(-t / 0.035)
    x = np.sin(2 * np.pi * np.cumsum(f) / RATE) * np.exp(-t / (0.16 if soft else 0.2))
    click = band(noise(samples(0.006), _key("kick", variant)), None, 3000.0, 2)
    x[:len(click)] += click * np.hanning(len(click)) * (0.1 if soft else 0.25)
    return x * synth.fade_curve(n, 0.001, 0.03)


@functools.lru_cache(maxsize=None)
def snare(variant=0):
    """A soft, clappy snare."""
    n = samples(0.3)
    t = synth.seconds_axis(n)
    tone = (np.sin(2 * np.pi * 190.0 * t) + 0.5 * np.sin(2 * np.pi * 330.0 * t)) * np.exp(-t / 0.04)
    rattle = band(noise(n, _key("snare", variant)), 1200.0, 7000.0, 2) * np.exp(-t / 0.09)
    return (tone * 0.5 + rattle) * synth.fade_curve(n, 0.001, 0.03)


@functools.lru_cache(maxsize=None)
def rim(variant=0):
    """A brushed rim click for the quiet groove."""
    n = samples(0.12)
    t = synth.seconds_axis(n)
    knock = np.sin(2 * np.pi * 820.0 * t) * np.exp(-t / 0.012)
    brush = band(noise(n, _key("rim", variant)), 2000.0, 6000.0, 2) * np.exp(-t / 0.04)
    return (knock * 0.6 + brush * 0.6) * synth.fade_curve(n, 0.001, 0.02)


@functools.lru_cache(maxsize=None)
def hat(variant=0, open_=False):
    n = samples(0.35 if open_ else 0.08)
    t = synth.seconds_axis(n)
    x = band(noise(n, _key("hat", variant, open_)), 6500.0, None, 3)
    return x * np.exp(-t / (0.12 if open_ else 0.02)) * synth.fade_curve(n, 0.0005, 0.02)


@functools.lru_cache(maxsize=None)
def shaker(variant=0):
    n = samples(0.09)
    t = synth.seconds_axis(n)
    x = band(noise(n, _key("shaker", variant)), 4000.0, 9500.0, 2)
    return x * np.clip(t / 0.012, 0, 1) * np.exp(-t / 0.03) * synth.fade_curve(n, 0.0, 0.02)


# ---------------------------------------------------------------- writing parts

def chord_sheet(song, progression, table):
    """'Am9 | F | Esus:2 E:2' -> [(beat, beats, (bass, voicing))]."""
    out = []
    for bar, chunk in enumerate(progression.split("|")):
        pos = 0.0
        for tok in chunk.split():
            name, _, length = tok.partition(":")
            length = float(length) if length else song.beats
            out.append((bar * song.beats + pos, length, table[name]))
            pos += length
        assert abs(pos - song.beats) < 1e-9, (song.name, bar, chunk)
    assert len(out) and out[-1][0] + out[-1][1] == song.bars * song.beats, song.name
    return out


def play_line(song, bus, line, instrument, gain, legato=0.95, humanise=0.004, vel=None):
    for k, (beat, m, length) in enumerate(line):
        v = vel(k, beat) if vel else 1.0
        song.add(bus, beat, instrument(m, round(song.seconds(length) * legato, 3)), gain * v, humanise)


def in_section(beat, song, first_bar, last_bar):
    bar = int(beat // song.beats) + 1
    return first_bar <= bar <= last_bar


# ---------------------------------------------------------------- mixing

@functools.lru_cache(maxsize=None)
def hall(seconds, rt60, bright, key):
    return synth.room(seconds, rt60, rng("music-room", key), bright)


def presence(buf):
    """How loud a part sounds while it plays: the ear-weighted RMS of the
    100 ms stretches where it is sounding (within 25 dB of its loudest), in
    dB. Whole-loop RMS would rate a part that rests half the time, or a
    sparse drum, as quieter than it sounds."""
    w = synth.weighted(buf, circular=True)
    k = samples(0.1)
    windows = np.mean(w[:len(w) // k * k].reshape(-1, k) ** 2, axis=1)
    active = windows[windows > windows.max() * 10.0 ** -2.5]
    return 10.0 * np.log10(np.mean(active) + 1e-12)


def mixdown(song, levels, sends, ir, echo=None, eq=None):
    """Sums the buses, each set to its level (see presence), so that the
    balance holds whatever the instrument. The reverb and the echo are fed
    by sends and work circularly."""
    dry = np.zeros(song.n)
    send = np.zeros(song.n)
    for name, buf in sorted(song.buses.items()):
        if eq and name in eq:
            buf = band(buf, circular=True, **eq[name])
        buf = buf * synth.db(levels[name] - presence(buf))
        dry += buf
        send += sends.get(name, 0.0) * buf
    if echo:
        delay, feedback, damp, wet = echo
        echoed = synth.echo(send, song.seconds(delay), feedback, damp, wet, circular=True) - send
        dry += echoed
        send += echoed * 0.5
    wet = synth.convolve(send, ir, circular=True)
    out = dry + wet
    return band(out, 35.0, 9000.0, 2, circular=True)


def master(x, level):
    """The track at its loudness (ear-weighted RMS over the whole loop),
    well under the effects; peaks are held under -6 dB full scale."""
    x = x - x.mean()
    w = synth.weighted(x, circular=True)
    x = x * synth.db(level - synth.rms_db(w))
    return synth.limit(x, synth.db(-6.0), circular=True)


# ---------------------------------------------------------------- MUSIC00

MENU_CHORDS = {
    "Am": ("A2", "E3 A3 B3 C4"), "Am9": ("A2", "E3 G3 B3 C4"),
    "Fmaj9": ("F2", "E3 G3 A3 C4"), "Cmaj9": ("C3", "E3 G3 B3 D4"),
    "G": ("G2", "D3 G3 B3 D4"), "Em7": ("E2", "D3 G3 B3 E4"),
    "Dm9": ("D3", "F3 A3 C4 E4"), "E7sus": ("E2", "E3 A3 B3 D4"),
    "E7": ("E2", "E3 G#3 B3 D4"),
}
MENU_PROGRESSION = ("Am | Fmaj9 | Cmaj9 | G | Am9 | Fmaj9 | Dm9 | E7sus:2 E7:2 |"
                    "Fmaj9 | G | Em7 | Am9 | Dm9 | G | Cmaj9 | E7sus:2 E7:2 |"
                    "Am | Fmaj9 | Cmaj9 | G | Am9 | Fmaj9 | Dm9 | E7sus:2 E7:2")
MENU_TUNE = ("r:4 | r:4 | r:4 | r:4 | r:4 | r:4 | r:4 | r:4 |"
             "C5:2 E5:1 G5:1 | D5:3 B4:1 | G4:1.5 A4:.5 B4:2 | E5:4 |"
             "F5:2 E5:1 D5:1 | D5:2 B4:1 G4:1 | E5:1.5 D5:.5 C5:1 B4:1 | B4:2 G#4:2 |"
             "r:1 E5:1 A5:2 | G5:1 E5:1 C5:2 | D5:1.5 E5:.5 G5:2 | D5:4 |"
             "C5:1 B4:1 A4:2 | C5:2 E5:2 | F5:2 E5:1 D5:1 | B4:4")


def track_menu():
    song = Song("menu", 84, 24)
    sheet = chord_sheet(song, MENU_PROGRESSION, MENU_CHORDS)
    arp_a = (0, 2, 3, 4, 2, 3, 1, 3)
    arp_b = (0, 3, 2, 4, 1, 3, 2, 4)
    accent = (0.9, 0.55, 0.7, 0.6, 0.8, 0.5, 0.65, 0.55)
    for beat, length, (root, voicing) in sheet:
        low = midi(root)
        voice = notes(voicing)
        for m in voice:
            song.add("pad", beat, pad(m, round(song.seconds(length), 3)), 1.0)
        # The bass breathes: long notes, a push into the second half in the
        # middle section. Roots above C3 drop an octave.
        deep = low - 12 if low >= 48 else low
        if in_section(beat, song, 9, 16) and length == 4:
            for off, ln in ((0, 1.5), (1.5, 0.5), (2, 2)):
                song.add("bass", beat + off, bass(deep, round(song.seconds(ln) * 0.95, 3)), 1.0)
        else:
            song.add("bass", beat, bass(deep, round(song.seconds(length) * 0.98, 3)), 1.0)
        tones = sorted(set([low + 12 if low < 48 else low] + [m + 12 for m in voice]))
        pattern = arp_b if in_section(beat, song, 9, 16) else arp_a
        for k in range(int(length * 2)):
            step = int((beat % song.beats) * 2) + k
            m = tones[pattern[step % 8] % len(tones)]
            v = accent[step % 8] * song.r.uniform(0.9, 1.05)
            song.add("keys", beat + k * 0.5, epiano(m, round(song.seconds(0.9), 3), round(v, 1)), v, 0.006)
    play_line(song, "tune", parse_line(MENU_TUNE), vibes, 1.0, 1.0, 0.003)
    # Far-off pings in the first section, where the tune rests.
    for bar, name in ((1, "E6"), (3, "B5"), (5, "A5"), (7, "E6")):
        song.add("ping", (bar - 1) * 4 + 2.5, bell(midi(name), 0.2), 1.0)
    x = mixdown(song,
                levels={"pad": -26.0, "bass": -25.0, "keys": -24.0, "tune": -21.0, "ping": -30.0},
                sends={"pad": 0.5, "keys": 0.45, "tune": 0.55, "ping": 1.0, "bass": 0.05},
                ir=hall(3.5, 3.2, 3500.0, "menu"), echo=(0.75, 0.35, 2200.0, 0.6),
                eq={"keys": dict(low=180.0), "pad": dict(low=120.0, high=2500.0)})
    return master(x, -27.0)


# ---------------------------------------------------------------- MUSIC01

CREDIT_CHORDS = {
    "C": ("C2", "G3 C4 E4"), "G/B": ("B1", "G3 B3 D4"), "Am": ("A1", "A3 C4 E4"),
    "Em": ("E2", "G3 B3 E4"), "F": ("F2", "A3 C4 F4"), "C/E": ("E2", "G3 C4 E4"),
    "Dm7": ("D2", "A3 C4 F4"), "G": ("G2", "G3 B3 D4"), "Em7": ("E2", "G3 B3 D4"),
    "Am7": ("A1", "G3 C4 E4"), "Gsus": ("G2", "G3 C4 D4"),
}
CREDIT_PROGRESSION = ("C | Am | F | G |"
                      "C | G/B | Am | Em | F | C/E | Dm7 | G |"
                      "C | G/B | Am | Em | F | C/E | Dm7:2 G:2 | C |"
                      "F | G | Em7 | Am7 | Dm7 | G | Em7 | Am7 |"
                      "F | G | F | Gsus:2 G:2")
CREDIT_TUNE_A = ("E5:1 G5:1 C6:1.5 B5:.5 | A5:1 G5:1 D5:2 | C5:1 E5:1 A5:1.5 G5:.5 | G5:3 r:1 |"
                 "F5:1 A5:1 C6:1 A5:1 | G5:1.5 E5:.5 C5:2 | D5:1 F5:1 A5:1.5 C6:.5 | B5:1.5 A5:.5 G5:2 |"
                 "E5:1 G5:1 C6:1.5 D6:.5 | D6:1 B5:1 G5:2 | A5:1 C6:1 E6:1.5 D6:.5 | B5:3 r:1 |"
                 "A5:1 C6:1 A5:1 F5:1 | G5:1.5 E5:.5 C5:1 E5:1 | F5:1 D5:1 B4:1 D5:1 | C5:3 r:1")
CREDIT_TUNE_B = ("A5:2 G5:1 F5:1 | G5:2 D5:2 | E5:1 G5:1 B5:2 | A5:3 r:1 |"
                 "F5:2 E5:1 D5:1 | D5:1 G5:1 B5:2 | B5:1.5 A5:.5 G5:1 E5:1 | C6:2 A5:2")
CREDIT_ANSWER = "C6:2 r:2 | r:4 | r:4 | r:4"          # bar 1: the resolution of the turnaround
CREDIT_TURN = "r:4 | r:4 | C6:1 A5:1 F5:2 | G5:1 A5:1 B5:1 D6:1"   # bars 29 to 32


def track_credits():
    song = Song("credits", 112, 32)
    sheet = chord_sheet(song, CREDIT_PROGRESSION, CREDIT_CHORDS)
    strum = ((0, -1), (0.5, 1), (1, 0), (1.5, 2), (2, -1), (2.5, 1), (3, 0), (3.5, 2))
    for beat, length, (root, voicing) in sheet:
        low = midi(root)
        voice = notes(voicing)
        for m in voice:
            song.add("pad", beat, pad(m, round(song.seconds(length), 3), 0.3, 0.8, 1500.0), 1.0)
        # Broken chords on a plucked string, the bass note an octave up on the beats.
        for off, which in strum:
            if off >= length:
                continue
            m = low + 24 if which < 0 else voice[which]
            accent = 0.95 if off in (0, 2) else 0.7
            song.add("strum", beat + off, pluck(m, round(song.seconds(0.9), 3), 0.45, 1.0), accent, 0.005)
        bar = int(beat // 4) + 1
        fifth = low + 7
        if bar <= 4 or bar >= 29:
            bassline = ((0, low, 1.5), (2, low, 1.5)) if length == 4 else ((0, low, 1.5),)
        else:
            bassline = ((0, low, 1), (1.5, low, 0.4), (2, fifth, 1), (3, low + 12, 0.4), (3.5, fifth, 0.4))
        for off, m, ln in bassline:
            if off < length:
                song.add("bass", beat + off, bass(m, round(song.seconds(ln), 3), "pluck"), 1.0, 0.003)
    tune_a = [(b + 16, m, ln) for b, m, ln in parse_line(CREDIT_TUNE_A)]
    tune_b = [(b + 80, m, ln) for b, m, ln in parse_line(CREDIT_TUNE_B)]
    answer = parse_line(CREDIT_ANSWER)
    turn = [(b + 112, m, ln) for b, m, ln in parse_line(CREDIT_TURN)]
    play_line(song, "lead", tune_a + answer + turn, lambda m, h: pluck(m, h, 0.75, 1.6), 1.0, 0.98)
    play_line(song, "flute", tune_a, flute, 1.0, 0.9)
    play_line(song, "flute", tune_b, flute, 1.6, 0.95)
    play_line(song, "lead", tune_b, lambda m, h: pluck(m - 12, h, 0.6, 1.2), 0.6, 0.98)
    drums(song)
    x = mixdown(song,
                levels={"pad": -30.0, "strum": -24.0, "bass": -22.0, "lead": -20.0, "flute": -24.0,
                        "kick": -22.0, "snare": -25.0, "hat": -30.0, "shaker": -34.0},
                sends={"pad": 0.4, "strum": 0.25, "lead": 0.35, "flute": 0.45, "snare": 0.25,
                       "hat": 0.05, "kick": 0.02},
                ir=hall(2.2, 1.6, 4500.0, "credits"), echo=(0.75, 0.25, 3000.0, 0.5),
                eq={"strum": dict(low=150.0), "pad": dict(low=100.0, high=2200.0)})
    return master(x, -27.0)


def drums(song):
    """Kick and clap on the beat, hats between; sparser in the opening and
    closing bars, a small fill into the top of the loop."""
    for bar in range(1, song.bars + 1):
        b0 = (bar - 1) * 4
        intro, bridge, outro = bar <= 4, 21 <= bar <= 28, bar >= 29
        kicks = (0, 2) if not bridge else (0, 1.5, 2)
        for k in kicks:
            song.add("kick", b0 + k, kick(bar % 2), 1.0)
        if not intro:
            for k in ((3,) if outro else (1, 3)):
                song.add("snare", b0 + k, snare(bar % 3), 1.0, 0.003)
        for k in range(8):
            v = 0.6 if k % 2 == 0 else 1.0
            song.add("hat", b0 + k * 0.5, hat(k % 3), v * (0.7 if intro else 1.0), 0.004)
        if bridge and bar % 2 == 0:
            song.add("hat", b0 + 3.5, hat(0, True), 0.8)
        if not intro and not outro:
            for k in range(16):
                song.add("shaker", b0 + k * 0.25, shaker(k % 4), (0.5, 0.25, 0.8, 0.3)[k % 4], 0.003)
        if bar == song.bars:
            for k, v in ((3.25, 0.35), (3.5, 0.5), (3.75, 0.7)):
                song.add("snare", b0 + k, snare(k * 4 % 3), v)


# ---------------------------------------------------------------- MUSIC02

LEVEL_CHORDS = {
    "Dm9": ("D2", "F3 A3 C4 E4"), "G/D": ("D2", "G3 B3 D4 E4"),
    "Bbmaj9": ("A#1", "F3 A3 C4 D4"), "C": ("C2", "E3 G3 C4 D4"),
    "Am7": ("A1", "G3 C4 E4"), "Gm9": ("G1", "A#3 D4 F4 A4"),
    "A7sus": ("A1", "D3 G3 E4"), "A7": ("A1", "C#4 E4 G4"),
}
LEVEL_PROGRESSION = ("Dm9 | G/D | Dm9 | G/D | Bbmaj9 | C | Dm9 | Am7 |"
                     "Gm9 | Am7 | Bbmaj9 | C | Gm9 | Am7 | Bbmaj9 | A7sus:2 A7:2 |"
                     "Dm9 | G/D | Dm9 | G/D | Bbmaj9 | C | Am7 | A7sus:2 A7:2")
LEVEL_BELLS = ("r:4 | r:2 E5:.5 D5:.5 A4:1 | r:4 | r:2 F5:.5 E5:.5 C5:1 |"
               "r:4 | r:2 D5:.5 C5:.5 G4:1 | r:4 | r:2 E5:.5 C#5:.5 A4:1 |"
               "r:4 | r:4 | r:2.5 A5:.5 G5:.5 E5:.5 | r:4 |"
               "r:4 | r:4 | r:2.5 F5:.5 E5:.5 D5:.5 | r:4")
LEVEL_FIGURE = ((0, 0, 1.0), (1, 2, 0.55), (3, 1, 0.8), (4, 3, 0.7), (6, 2, 0.75), (7, 4, 0.55))


def track_level():
    song = Song("level", 92, 24)
    sheet = chord_sheet(song, LEVEL_PROGRESSION, LEVEL_CHORDS)
    for beat, length, (root, voicing) in sheet:
        low = midi(root)
        voice = notes(voicing)
        bar = int(beat // 4) + 1
        for m in voice:
            song.add("pad", beat, pad(m, round(song.seconds(length), 3), 0.6, 1.2, 1400.0), 1.0)
        # The marimba figure: chord tones from the root two octaves up.
        tones = [low + 24] + sorted(m + 12 for m in voice)
        for eighth, which, v in LEVEL_FIGURE:
            off = eighth * 0.5
            if off < length and not (bar >= 17 and eighth % 2):
                m = tones[which % len(tones)]
                song.add("mallet", beat + off, marimba(m), v * song.r.uniform(0.85, 1.0), 0.005)
        if bar >= 17:
            bassline = ((0, low, 1.5), (2.5, low, 1.0))
        else:
            bassline = ((0, low, 0.7), (0.75, low, 0.2), (1.5, low + 7, 0.45), (2.5, low, 0.45),
                        (3, low + 12, 0.45), (3.5, low + 7, 0.45))
        for off, m, ln in bassline:
            if off < length:
                song.add("bass", beat + off, bass(m, round(song.seconds(ln), 3)), 1.0, 0.003)
    bells = [(b + 32, m, ln) for b, m, ln in parse_line(LEVEL_BELLS)]
    play_line(song, "bells", bells, bell, 1.0, 1.0, 0.004)
    for bar in range(1, song.bars + 1):
        b0 = (bar - 1) * 4
        busy = 9 <= bar <= 16
        for k in ((0, 1.75, 2.5) if busy else (0, 2.5) if bar < 17 else (0,)):
            song.add("kick", b0 + k, kick(0, True), 1.0 if k == 0 else 0.75)
        if bar < 17 or bar % 2 == 0:
            for k in (1, 3):
                song.add("rim", b0 + k, rim(bar % 2), 1.0, 0.004)
        for k in range(16):
            song.add("shaker", b0 + k * 0.25, shaker(k % 4), (0.6, 0.2, 0.45, 0.25)[k % 4], 0.004)
        if busy:
            for k in range(8):
                song.add("hat", b0 + k * 0.5, hat(k % 3), 0.5 if k % 2 == 0 else 0.9, 0.004)
    x = mixdown(song,
                levels={"pad": -27.0, "mallet": -21.0, "bass": -22.0, "bells": -25.0, "kick": -24.0,
                        "rim": -29.0, "shaker": -34.0, "hat": -35.0},
                sends={"pad": 0.4, "mallet": 0.3, "bells": 0.6, "rim": 0.3, "shaker": 0.1},
                ir=hall(2.5, 2.0, 3500.0, "level"), echo=(0.75, 0.3, 2500.0, 0.5),
                eq={"pad": dict(low=120.0, high=1800.0), "mallet": dict(low=150.0)})
    return master(x, -28.0)


TRACKS = [(track_menu, "music: menus (A minor, 84 bpm, pads, keys and vibraphone)"),
          (track_credits, "music: credits (C major, 112 bpm, plucked tune and drums)"),
          (track_level, "music: in a level (D dorian, 92 bpm, marimba groove)")]


def generate(reg):
    for i, (fn, role) in enumerate(TRACKS):
        reg.sound("MUSIC", "MUSIC%02d" % i, fn(), RATE, role)
