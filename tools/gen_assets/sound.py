"""SOUND: the 27 sound effects SOUND00 .. SOUND26, 16-bit mono 22050 Hz.

Each effect is shaped for the moment the game plays it (see the role of each
in EFFECTS and assets/README.md), starts and ends in silence, and is set to a
loudness of its own class: the big moments (explosions, launch, fanfares)
loudest, the everyday feedback (building, digging, picking up) a little
under them, the interface ticks and the sounds that repeat quieter still.
Loudness here is the loudest 50 ms of the ear-weighted signal, so a click
and a boom of equal value sound equally present; peaks stay 1 dB under full
scale after that.
"""
import numpy as np

import synth
from synth import RATE, samples, hz, sine, wave, fm, noise, strike, adsr, fade_curve, at, mix, band, sweep
from common import rng

CEILING = synth.db(-1.0)


def rand(*key):
    return rng("sound", *key)


def hiss(dur, key, low=None, high=None, order=2):
    """White noise of `dur` seconds, band-limited."""
    x = noise(samples(dur), rand("hiss", key))
    return band(x, low, high, order) if (low or high) else x


def ring(f0, dur, ratios, taus, gains, attack=0.001):
    """Struck metal or wood: partials at fixed ratios, each dying at its own
    rate (higher partials faster)."""
    n = samples(dur)
    t = synth.seconds_axis(n)
    out = np.zeros(n)
    for ratio, tau, g in zip(ratios, taus, gains):
        f = f0 * ratio
        if f < 0.45 * RATE:
            out += g * np.sin(2 * np.pi * f * t) * np.exp(-t / tau)
    return out * fade_curve(n, attack, 0.01)


def bell(f, dur, index=2.0, ratio=3.5, tau=0.5, bright_tau=0.12):
    """An FM bell or chime: bright at the strike, mellowing as it rings."""
    n = samples(dur)
    t = synth.seconds_axis(n)
    idx = index * np.exp(-t / bright_tau) + 0.15
    return fm(f, n, ratio, idx) * strike(n, 0.0015, tau)


def bubble(f0, f1, dur, tau=None):
    """A bubble's pop: a sine that rises quickly as it rings out."""
    n = samples(dur)
    tau = dur / 3.0 if tau is None else tau
    return sine(synth.glide(f0, f1, n, 0.6), n) * strike(n, 0.002, tau)


def thud(f0, f1, dur, tau):
    n = samples(dur)
    return sine(synth.glide(f0, f1, n, 0.5), n) * strike(n, 0.002, tau)


def grains(dur, count, key, low, high, length=0.012, spread=1.0, decay=0.3):
    """Scattered short noise grains (debris, crackle, earth): denser at the
    start, dying away."""
    r = rand("grains", key)
    n = samples(dur)
    out = np.zeros(n)
    g = samples(length)
    shape = np.hanning(g)
    for _ in range(count):
        pos = (r.random() ** 1.8) * spread
        i = int(pos * (n - g))
        amp = np.exp(-pos * dur / decay) * r.uniform(0.4, 1.0)
        out[i:i + g] += r.uniform(-1, 1, g) * shape * amp
    return band(out, low, high, 2)


def chord_pad(notes, dur, attack, release, bright=3000.0, detune=6.0):
    """A warm chord of detuned saws, low-passed."""
    n = samples(dur)
    out = np.zeros(n)
    for i, m in enumerate(notes):
        for c in (-detune, detune):
            out += wave("saw", hz(m) * synth.cents(c), n, start=0.31 * i + (0.5 if c > 0 else 0))
    out = band(out, 80.0, bright, 2)
    return out * adsr(n, attack, 0.4, 0.85, release)


def brass(m, dur, gate, key):
    """A soft brass note: the filter opens with the attack, then settles."""
    n = samples(dur)
    f = hz(m)
    vib = 1.0 + 0.003 * np.sin(2 * np.pi * 5.0 * synth.seconds_axis(n)) * np.clip(
        (synth.seconds_axis(n) - 0.15) / 0.2, 0, 1)
    x = 0.6 * wave("saw", f * vib, n) + 0.4 * wave("saw", f * vib * synth.cents(7), n, start=0.4)

    def gain(fr, t):
        cut = f * (1.5 + 5.0 * np.exp(-t / 0.12)) + 400.0
        return synth.lowpass(fr, cut, 2)
    return sweep(x, gain) * adsr(n, 0.02, 0.2, 0.75, 0.25, gate)


