"""SOUND: the 27 sound effects SOUND00 .. SOUND26, 16-bit mono 22050 Hz,
each short and shaped for its event; all end in silence."""
import numpy as np

import synth
from synth import RATE, osc, soft_square, soft_saw, env, perc, fft_filter, sweep_filter, echo, mix, finish, note_hz
from common import rng


def tone(shape, f, dur, e):
    x = soft_square(f, dur) if shape == "square" else soft_saw(f, dur) if shape == "saw" else osc(shape, f, dur)
    return x * e(len(x))


def glide(f0, f1, dur, curve="exp"):
    n = synth.samples(dur)
    t = np.linspace(0, 1, n)
    return f0 * (f1 / f0) ** t if curve == "exp" else f0 + (f1 - f0) * t


def noise(dur, key):
    return osc("noise", 0, dur, rng("noise", key))


def s_title():
    """0: the title slides in: a whoosh that rises and settles, then a chime."""
    n = noise(1.3, 0)
    w = sweep_filter(n, 300, 4000) * env(len(n), 0.5, 0.6, 0.2, 0.3)
    chime = mix(*[np.pad(tone("sine", note_hz(nm), 0.9, lambda k: perc(k, 0.003, 5)) * 0.5,
                         (int((0.75 + i * 0.07) * RATE), 0)) for i, nm in enumerate(("E5", "B5", "E6"))])
    return mix(w * 0.8, chime)


def s_build():
    """1: a structure is bolted in place: metal clank."""
    dur = 0.4
    parts = [tone("sine", f, dur, lambda k, a=a: perc(k, 0.001, a)) * g
             for f, a, g in ((410, 9, 0.7), (1130, 14, 0.5), (1875, 18, 0.35), (2740, 22, 0.2))]
    hit = fft_filter(noise(0.05, 1), low=800) * perc(synth.samples(0.05), 0.0005, 6)
    thud = tone("sine", glide(140, 70, 0.15), 0.15, lambda k: perc(k, 0.001, 7))
    return mix(sum(parts), hit * 0.6, thud * 0.8)


def s_blast():
    """2: a dynamite blast or a rocket smashing through rock."""
    dur = 1.0
    n = fft_filter(noise(dur, 2), high=700) * perc(synth.samples(dur), 0.004, 3.5)
    boom = tone("sine", glide(95, 35, dur), dur, lambda k: perc(k, 0.004, 4))
    crack = fft_filter(noise(0.08, 3), low=1500) * perc(synth.samples(0.08), 0.0005, 8)
    return mix(n * 2.0, boom * 1.0, crack * 0.2)


def s_coin():
    """3: credits picked up: two bright notes."""
    a = tone("square", note_hz("B5"), 0.08, lambda k: env(k, 0.002, 0.05, 0.5, 0.01))
    b = tone("square", note_hz("E6"), 0.3, lambda k: perc(k, 0.002, 6))
    return mix(a, np.pad(b, (len(a), 0))) * 0.6


def s_wrong():
    """4: a wrong password: a low two-step buzzer."""
    a = fft_filter(tone("saw", 196, 0.22, lambda k: env(k, 0.005, 0.1, 0.7, 0.03)), high=1800)
    b = fft_filter(tone("saw", 147, 0.32, lambda k: env(k, 0.005, 0.1, 0.7, 0.08)), high=1500)
    return mix(a, np.pad(b, (int(0.24 * RATE), 0)))


def s_right():
    """5: a password accepted: a rising arpeggio."""
    out = []
    for i, nm in enumerate(("C5", "E5", "G5", "C6")):
        x = tone("square", note_hz(nm), 0.45 if i == 3 else 0.2, lambda k: perc(k, 0.003, 5))
        out.append(np.pad(x, (int(i * 0.085 * RATE), 0)))
    return echo(mix(*out), 0.11, 0.3, 2) * 0.6


def s_planet():
    """6: a planet picked: a soft round blip."""
    x = tone("sine", glide(700, 520, 0.18), 0.18, lambda k: perc(k, 0.002, 5))
    y = tone("sine", glide(1400, 1040, 0.18), 0.18, lambda k: perc(k, 0.002, 7))
    return mix(x, y * 0.3)


