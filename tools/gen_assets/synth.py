"""The synthesiser behind the sound effects and the music: band-limited
oscillators read from harmonic tables, FM, plucked strings, envelopes,
FFT filters (fixed and time-varying), echo and reverb, a peak limiter and
the loudness measure that balances every sound against the others.

All of it is vectorised numpy: a whole note or a whole loop at a time. The
few loops in Python run over harmonics, string periods or filter frames,
never over single samples. Loops (the music) are filtered, echoed and
reverberated circularly, so whatever rings past the end comes back in at the
start exactly as it would when the track repeats.
"""
import functools

import numpy as np

RATE = 22050
NYQUIST = RATE / 2.0


def samples(seconds):
    return int(round(seconds * RATE))


def seconds_axis(n):
    return np.arange(n) / RATE


# ---------------------------------------------------------------- pitch

_NOTE_STEPS = {"C": -9, "D": -7, "E": -5, "F": -4, "G": -2, "A": 0, "B": 2}


def midi(name):
    """'A4' -> 69; sharps as '#', flats as 'b'."""
    k = _NOTE_STEPS[name[0]]
    i = 1
    while i < len(name) and name[i] in "#b":
        k += 1 if name[i] == "#" else -1
        i += 1
    return 69 + k + 12 * (int(name[i:]) - 4)


def hz(m):
    """Frequency of a MIDI note number (or of a note name)."""
    if isinstance(m, str):
        m = midi(m)
    return 440.0 * 2.0 ** ((m - 69) / 12.0)


def cents(c):
    return 2.0 ** (c / 1200.0)


# ---------------------------------------------------------------- oscillators

def phase(freq, n, start=0.0):
    """Running phase in cycles of an oscillator whose frequency may glide
    (a scalar or one value per sample). The first sample sits at `start`."""
    f = np.broadcast_to(np.asarray(freq, float), (n,))
    ph = np.empty(n)
    ph[0] = 0.0
    np.cumsum(f[:-1] / RATE, out=ph[1:])
    return ph + start


def glide(f0, f1, n, curve=1.0):
    """A pitch glide from f0 to f1 Hz over n samples, exponential in pitch;
    curve > 1 spends longer near f0, < 1 gets to f1 sooner."""
    t = np.linspace(0.0, 1.0, n) ** curve
    return f0 * (f1 / f0) ** t


TABLE = 4096