# ---------------------------------------------------------------- the effects

def s_title():
    """0: the title drops in from above the screen in about 1.4 s, slowing
    as it comes to rest: an airy whoosh falling in pitch, then a soft
    landing and an open chime (A, E, B: it sits on the menu music's A minor
    and does not fight it)."""
    dur, land = 2.6, 1.42
    n = samples(dur)
    x = hiss(dur, "title", 150.0, 7000.0)

    def gain(f, t):
        c = 3600.0 * (280.0 / 3600.0) ** np.clip(t / land, 0, 1) ** 0.8
        return synth.resonant(f, c, 9.0, 2, 0.7) * synth.highpass(f, c * 0.25, 1)
    t = synth.seconds_axis(n)
    swell = np.clip(t / 1.1, 0, 1) ** 2 * np.exp(-np.clip(t - 1.1, 0, None) / 0.18)
    whoosh = sweep(x, gain) * swell
    shimmer = sine(synth.glide(1760.0, 880.0, n, 0.7), n) * swell * 0.06
    landing = at(thud(120.0, 55.0, 0.5, 0.11), land, n)
    chime = np.zeros(n)
    for i, (m, g) in enumerate((("A4", 0.5), ("E5", 0.45), ("B5", 0.35), ("E6", 0.22))):
        chime += at(bell(hz(m), dur - land - 0.05, 1.6, 2.0, 0.55, 0.08) * g, land + 0.025 * i, n)
    chime = synth.echo(chime, 0.19, 0.3, 2500.0, 0.5)[:n]
    return mix(whoosh * 1.6, shimmer, landing * 0.9, chime * 0.8)


def s_build():
    """1: a structure is bolted in place: a firm metal clank, a second
    lighter clink as it seats, and the thud of its weight."""
    dur = 0.42
    n = samples(dur)
    beam = ring(390.0, dur, (1.0, 2.76, 5.40, 8.93), (0.11, 0.07, 0.04, 0.025), (0.8, 0.55, 0.35, 0.2))
    seat = at(ring(610.0, dur - 0.05, (1.0, 2.76, 5.40), (0.06, 0.035, 0.02), (0.35, 0.25, 0.15)), 0.05, n)
    hit = hiss(0.03, "build", 1500.0, 7000.0) * strike(samples(0.03), 0.0005, 0.006)
    weight = thud(160.0, 70.0, 0.2, 0.05)
    return mix(beam, seat, hit * 0.7, weight * 0.9)


def s_blast():
    """2: dynamite, or a rocket smashing through rock: a sharp crack, a
    heavy boom whose roar darkens as it spreads, debris, a long rumble."""
    dur = 1.5
    n = samples(dur)
    t = synth.seconds_axis(n)
    crack = hiss(0.05, "blast-crack", 900.0) * strike(samples(0.05), 0.0003, 0.012)
    roar = hiss(dur, "blast-roar")

    def gain(f, tt):
        cut = 250.0 + 4500.0 * np.exp(-tt / 0.12)
        return synth.lowpass(f, cut, 2)
    roar = sweep(roar, gain) * strike(n, 0.003, 0.32)
    boom = thud(95.0, 32.0, dur, 0.3)
    rumble = hiss(dur, "blast-rumble", 30.0, 180.0) * np.clip(t / 0.05, 0, 1) * np.exp(-t / 0.55)
    debris = grains(dur, 26, "blast", 900.0, 4000.0, 0.01, 0.7, 0.35)
    body = mix(crack * 0.9, roar * 1.1, boom * 1.2, rumble * 1.3, debris * 0.25)
    # A little saturation gives the boom weight without raising its peak.
    return np.tanh(body * 1.6) / 1.6 * fade_curve(n, 0.0, 0.08)


def s_coin():
    """3: a bubbleman picks up credits: a bright two-note ring (B5 to E6)."""
    dur = 0.55
    n = samples(dur)
    a = bell(hz("B5"), 0.12, 1.2, 2.0, 0.06, 0.03)
    b = bell(hz("E6"), dur - 0.07, 1.2, 2.0, 0.14, 0.05)
    sparkle = at(bell(hz("B6"), 0.3, 0.6, 2.0, 0.08, 0.03), 0.09, n) * 0.25
    return mix(a, at(b, 0.07, n), sparkle)