def s_failed():
    """7: a mission lost: three falling notes in minor."""
    out = []
    for i, nm in enumerate(("G4", "Eb4", "C4")):
        d = 0.7 if i == 2 else 0.35
        x = tone("tri", note_hz(nm), d, lambda k: env(k, 0.01, 0.2, 0.5, 0.15))
        x += 0.3 * tone("sine", note_hz(nm) * 2, d, lambda k: perc(k, 0.01, 4))
        out.append(np.pad(x, (int(i * 0.33 * RATE), 0)))
    return echo(mix(*out), 0.18, 0.25, 2)


def s_complete():
    """8: a mission won: a short fanfare ending on a major chord."""
    out = []
    for i, nm in enumerate(("C5", "E5", "G5")):
        out.append(np.pad(tone("square", note_hz(nm), 0.16, lambda k: env(k, 0.004, 0.08, 0.6, 0.03)) * 0.5,
                          (int(i * 0.13 * RATE), 0)))
    start = int(0.42 * RATE)
    for nm in ("C5", "E5", "G5", "C6"):
        out.append(np.pad(tone("saw", note_hz(nm), 1.1, lambda k: env(k, 0.01, 0.3, 0.5, 0.4)) * 0.3,
                          (start, 0)))
    return fft_filter(echo(mix(*out), 0.15, 0.25, 3), high=5000)


def s_tick(f=1800, dur=0.04, key=9):
    x = tone("sine", f, dur, lambda k: perc(k, 0.0008, 9))
    n = fft_filter(noise(dur, key), low=2500) * perc(synth.samples(dur), 0.0005, 12)
    return mix(x, n * 0.4)


def s_click():
    """11: a button pressed: a firm, short click."""
    a = s_tick(1200, 0.05, 11)
    b = tone("sine", glide(600, 300, 0.05), 0.05, lambda k: perc(k, 0.0008, 8))
    return mix(a, b * 0.6)


def s_refused():
    """12: a build, dig or blast refused: a short double buzz."""
    one = fft_filter(tone("square", 150, 0.09, lambda k: env(k, 0.003, 0.05, 0.8, 0.02)), high=2200)
    return mix(one, np.pad(one, (int(0.12 * RATE), 0)))


def s_slider():
    """13: a slider moved one step."""
    return tone("sine", 1320, 0.05, lambda k: perc(k, 0.001, 7)) * 0.8


def s_launch():
    """14: the launch panel arrives / the rockets lift off: rising rumble."""
    dur = 1.6
    n = sweep_filter(noise(dur, 14), 200, 2500) * env(synth.samples(dur), 0.3, 0.8, 0.6, 0.4)
    hum = tone("saw", glide(60, 180, dur), dur, lambda k: env(k, 0.2, 0.5, 0.6, 0.4))
    return mix(n, fft_filter(hum, high=900) * 0.6)


def s_chain():
    """15: radioactive or explosive material goes off: crackling zap-boom."""
    dur = 0.9
    r = rng("crackle")
    base = fft_filter(noise(dur, 15), high=2500) * perc(synth.samples(dur), 0.002, 4)
    pops = np.zeros(synth.samples(dur))
    for _ in range(25):
        i = int(r.random() ** 1.5 * (len(pops) - 200))
        pops[i:i + 60] += (r.random() - 0.5) * 2 * np.exp(-np.arange(60) / 12)
    zap = tone("saw", glide(1600, 90, 0.4), 0.4, lambda k: perc(k, 0.001, 4))
    return mix(base * 1.5, fft_filter(pops, high=5000) * 0.25, fft_filter(zap, high=4000) * 0.5)


def s_suck():
    """16: requested every tick while a bubbleman is drawn into a vortex, so
    it is a brief soft swish that blends into a whirl when repeated."""
    dur = 0.12
    n = fft_filter(noise(dur, 16), low=500, high=3000) * env(synth.samples(dur), 0.03, 0.05, 0.3, 0.05)
    w = tone("sine", glide(900, 500, dur), dur, lambda k: env(k, 0.02, 0.05, 0.5, 0.04))
    return mix(n * 0.5, w * 0.3)


def s_board(pitch):
    """17, 18, 19: a bubbleman climbs aboard: a cheerful bloop."""
    dur = 0.28
    f = glide(300 * pitch, 900 * pitch, dur)
    x = tone("sine", f, dur, lambda k: env(k, 0.005, 0.1, 0.6, 0.08))
    y = tone("sine", f * 2, dur, lambda k: perc(k, 0.005, 6))
    return mix(x, y * 0.25)