@functools.lru_cache(maxsize=None)
def _table(kind, harmonics, tilt):
    """One cycle of a waveform built from its harmonics, so it carries no
    partial above the last one asked for: no aliasing at any pitch below
    Nyquist / harmonics."""
    x = np.arange(TABLE) / TABLE
    out = np.zeros(TABLE)
    for k in range(1, harmonics + 1):
        if kind == "square" and k % 2 == 0:
            continue
        if kind == "tri":
            if k % 2 == 0:
                continue
            amp = (1.0 if (k // 2) % 2 == 0 else -1.0) / (k * k)
        else:
            amp = 1.0 / k ** tilt
        out += amp * np.sin(2 * np.pi * k * x)
    out /= np.max(np.abs(out))
    return np.append(out, out[0])


def harmonics_for(f_top, limit=40):
    """How many harmonics a note can carry whose pitch reaches f_top."""
    return int(max(1, min(limit, (0.46 * RATE) // max(f_top, 1.0))))


def wave(kind, freq, n, start=0.0, limit=40, tilt=1.0):
    """Band-limited 'saw', 'square' or 'tri' (or any harmonic tilt: 1 is a
    saw, 2 a darker reed) read from a table with linear interpolation."""
    f_top = float(np.max(freq))
    tab = _table(kind, harmonics_for(f_top, limit), tilt)
    pos = (phase(freq, n, start) % 1.0) * TABLE
    i = pos.astype(np.int64)
    frac = pos - i
    return tab[i] * (1.0 - frac) + tab[i + 1] * frac


def sine(freq, n, start=0.0):
    return np.sin(2 * np.pi * phase(freq, n, start))


def fm(freq, n, ratio, index, start=0.0):
    """Two-operator FM: a sine carrier whose phase a sine modulator at
    `ratio` times the pitch pushes by `index` (a scalar or an envelope)."""
    ph = phase(freq, n, start)
    return np.sin(2 * np.pi * ph + index * np.sin(2 * np.pi * ratio * ph))


def noise(n, r):
    return r.uniform(-1.0, 1.0, n)


def pluck(freq, n, r, t60=1.5, bright=0.5, position=0.2):
    """A plucked string (Karplus-Strong). Each pass of the loop computes one
    whole period at once, since every sample of a period depends only on
    the period before it. `bright` in 0..1 sets how hard the pick is,
    `position` where along the string it is plucked (0..1)."""
    period = RATE / freq
    # The loop filter is a two-point average (half a sample of delay, which
    # also dulls the string as it rings) folded with a linear interpolation
    # that supplies the rest of the fractional period.
    lag = int(np.floor(period - 0.5))
    f = period - 0.5 - lag
    taps = (0.5 * (1.0 - f), 0.5, 0.5 * f)
    loss = 10.0 ** (-3.0 * period / (RATE * t60))
    # The string starts bent into a triangle at the plucking point, roughened
    # by a little noise for a harder pick: warm and even from the first
    # period, with no spike of raw noise at the attack.
    x = (np.arange(lag + 2) + 0.5) / (lag + 2)
    exc = np.where(x < position, x / position, (1.0 - x) / (1.0 - position))
    exc = exc - exc.mean()
    grit = r.uniform(-1.0, 1.0, lag + 2)
    for _ in range(int(round((1.0 - bright) * 6)) + 1):
        grit = 0.5 * (grit + np.roll(grit, 1))
    exc = exc + grit * bright * 0.8
    exc -= exc.mean()
    y = np.zeros(n + lag + 2)
    y[:lag + 2] = exc
    i = lag + 2
    while i < len(y):
        j = min(len(y), i + lag)
        y[i:j] = loss * (taps[0] * y[i - lag:j - lag] + taps[1] * y[i - lag - 1:j - lag - 1]
                         + taps[2] * y[i - lag - 2:j - lag - 2])
        i = j
    out = y[lag + 2:]
    return out / (np.max(np.abs(out)) + 1e-12)


# ---------------------------------------------------------------- envelopes

def adsr(n, attack=0.005, decay=0.1, sustain=0.7, release=0.1, gate=None):
    """Attack, exponential decay to sustain, release after `gate` seconds
    (the note's held length; the sound lasts gate + release, cut to n)."""
    t = seconds_axis(n)
    a = max(attack, 1.0 / RATE)
    gate = n / RATE - release if gate is None else gate
    e = np.where(t < a, t / a,
                 sustain + (1.0 - sustain) * np.exp(-(t - a) / max(decay, 1e-4)))
    # Release from wherever the envelope stands when the gate closes.
    at_gate = np.interp(gate, t, e) if gate < t[-1] else e[-1]
    rel = np.clip(1.0 - (t - gate) / max(release, 1e-4), 0.0, 1.0) ** 2
    return np.where(t < gate, e, at_gate * rel)


def strike(n, attack=0.001, tau=0.2, end_fade=0.01):
    """A struck or plucked envelope: a quick attack, an exponential fall with
    time constant tau, and a short fade so the last sample is zero."""
    t = seconds_axis(n)
    e = np.exp(-t / tau) * np.clip(t / max(attack, 1.0 / RATE), 0.0, 1.0)
    return e * fade_curve(n, 0.0, end_fade)


def fade_curve(n, fade_in, fade_out):
    """1 in the middle, raised-cosine ramps of the given lengths at the ends."""
    e = np.ones(n)
    a = min(n, samples(fade_in))
    b = min(n, samples(fade_out))
    if a > 0:
        e[:a] = 0.5 - 0.5 * np.cos(np.pi * np.arange(a) / a)
    if b > 0:
        e[n - b:] *= 0.5 + 0.5 * np.cos(np.pi * (np.arange(b) + 1) / b)
    return e


def at(x, start, n=None):
    """Places x `start` seconds into a buffer of n samples (or just long
    enough)."""
    i = samples(start)
    n = i + len(x) if n is None else n
    out = np.zeros(n)
    k = max(0, min(len(x), n - i))
    out[i:i + k] = x[:k]
    return out


def mix(*parts):
    n = max(len(p) for p in parts)
    out = np.zeros(n)
    for p in parts:
        out[:len(p)] += p
    return out


# ---------------------------------------------------------------- filters

def _freqs(n):
    return np.fft.rfftfreq(n, 1.0 / RATE)


def lowpass(f, cut, order=2):
    return 1.0 / np.sqrt(1.0 + (f / cut) ** (2 * order))


def highpass(f, cut, order=2):
    return 1.0 / np.sqrt(1.0 + (cut / np.maximum(f, 1e-3)) ** (2 * order))


def peak(f, centre, gain_db, octaves=1.0):
    """A bell-shaped boost or cut around `centre`, `octaves` wide."""
    d = np.log2(np.maximum(f, 1e-3) / centre) / (octaves / 2.0)
    return 10.0 ** (gain_db / 20.0 * np.exp(-d * d))


def shelf(f, corner, gain_db):
    """A high shelf (gain above `corner`), smooth over about an octave."""
    s = 1.0 / (1.0 + (corner / np.maximum(f, 1e-3)) ** 2)
    return 10.0 ** (gain_db / 20.0 * s)


def band(x, low=None, high=None, order=2, circular=False, extra=None):
    """Zero-phase filtering by FFT. A loop is filtered circularly; a one-shot
    sound is padded first so that nothing wraps from its end to its start.
    `extra` is a function of the frequency axis giving more gain."""
    n = len(x)
    pad = 0 if circular else 2048
    m = n + 2 * pad
    if not circular:
        m = 1 << int(np.ceil(np.log2(m)))
    buf = np.zeros(m)
    buf[pad:pad + n] = x
    f = _freqs(m)
    g = np.ones_like(f)
    if low:
        g *= highpass(f, low, order)
    if high:
        g *= lowpass(f, high, order)
    if extra is not None:
        g *= extra(f)
    return np.fft.irfft(np.fft.rfft(buf) * g, m)[pad:pad + n]


def sweep(x, gain_of, win=1024, hop=256):
    """A time-varying filter: `gain_of(f, t)` gives, for the frequency axis f
    (1-D) and the frame times t (a column), the gain of each frame. Done by
    short-time FFT with overlap-add, Hann windows at a quarter hop."""
    n = len(x)
    lead = win
    frames = (n + 2 * win) // hop
    buf = np.zeros(frames * hop + win)
    buf[lead:lead + n] = x
    idx = np.arange(frames)[:, None] * hop + np.arange(win)[None, :]
    window = np.hanning(win + 1)[:win]
    spectra = np.fft.rfft(buf[idx] * window, axis=1)
    f = _freqs(win)
    t = (np.arange(frames) * hop + win / 2 - lead) / RATE
    spectra *= gain_of(f[None, :], t[:, None])
    seg = np.fft.irfft(spectra, win, axis=1)
    out = np.zeros_like(buf)
    # Frames a whole window apart do not overlap: add each such set at once.
    for k in range(win // hop):
        flat = seg[k::win // hop].reshape(-1)
        out[k * hop:k * hop + len(flat)] += flat
    return out[lead:lead + n] / (window.sum() / hop)


def resonant(f, cut, q_db=6.0, order=2, width=0.5):
    """A low-pass with a resonant bump at its cut-off (arrays broadcast)."""
    return lowpass(f, cut, order) * peak(f, cut, q_db, width)


# ---------------------------------------------------------------- space

def echo(x, delay, feedback, damp=None, wet=1.0, circular=False):
    """A feedback delay with every repeat darker than the last (`damp` is the
    low-pass corner applied once per pass), summed in closed form in the
    frequency domain: an endless tail for a loop, or a padded one for a
    one-shot sound (padded until the repeats have died away)."""
    d = samples(delay)
    n = len(x)
    if circular:
        m = n
    else:
        passes = int(np.ceil(np.log(1e-4) / np.log(max(feedback, 1e-3))))
        m = 1 << int(np.ceil(np.log2(n + d * (passes + 1))))
    buf = np.zeros(m)
    buf[:n] = x
    f = _freqs(m)
    h = np.ones_like(f) if damp is None else lowpass(f, damp, 1)
    shift = np.exp(-2j * np.pi * f * d / RATE)
    loop = h * shift
    y = np.fft.irfft(np.fft.rfft(buf) * (1.0 + wet * loop / (1.0 - feedback * loop)), m)
    return y


def room(seconds, rt60, r, bright=4000.0, predelay=0.012, early=6):
    """A reverb impulse response: a few early reflections, then noise dying
    away faster in the highs than in the lows, with unit energy."""
    n = samples(seconds)
    t = seconds_axis(n)
    tail = np.zeros(n)
    bands = ((None, 400.0, 1.0), (400.0, 2000.0, 0.8), (2000.0, None, 0.5))
    for low, high, k in bands:
        part = band(noise(n, r), low, high, order=3)
        tail += part * np.exp(-6.91 * t / (rt60 * k))
    tail = band(tail, 80.0, bright, order=1)
    tail *= np.clip((t - predelay) / 0.03, 0.0, 1.0)
    top = np.max(np.abs(tail))
    for k in range(early):
        i = samples(predelay + r.uniform(0.0, 0.04))
        tail[i] += (0.8 - 0.1 * k) * top * (1 if k % 2 else -1)
    return tail / np.sqrt(np.sum(tail ** 2))


def convolve(x, ir, circular=False):
    """x through the impulse response ir; circular for a loop, else x grows
    by the length of the response."""
    if circular:
        n = len(x)
        h = np.zeros(n)
        h[:min(n, len(ir))] = ir[:n]
        return np.fft.irfft(np.fft.rfft(x) * np.fft.rfft(h), n)
    n = len(x) + len(ir) - 1
    m = 1 << int(np.ceil(np.log2(n)))
    return np.fft.irfft(np.fft.rfft(x, m) * np.fft.rfft(ir, m), m)[:n]


# ---------------------------------------------------------------- dynamics

def _window_max(a, w, circular):
    """Running maximum over w samples centred on each sample, in
    O(n log w) vector steps (doubling)."""
    n = len(a)
    half = w // 2
    if circular:
        buf = np.concatenate([a[n - half:], a, a[:half]])
    else:
        buf = np.concatenate([np.zeros(half), a, np.zeros(half)])
    out = buf.copy()
    span = 1
    while span * 2 <= 2 * half + 1:
        out[:-span] = np.maximum(out[:-span], out[span:])
        span *= 2
    rest = 2 * half + 1 - span
    if rest > 0:
        out[:-rest] = np.maximum(out[:-rest], out[rest:])
    return out[:n]


def _window_mean(a, w, circular):
    n = len(a)
    half = w // 2
    if circular:
        buf = np.concatenate([a[n - half:], a, a[:half]])
    else:
        buf = np.concatenate([np.full(half, a[0]), a, np.full(half, a[-1])])
    c = np.concatenate([[0.0], np.cumsum(buf)])
    return (c[2 * half + 1:] - c[:-(2 * half + 1)]) / (2 * half + 1)


def limit(x, ceiling, hold=0.004, circular=False):
    """A look-ahead peak limiter: the gain that keeps every peak under the
    ceiling, spread over `hold` seconds either side so that it bends the
    waveform smoothly instead of squaring it off."""
    w = max(3, samples(hold)) | 1
    need = np.minimum(1.0, ceiling / np.maximum(np.abs(x), 1e-9))
    g = 1.0 - _window_max(1.0 - need, 2 * w + 1, circular)
    # The mean of window minima never exceeds the need at the centre.
    return x * _window_mean(g, w, circular)


# ---------------------------------------------------------------- measuring

def weighted(x, circular=False):
    """The signal as the ear weighs it, roughly: little below 100 Hz, a
    little more around 2 to 5 kHz."""
    return band(x, low=90.0, order=1, circular=circular,
                extra=lambda f: shelf(f, 1800.0, 3.0))


def loudness(x, window=0.05):
    """Short-term loudness in dB full scale: the loudest `window` of the
    weighted signal's RMS. It is what the balance between effects is set by:
    a click and an explosion sound equally present at equal values."""
    y = weighted(x) ** 2
    w = samples(window)
    if len(y) <= w:
        return 10.0 * np.log10(np.mean(y) + 1e-12)
    c = np.concatenate([[0.0], np.cumsum(y)])
    ms = (c[w:] - c[:-w]) / w
    return 10.0 * np.log10(np.max(ms) + 1e-12)


def rms_db(x):
    return 20.0 * np.log10(np.sqrt(np.mean(np.square(x))) + 1e-12)


def peak_db(x):
    return 20.0 * np.log10(np.max(np.abs(x)) + 1e-12)


def db(v):
    return 10.0 ** (v / 20.0)