def s_wrong():
    """4: a wrong password: two low, dull tones falling a tritone, 'nuh-uh'."""
    def buzz(m, dur, gate):
        k = samples(dur)
        f = hz(m) * (1.0 + 0.01 * np.sin(2 * np.pi * 9.0 * synth.seconds_axis(k)))
        x = wave("square", f, k, limit=12) * 0.7 + wave("saw", f * 0.5, k, limit=12) * 0.4
        return band(x, 120.0, 1600.0, 2) * adsr(k, 0.006, 0.08, 0.7, 0.05, gate)
    return mix(buzz("E4", 0.2, 0.15), at(buzz("A#3", 0.34, 0.26), 0.2))


def s_right():
    """5: a password accepted: a quick rising arpeggio that rings."""
    n = samples(1.0)
    out = np.zeros(n)
    for i, m in enumerate(("C5", "E5", "G5", "C6")):
        last = i == 3
        out += at(bell(hz(m), 0.9 - 0.07 * i, 1.4, 1.0, 0.35 if last else 0.12, 0.06)
                  * (1.0 if last else 0.8), 0.07 * i, n)
    return synth.echo(out, 0.14, 0.25, 3000.0, 0.6)[:n]


def s_planet():
    """6: a planet picked on the selection screen: a round, soft 'bwom' with
    a breath of air, like a globe set turning."""
    dur = 0.45
    n = samples(dur)
    t = synth.seconds_axis(n)
    f = hz("C5") * (1.0 - 0.06 * np.exp(-t / 0.03))
    orb = fm(f, n, 1.0, 1.5 * np.exp(-t / 0.06) + 0.1) * strike(n, 0.004, 0.13)
    sub = sine(f / 2, n) * strike(n, 0.006, 0.1)
    air = hiss(dur, "planet")

    def gain(fr, tt):
        cut = 900.0 + 2200.0 * np.clip(tt / 0.2, 0, 1)
        return synth.resonant(fr, cut, 6.0, 2, 0.6) * synth.highpass(fr, 500.0, 1)
    air = sweep(air, gain) * strike(n, 0.03, 0.08)
    return mix(orb * 0.8, sub * 0.5, air * 0.25)


def s_failed():
    """7: a mission lost: a sad falling line (G, E flat, C) over a dark
    C minor chord, the last note sagging as it fades."""
    dur = 2.3
    n = samples(dur)
    pad = chord_pad(("C3", "G3", "D#4"), dur, 0.25, 0.9, 1200.0)
    lead = np.zeros(n)
    for i, (m, start, length) in enumerate((("G4", 0.0, 0.32), ("D#4", 0.34, 0.32), ("C4", 0.68, 1.6))):
        k = samples(length)
        tt = synth.seconds_axis(k)
        f = hz(m) * (1.0 + 0.004 * np.sin(2 * np.pi * 5.0 * tt) * np.clip((tt - 0.2) / 0.3, 0, 1))
        if i == 2:
            f = f * synth.glide(1.0, synth.cents(-60), k, 3.0)
        x = wave("tri", f, k) * 0.8 + wave("saw", f, k, limit=8, tilt=2.0) * 0.35
        lead += at(x * adsr(k, 0.02, 0.2, 0.8, 0.5 if i == 2 else 0.08), start, n)
    out = mix(pad * 0.12, lead)
    return synth.echo(out, 0.23, 0.22, 1800.0, 0.5)[:n] * fade_curve(n, 0.0, 0.3)


def s_complete():
    """8: a mission won: a short fanfare, three pick-up notes and a held,
    full C major chord with sparkle on top."""
    dur = 2.5
    n = samples(dur)
    out = np.zeros(n)
    for i, m in enumerate(("G4", "C5", "E5")):
        out += at(brass(synth.midi(m), 0.2, 0.1, i), 0.11 * i, n) * 0.8
    hit = 0.36
    for m in ("C4", "G4", "C5", "E5", "G5"):
        out += at(brass(synth.midi(m), dur - hit, 1.3, m), hit, n) * 0.45
    for i, m in enumerate(("C6", "E6", "G6", "C7")):
        out += at(bell(hz(m), 0.8, 1.0, 2.0, 0.25, 0.05), hit + 0.06 + 0.07 * i, n) * 0.2
    out = band(out, 90.0, 6000.0, 2)
    return synth.echo(out, 0.17, 0.25, 2500.0, 0.5)[:n] * fade_curve(n, 0.0, 0.25)