def s_enter():
    """20: the boarding or emerging shimmer begins."""
    dur = 0.5
    out = []
    for i, f in enumerate((1200, 1500, 1800, 2250)):
        out.append(np.pad(tone("sine", f, 0.22, lambda k: perc(k, 0.002, 6)) * 0.4, (int(i * 0.06 * RATE), 0)))
    hiss = fft_filter(noise(dur, 20), low=3000) * env(synth.samples(dur), 0.05, 0.2, 0.2, 0.2)
    return mix(mix(*out), hiss * 0.3)


def s_spare(key):
    """21, 22, 23 and 9, 10: spare, quiet blips no event uses yet."""
    f = 500 + 150 * key
    return tone("sine", f, 0.12, lambda k: perc(k, 0.002, 6)) * 0.6


def s_welcome():
    """24: first arrival at the game-select screen: a warm swelling chord."""
    dur = 1.4
    out = [tone("saw", note_hz(nm), dur, lambda k: env(k, 0.35, 0.5, 0.6, 0.5)) for nm in ("A3", "E4", "A4", "C#5")]
    return fft_filter(mix(*out), high=2500)


def s_hatch():
    """25: the pods hatch: a crack, a pop and rising bubbles."""
    crack = fft_filter(noise(0.07, 25), low=1200) * perc(synth.samples(0.07), 0.0005, 7)
    pop = tone("sine", glide(200, 900, 0.06), 0.06, lambda k: perc(k, 0.001, 5))
    bubbles = []
    r = rng("bubbles")
    for i in range(6):
        f = 400 + 140 * i + 60 * r.random()
        b = tone("sine", glide(f, f * 1.8, 0.07), 0.07, lambda k: perc(k, 0.002, 4))
        bubbles.append(np.pad(b, (int((0.1 + i * 0.07) * RATE), 0)))
    return mix(crack * 0.8, pop * 0.8, mix(*bubbles) * 0.6)


def s_dig():
    """26: a cell dug out: a gritty scrape and a crumble of earth."""
    dur = 0.35
    scrape = fft_filter(noise(dur, 26), low=700, high=4500) * env(synth.samples(dur), 0.01, 0.15, 0.3, 0.1)
    r = rng("grains")
    grains = np.zeros(synth.samples(dur))
    for _ in range(40):
        i = int(r.random() * (len(grains) - 100))
        grains[i:i + 80] += (r.random() - 0.5) * np.exp(-np.arange(80) / 10)
    thump = tone("sine", glide(120, 60, 0.12), 0.12, lambda k: perc(k, 0.001, 6))
    return mix(scrape * 0.8, fft_filter(grains, high=3000) * 0.5, thump * 0.6)


EFFECTS = [
    (s_title, "main-menu title slides in"),
    (s_build, "structure or hatcher built"),
    (s_blast, "explosion (blast)"),
    (s_coin, "credits picked up"),
    (s_wrong, "wrong password"),
    (s_right, "password accepted"),
    (s_planet, "planet button clicked"),
    (s_failed, "mission failed"),
    (s_complete, "mission complete"),
    (lambda: s_spare(9), "spare (no event)"),
    (lambda: s_tick(2400, 0.04, 10), "spare interface tick (no event)"),
    (s_click, "button pressed"),
    (s_refused, "build, dig or blast refused"),
    (s_slider, "slider value changed"),
    (s_launch, "launch panel arrives / rockets launched"),
    (s_chain, "chain explosion (radioactive, explosive)"),
    (s_suck, "bubbleman sucked away (repeats each tick)"),
    (lambda: s_board(1.0), "bubbleman boards a rocket (1 of 3)"),
    (lambda: s_board(1.26), "bubbleman boards a rocket (2 of 3)"),
    (lambda: s_board(1.5), "bubbleman boards a rocket (3 of 3)"),
    (s_enter, "bubbleman starts boarding"),
    (lambda: s_spare(21), "spare (no event)"),
    (lambda: s_spare(22), "spare (no event)"),
    (lambda: s_spare(23), "spare (no event)"),
    (s_welcome, "first arrival at game select"),
    (s_hatch, "pods hatched"),
    (s_dig, "cell dug out"),
]


def generate(reg):
    for i, (fn, role) in enumerate(EFFECTS):
        peak = 0.5 if i in (9, 10, 13, 16, 21, 22, 23) else 0.72
        reg.sound("SOUND", "SOUND%02d" % i, finish(fn(), peak), RATE, "sound: " + role)
