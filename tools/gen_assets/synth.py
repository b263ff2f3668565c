"""A small additive / subtractive synthesiser for the sound effects and the
music: oscillators with pitch glides, envelopes, noise, FFT filters (which
wrap around, so a loop filtered here stays seamless) and a circular echo."""
import numpy as np

RATE = 22050


def samples(dur):
    return int(round(dur * RATE))


def t_axis(dur):
    return np.arange(samples(dur)) / RATE


def phase_of(freq, n):
    """Phase (in cycles) of an oscillator whose frequency may glide."""
    f = np.broadcast_to(np.asarray(freq, float), (n,))
    return np.cumsum(f) / RATE


def osc(shape, freq, dur, r=None):
    n = samples(dur)
    ph = phase_of(freq, n)
    frac = ph % 1.0
    if shape == "sine":
        return np.sin(2 * np.pi * ph)
    if shape == "tri":
        return 4 * np.abs(frac - 0.5) - 1
    if shape == "saw":
        return 2 * frac - 1
    if shape == "square":
        return np.where(frac < 0.5, 1.0, -1.0)
    if shape == "noise":
        return r.uniform(-1, 1, n)
    raise ValueError(shape)


def soft_square(freq, dur, bright=4):
    """A band-limited square from its first odd harmonics (no aliasing)."""
    n = samples(dur)
    ph = phase_of(freq, n)
    out = np.zeros(n)
    for k in range(1, 2 * bright, 2):
        out += np.sin(2 * np.pi * k * ph) / k
    return out * 0.8


def soft_saw(freq, dur, bright=6):
    n = samples(dur)
    ph = phase_of(freq, n)
    out = np.zeros(n)
    for k in range(1, bright + 1):
        out += np.sin(2 * np.pi * k * ph) / k
    return out * 0.6


def env(n, attack=0.005, decay=0.1, sustain=0.0, release=0.05, hold=0.0):
    """Attack, decay to sustain, hold, release; starts and ends at zero."""
    a = max(1, int(attack * RATE))
    d = max(1, int(decay * RATE))
    h = max(0, int(hold * RATE))
    r_ = max(1, int(release * RATE))
    e = np.concatenate([np.linspace(0, 1, a, endpoint=False),
                        sustain + (1 - sustain) * np.exp(-np.linspace(0, 5, d)),
                        np.full(h, sustain)])
    if len(e) >= n:
        e = e[:n]
    else:
        e = np.concatenate([e, np.full(n - len(e), sustain)])
    tail = min(r_, n)
    e[n - tail:] *= np.linspace(1, 0, tail)
    return e


def perc(n, attack=0.002, k=8.0):
    """A plucked or struck envelope: fast attack, exponential fall to zero."""
    x = np.arange(n) / n
    e = np.exp(-k * x) * (1 - x)
    a = max(1, int(attack * RATE))
    e[:a] *= np.linspace(0, 1, a)
    return e


def fft_filter(x, low=None, high=None, soft=0.15):
    """Band limits by FFT: frequencies below `low` and above `high` fade out
    over a `soft` fraction of an octave-ish band. Circular by nature."""
    n = len(x)
    spectrum = np.fft.rfft(x)
    f = np.fft.rfftfreq(n, 1.0 / RATE)
    gain = np.ones_like(f)
    if high is not None:
        gain *= 1.0 / (1.0 + (f / high) ** 4)
    if low is not None:
        gain *= 1.0 / (1.0 + (low / np.maximum(f, 1e-3)) ** 4)
    return np.fft.irfft(spectrum * gain, n)


def sweep_filter(x, start, end, steps=24):
    """A low-pass whose cut-off glides from `start` to `end` Hz, done in
    overlapping blocks."""
    n = len(x)
    out = np.zeros(n)
    weight = np.zeros(n)
    block = max(256, n // steps)
    hop = block // 2
    win = np.hanning(block)
    for i in range(0, n, hop):
        seg = x[i:i + block]
        if len(seg) < 16:
            break
        frac = min(1.0, i / max(1, n - block))
        cut = start * (end / start) ** frac
        w = win[:len(seg)]
        out[i:i + len(seg)] += fft_filter(seg * w, high=cut) * 1.0
        weight[i:i + len(seg)] += w
    return out / np.maximum(weight, 1e-3) * (weight > 1e-3)


def echo(x, delay, feedback=0.35, taps=4, circular=False):
    d = int(delay * RATE)
    out = x.copy()
    g = 1.0
    for k in range(1, taps + 1):
        g *= feedback
        if circular:
            out += g * np.roll(x, d * k)
        else:
            sh = np.zeros_like(x)
            if d * k < len(x):
                sh[d * k:] = x[:len(x) - d * k]
            out += g * sh
    return out


def pad_to(x, n):
    if len(x) >= n:
        return x[:n]
    return np.concatenate([x, np.zeros(n - len(x))])


def mix(*parts):
    n = max(len(p) for p in parts)
    return sum(pad_to(p, n) for p in parts)


def finish(x, peak=0.7, fade=0.004):
    """Removes any DC offset, ramps both ends to silence (no clicks) and
    scales to the given peak, well below clipping."""
    x = x - np.mean(x)
    f = max(1, int(fade * RATE))
    x[:f] *= np.linspace(0, 1, f)
    x[-f:] *= np.linspace(1, 0, f)
    m = np.max(np.abs(x))
    return x * (peak / m) if m > 0 else x


def note_hz(name):
    """'A4' -> 440.0; sharps as '#', flats as 'b'."""
    names = {"C": -9, "D": -7, "E": -5, "F": -4, "G": -2, "A": 0, "B": 2}
    k = names[name[0]]
    i = 1
    if name[i] == "#":
        k += 1
        i += 1
    elif name[i] == "b":
        k -= 1
        i += 1
    octave = int(name[i:])
    return 440.0 * 2 ** ((k + 12 * (octave - 4)) / 12.0)