def s_spare_blip():
    """9: no event plays it: a quiet, soft rising blip."""
    return bubble(660.0, 990.0, 0.12, 0.04)


def s_spare_tick():
    """10: no event plays it: a small, dry interface tick."""
    return ring(2600.0, 0.04, (1.0, 1.5), (0.006, 0.004), (1.0, 0.4))


def s_click():
    """11: a button pressed: a short, firm, slightly woody click."""
    dur = 0.07
    knock = ring(1150.0, dur, (1.0, 2.3, 3.9), (0.012, 0.006, 0.004), (1.0, 0.5, 0.3))
    body = thud(260.0, 180.0, dur, 0.01)
    snap = hiss(0.01, "click", 2500.0, 8000.0) * strike(samples(0.01), 0.0003, 0.0015)
    return mix(knock, body * 0.6, snap * 0.5)


def s_refused():
    """12: a build, dig or blast refused: two short, low, muted blips
    ('eh-eh'), clear enough to notice, soft enough to hear often."""
    def blip(m, dur):
        k = samples(dur)
        x = wave("square", hz(m), k, limit=10) * 0.6 + sine(hz(m) / 2, k) * 0.5
        return band(x, 100.0, 1400.0, 2) * adsr(k, 0.004, 0.05, 0.75, 0.025)
    return mix(blip("D#3", 0.09), at(blip("C3", 0.12), 0.13))


def s_slider():
    """13: a slider moved one step: a tiny, high tick (it repeats as the
    slider is dragged, so it is short and light)."""
    dur = 0.05
    tick = ring(1900.0, dur, (1.0, 2.1), (0.01, 0.005), (1.0, 0.35))
    snap = hiss(0.008, "slider", 3000.0, 9000.0) * strike(samples(0.008), 0.0003, 0.0012)
    return mix(tick, snap * 0.4)


def s_launch():
    """14: the launch panel slides in, and the rockets lift off: engines
    spooling up, a rising roar that opens out, and a bright tail."""
    dur = 2.0
    n = samples(dur)
    t = synth.seconds_axis(n)
    rise = np.clip(t / 1.3, 0, 1)
    hum_f = synth.glide(55.0, 130.0, n, 0.7)
    hum = (wave("saw", hum_f, n, limit=24) * 0.6
           + wave("saw", hum_f * synth.cents(12), n, limit=24, start=0.3) * 0.4)

    def hum_gain(f, tt):
        return synth.lowpass(f, 250.0 + 1400.0 * np.clip(tt / 1.3, 0, 1) ** 1.5, 2)
    hum = sweep(hum, hum_gain)
    roar = hiss(dur, "launch")

    def roar_gain(f, tt):
        c = 180.0 * (3500.0 / 180.0) ** np.clip(tt / 1.4, 0, 1)
        return synth.resonant(f, c, 4.0, 2, 0.8)
    roar = sweep(roar, roar_gain)
    ignition = thud(140.0, 60.0, 0.35, 0.09)
    # A turbine whine climbing with the engines gives the roar a pitch.
    whine = sine(synth.glide(380.0, 1500.0, n, 0.8), n) * rise
    shape = (0.15 + 0.85 * rise ** 1.5) * fade_curve(n, 0.01, 0.5)
    return mix(hum * shape, roar * 0.6 * shape, whine * 0.12 * shape, ignition * 0.7)


def s_chain():
    """15: radioactive or explosive material goes off: an electric zap
    falling in pitch, a crackling, fizzing burst and a deep thump, unlike
    the plain blast of sound 2."""
    dur = 1.4
    n = samples(dur)
    t = synth.seconds_axis(n)
    zk = samples(0.4)
    zt = synth.seconds_axis(zk)
    zap = fm(synth.glide(1800.0, 120.0, zk, 0.5), zk, 1.41, 6.0 * np.exp(-zt / 0.15)) * strike(zk, 0.001, 0.1)
    crackle = grains(1.0, 70, "chain", 1500.0, 7000.0, 0.004, 1.0, 0.4)
    fizz = hiss(dur, "chain-fizz", 2500.0) * np.exp(-t / 0.35) * (0.6 + 0.4 * np.sin(2 * np.pi * 31.0 * t))
    body = hiss(dur, "chain-body", None, 900.0) * strike(n, 0.003, 0.22)
    boom = thud(110.0, 40.0, 0.9, 0.2)
    out = mix(at(zap, 0.0, n) * 0.6, crackle * 0.9, fizz * 0.3, body * 0.9, boom * 1.0)
    return np.tanh(out * 1.5) / 1.5 * fade_curve(n, 0.0, 0.1)


def s_sucked():
    """16: requested every tick (25 ms) while a bubbleman is drawn into a
    vortex, so each copy is a 90 ms falling swish: overlapping copies blend
    into one continuous, swirling whirl that falls in pitch."""
    dur = 0.09
    n = samples(dur)
    x = hiss(dur, "sucked")

    def gain(f, tt):
        c = 1900.0 * (700.0 / 1900.0) ** np.clip(tt / dur, 0, 1)
        return synth.resonant(f, c, 10.0, 2, 0.5) * synth.highpass(f, c * 0.5, 2)
    swish = sweep(x, gain)
    whistle = sine(synth.glide(760.0, 380.0, n), n)
    return mix(swish, whistle * 0.25) * np.hanning(n)


def s_board(variant):
    """17, 18, 19: a bubbleman climbs into a rocket: a cheerful bubbly
    'bloop', in three varieties so that a crowd boarding is not a drone."""
    if variant == 0:
        return mix(bubble(420.0, 1100.0, 0.16, 0.05), at(bubble(700.0, 1500.0, 0.14, 0.04), 0.08) * 0.6)
    if variant == 1:
        return mix(bubble(hz("G5") * 0.7, hz("G5"), 0.1, 0.035),
                   at(bubble(hz("D6") * 0.7, hz("D6"), 0.2, 0.06), 0.085))
    return mix(bubble(500.0, 900.0, 0.12, 0.04), at(bubble(650.0, 1250.0, 0.12, 0.04), 0.06) * 0.8,
               at(bell(hz("A6"), 0.2, 0.6, 2.0, 0.06, 0.03), 0.11) * 0.3)


def s_enter():
    """20: a bubbleman starts climbing into a rocket (11 ticks before his
    boarding bloop): the hatch hisses open and a soft rising shimmer."""
    dur = 0.3
    n = samples(dur)
    x = hiss(dur, "enter")

    def gain(f, tt):
        return synth.resonant(f, 1200.0 + 3500.0 * np.clip(tt / 0.12, 0, 1), 5.0, 2, 0.7)
    hatch = sweep(x, gain) * strike(n, 0.008, 0.05)
    shimmer = sine(synth.glide(700.0, 1400.0, n, 0.6), n) * adsr(n, 0.03, 0.1, 0.6, 0.12)
    clunk = ring(520.0, 0.08, (1.0, 2.76), (0.02, 0.01), (1.0, 0.4))
    return mix(hatch * 0.8, shimmer * 0.25, clunk * 0.35)


def s_spare_pop():
    """21: no event plays it: a small soft pop."""
    return bubble(300.0, 700.0, 0.08, 0.025)


def s_spare_thunk():
    """22: no event plays it: a muted low knock."""
    return mix(ring(330.0, 0.12, (1.0, 2.4), (0.03, 0.015), (1.0, 0.3)), thud(150.0, 90.0, 0.12, 0.03) * 0.6)


def s_spare_chime():
    """23: no event plays it: one small chime."""
    return bell(hz("E6"), 0.3, 1.0, 2.0, 0.08, 0.03)


def s_welcome():
    """24: the first arrival at the selection screen in a run: a warm chord
    that swells in, with a harp-like run rising through it (A, E, B around
    the menu music's A minor)."""
    dur = 2.6
    n = samples(dur)
    pad = chord_pad(("A2", "E3", "B3", "E4", "A4"), dur, 0.5, 1.0, 2200.0, 8.0)
    run = np.zeros(n)
    r = rand("welcome")
    for i, m in enumerate(("E4", "A4", "B4", "E5", "A5", "B5", "E6")):
        k = samples(dur - 0.3 - 0.09 * i)
        note = synth.pluck(hz(m), k, r, t60=1.2, bright=0.6) * fade_curve(k, 0.001, 0.2)
        run += at(note, 0.3 + 0.09 * i, n) * (0.5 - 0.03 * i)
    out = mix(pad * 0.25, run)
    return synth.echo(out, 0.21, 0.3, 2500.0, 0.5)[:n] * fade_curve(n, 0.0, 0.4)


def s_hatch():
    """25: the pods hatch: shells crack, a wet pop, and a burst of rising
    bubbles as the bubblemen come out."""
    dur = 0.85
    n = samples(dur)
    crack = mix(hiss(0.04, "hatch", 1200.0, 8000.0) * strike(samples(0.04), 0.0003, 0.008),
                ring(720.0, 0.06, (1.0, 2.3), (0.015, 0.008), (0.7, 0.3)))
    pop = bubble(220.0, 900.0, 0.08, 0.03)
    r = rand("hatch-bubbles")
    bubbles = np.zeros(n)
    # Bubbles rise in a loose cluster, not a scale: uneven gaps and pitches.
    start = 0.07
    for i in range(11):
        f = r.uniform(420.0, 1300.0) * (1.0 + 0.04 * i)
        size = r.uniform(0.05, 0.11)
        bubbles += at(bubble(f, f * r.uniform(1.5, 2.2), size, size / 3.0), start, n) * (0.75 - 0.05 * i)
        start += r.uniform(0.015, 0.075)
    return mix(crack * 0.8, at(pop, 0.03, n) * 0.9, bubbles * 0.6)


def s_dig():
    """26: a cell dug out: the shovel bites, earth scrapes and crumbles."""
    dur = 0.42
    n = samples(dur)
    bite = mix(hiss(0.05, "dig-bite", None, 2500.0) * strike(samples(0.05), 0.0005, 0.015),
               thud(120.0, 60.0, 0.12, 0.03))
    r = rand("dig-scrape")
    k = samples(0.22)
    grit = np.abs(band(r.uniform(-1, 1, k), None, 40.0, 1)) ** 1.5
    grit /= grit.max()
    scrape = hiss(0.22, "dig-scrape", 700.0, 3800.0) * (0.3 + 0.7 * grit) * adsr(k, 0.01, 0.08, 0.5, 0.1)
    crumble = grains(0.35, 30, "dig", 200.0, 2000.0, 0.015, 1.0, 0.15)
    return mix(bite * 0.9, at(scrape, 0.03, n) * 0.7, at(crumble, 0.07, n) * 0.8)


# Each effect with its role and its loudness (see loudness() in synth.py).
BIG, EVENT, MINOR, TICK, SPARE = -12.0, -15.0, -17.0, -19.0, -24.0

EFFECTS = [
    (s_title, "main-menu title slides in", BIG - 2),
    (s_build, "structure or hatcher built", EVENT),
    (s_blast, "explosion (blast)", BIG),
    (s_coin, "credits picked up", EVENT),
    (s_wrong, "wrong password", EVENT),
    (s_right, "password accepted", EVENT),
    (s_planet, "planet button clicked", MINOR),
    (s_failed, "mission failed", BIG - 2),
    (s_complete, "mission complete", BIG - 2),
    (s_spare_blip, "spare (no event)", SPARE),
    (s_spare_tick, "spare interface tick (no event)", SPARE),
    (s_click, "button pressed", TICK + 1),
    (s_refused, "build, dig or blast refused", MINOR),
    (s_slider, "slider value changed", TICK),
    (s_launch, "launch panel arrives / rockets launched", BIG - 1),
    (s_chain, "chain explosion (radioactive, explosive)", BIG),
    (s_sucked, "bubbleman sucked away (repeats each tick)", SPARE + 2),
    (lambda: s_board(0), "bubbleman boards a rocket (1 of 3)", MINOR),
    (lambda: s_board(1), "bubbleman boards a rocket (2 of 3)", MINOR),
    (lambda: s_board(2), "bubbleman boards a rocket (3 of 3)", MINOR),
    (s_enter, "bubbleman starts boarding", TICK),
    (s_spare_pop, "spare (no event)", SPARE),
    (s_spare_thunk, "spare (no event)", SPARE),
    (s_spare_chime, "spare (no event)", SPARE),
    (s_welcome, "first arrival at game select", EVENT),
    (s_hatch, "pods hatched", EVENT),
    (s_dig, "cell dug out", EVENT),
]


def finish(x, target):
    """No DC, silent ends, the class loudness, peaks under the ceiling."""
    x = band(x, 30.0, None, 1)
    x = x * synth.db(target - synth.loudness(x))
    x = synth.limit(x, CEILING)
    return x * fade_curve(len(x), 0.002, 0.004)


def generate(reg):
    for i, (fn, role, target) in enumerate(EFFECTS):
        reg.sound("SOUND", "SOUND%02d" % i, finish(fn(), target), RATE, "sound: " + role)
