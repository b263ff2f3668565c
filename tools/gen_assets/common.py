"""Shared plumbing of the asset generator: the output registry, file writers,
deterministic random numbers, noise and small image helpers.

Everything here must give the same bytes on every run: random numbers come
from generators seeded by the object's path, files carry no time stamps, and
folders are written in a fixed order.
"""
import os
import wave
import zlib

import numpy as np
from PIL import Image, ImageDraw, ImageFont

FONT_DIR = "/usr/share/fonts/truetype/dejavu"


# ---------------------------------------------------------------- registry

class Registry:
    """Collects every object written, in datafile order, for the manifest,
    the contact sheets and the final check."""

    def __init__(self, out_dir):
        self.out_dir = out_dir
        self.entries = []          # dicts: path, kind, w, h, alpha, role, file
        self.pictures = {}         # folder -> list of (index, PIL image)
        self.sounds = {}           # folder -> list of (name, float samples, rate)
        self.levels = []           # (name, bytes)

    def _file(self, folder, name):
        d = os.path.join(self.out_dir, *folder.split("/"))
        os.makedirs(d, exist_ok=True)
        return os.path.join(d, name)

    def picture(self, folder, index, img, role, kind="tga", alpha=None, quality=90):
        """Writes frame `index` of `folder` as DATAnn.tga or DATAnn.jpg.

        alpha: "clear" when the picture must have see-through pixels,
        "solid" when it must be opaque, "soft" when it is translucent all
        over; worked out from the pixels when None."""
        w, h = img.size
        assert w & (w - 1) == 0 and h & (h - 1) == 0, (folder, index, img.size)
        name = "DATA%02d" % index
        if kind == "jpg":
            rgb = img.convert("RGB")
            rgb.save(self._file(folder, name + ".jpg"), "JPEG", quality=quality,
                     optimize=True, subsampling=0)
            alpha = "solid"
            shown = rgb.convert("RGBA")
        else:
            rgba = img.convert("RGBA")
            # Run-length packing keeps the datafile small; Allegro's reader
            # understands it.
            rgba.save(self._file(folder, name + ".tga"), "TGA", rle=True)
            a = np.asarray(rgba)[:, :, 3]
            if alpha is None:
                alpha = "clear" if (a == 0).any() else "solid" if (a == 255).all() else "soft"
            if alpha == "clear":
                assert (a == 0).any(), ("expected transparent pixels", folder, index)
            if alpha == "solid":
                assert (a == 255).all(), ("expected an opaque picture", folder, index)
            shown = rgba
        self.entries.append(dict(path="%s/%s_%s" % (folder, name, kind.upper()),
                                 kind=kind, w=w, h=h, alpha=alpha, role=role))
        self.pictures.setdefault(folder, []).append((index, shown))

    def sound(self, folder, name, samples, rate, role):
        """Writes 16-bit mono PCM; `samples` are floats in -1..1."""
        pcm = np.clip(np.round(samples * 32767.0), -32767, 32767).astype("<i2")
        with wave.open(self._file(folder, name + ".wav"), "wb") as wf:
            wf.setnchannels(1)
            wf.setsampwidth(2)
            wf.setframerate(rate)
            wf.writeframes(pcm.tobytes())
        self.sounds.setdefault(folder, []).append((name, pcm.astype(float) / 32767.0, rate))
        self.entries.append(dict(path="%s/%s_WAV" % (folder, name), kind="wav",
                                 w=len(pcm), h=rate, alpha="-", role=role))

    def level(self, name, data, width, height, role):
        with open(self._file("LEVELS", name + ".LEV"), "wb") as f:
            f.write(data)
        self.levels.append((name, data))
        self.entries.append(dict(path="LEVELS/%s_LEV" % name, kind="level",
                                 w=width, h=height, alpha="-", role=role))


# ---------------------------------------------------------------- randomness

def rng(*key):
    """A generator seeded by a name, so that changing one picture never
    changes the random numbers of another."""
    seed = zlib.crc32("/".join(str(k) for k in key).encode("utf-8"))
    return np.random.default_rng(seed)


def value_noise(w, h, cells_x, cells_y, r):
    """Smooth noise in 0..1 that tiles in both directions."""
    grid = r.random((cells_y, cells_x))
    ys = np.arange(h) * cells_y / h
    xs = np.arange(w) * cells_x / w
    y0 = np.floor(ys).astype(int)
    x0 = np.floor(xs).astype(int)
    fy = ys - y0
    fx = xs - x0
    fy = fy * fy * (3 - 2 * fy)
    fx = fx * fx * (3 - 2 * fx)
    y1 = (y0 + 1) % cells_y
    x1 = (x0 + 1) % cells_x
    y0 %= cells_y
    x0 %= cells_x
    a = grid[y0][:, x0]
    b = grid[y0][:, x1]
    c = grid[y1][:, x0]
    d = grid[y1][:, x1]
    top = a + (b - a) * fx[None, :]
    bot = c + (d - c) * fx[None, :]
    return top + (bot - top) * fy[:, None]


def fbm(w, h, base, octaves, r, gain=0.5):
    """Fractal noise in 0..1, tileable; `base` is the coarsest cell count."""
    total = np.zeros((h, w))
    amp, norm, cells = 1.0, 0.0, base
    for _ in range(octaves):
        cx = min(cells, w)
        cy = min(max(1, round(cells * h / w)), h)
        total += amp * value_noise(w, h, cx, cy, r)
        norm += amp
        amp *= gain
        cells *= 2
    return total / norm


# ---------------------------------------------------------------- colour

def hexrgb(s):
    s = s.lstrip("#")
    return np.array([int(s[i:i + 2], 16) for i in (0, 2, 4)], dtype=float)


def ramp(t, colours, steps=None):
    """Maps t in 0..1 through a list of hex colours; `steps` quantises t so
    that surfaces keep a few flat shades, as pixel art does."""
    t = np.clip(t, 0.0, 1.0)
    if steps:
        t = np.floor(t * steps) / (steps - 1)
        t = np.clip(t, 0.0, 1.0)
    cols = np.array([hexrgb(c) for c in colours])
    pos = t * (len(cols) - 1)
    i0 = np.clip(np.floor(pos).astype(int), 0, len(cols) - 2)
    f = (pos - i0)[..., None]
    return cols[i0] * (1 - f) + cols[i0 + 1] * f


def rgba_image(rgb, alpha=None):
    """Float arrays (0..255 colour, 0..1 alpha) to a PIL RGBA image."""
    h, w = rgb.shape[:2]
    out = np.zeros((h, w, 4), dtype=np.uint8)
    out[:, :, :3] = np.clip(np.round(rgb), 0, 255)
    out[:, :, 3] = 255 if alpha is None else np.clip(np.round(alpha * 255), 0, 255)
    return Image.fromarray(out, "RGBA")


def to_float(img):
    """PIL RGBA to (rgb 0..255, alpha 0..1) float arrays."""
    a = np.asarray(img.convert("RGBA")).astype(float)
    return a[:, :, :3], a[:, :, 3] / 255.0


def over(bottom, top):
    """Alpha-composites PIL image `top` over `bottom` (same size)."""
    return Image.alpha_composite(bottom.convert("RGBA"), top.convert("RGBA"))


def blank(w, h):
    return Image.new("RGBA", (w, h), (0, 0, 0, 0))


def clean_alpha(img, floor=8):
    """Drops nearly invisible pixels so that edges end crisply, and clears
    the colour of fully transparent pixels so that filtering never drags a
    stray colour in from them."""
    a = np.asarray(img.convert("RGBA")).copy()
    a[a[:, :, 3] < floor] = 0
    return Image.fromarray(a, "RGBA")


# ---------------------------------------------------------------- drawing

class Canvas:
    """A supersampled RGBA drawing surface: shapes are drawn at `ss` times
    the size and box-filtered down, which gives soft, even alpha edges."""

    def __init__(self, w, h, ss=4):
        self.w, self.h, self.ss = w, h, ss
        self.img = Image.new("RGBA", (w * ss, h * ss), (0, 0, 0, 0))

    def layer(self):
        lay = Image.new("RGBA", self.img.size, (0, 0, 0, 0))
        return lay, ImageDraw.Draw(lay)

    def s(self, *v):
        return [x * self.ss for x in v]

    def paste(self, lay):
        self.img = Image.alpha_composite(self.img, lay)

    def ellipse(self, box, fill, outline=None, width=0):
        lay, d = self.layer()
        d.ellipse(self.s(*box), fill=fill, outline=outline, width=int(width * self.ss))
        self.paste(lay)

    def rect(self, box, fill, outline=None, width=0, radius=0):
        lay, d = self.layer()
        if radius:
            d.rounded_rectangle(self.s(*box), radius=radius * self.ss, fill=fill,
                                outline=outline, width=int(width * self.ss))
        else:
            d.rectangle(self.s(*box), fill=fill, outline=outline, width=int(width * self.ss))
        self.paste(lay)

    def polygon(self, pts, fill, outline=None):
        lay, d = self.layer()
        d.polygon([(x * self.ss, y * self.ss) for x, y in pts], fill=fill, outline=outline)
        self.paste(lay)

    def line(self, pts, fill, width=1.0):
        lay, d = self.layer()
        d.line([(x * self.ss, y * self.ss) for x, y in pts], fill=fill,
               width=max(1, int(round(width * self.ss))), joint="curve")
        self.paste(lay)

    def text(self, xy, txt, size, fill, font="DejaVuSans-Bold.ttf", anchor="mm"):
        lay, d = self.layer()
        f = ImageFont.truetype(os.path.join(FONT_DIR, font), int(size * self.ss))
        d.text((xy[0] * self.ss, xy[1] * self.ss), txt, font=f, fill=fill, anchor=anchor)
        self.paste(lay)

    def image(self):
        return self.img.resize((self.w, self.h), Image.BOX)


def glow(img, radius, colour, strength=1.0):
    """A soft halo of `colour` behind the opaque parts of `img`."""
    from PIL import ImageFilter
    a = img.split()[3].filter(ImageFilter.GaussianBlur(radius))
    a = a.point(lambda v: min(255, int(v * strength)))
    halo = Image.new("RGBA", img.size, tuple(colour) + (255,))
    halo.putalpha(a)
    return Image.alpha_composite(halo, img)


def shade_sphere(size, radius, cx=None, cy=None, light=(-0.5, -0.6, 0.62)):
    """Normal vectors and coverage of a disc, for lit round things."""
    ss = 4
    n = size * ss
    cx = size / 2 if cx is None else cx
    cy = size / 2 if cy is None else cy
    ys, xs = np.mgrid[0:n, 0:n]
    x = ((xs + 0.5) / ss - cx) / radius
    y = ((ys + 0.5) / ss - cy) / radius
    rr = x * x + y * y
    inside = rr < 1.0
    z = np.sqrt(np.clip(1 - rr, 0, 1))
    lx, ly, lz = light
    ln = np.sqrt(lx * lx + ly * ly + lz * lz)
    lam = np.clip((x * lx + y * ly + z * lz) / ln, 0, 1)
    return x, y, z, lam, inside, ss


def downsample(arr, ss):
    """Box-filters an (H*ss, W*ss, ...) array down by ss."""
    h, w = arr.shape[0] // ss, arr.shape[1] // ss
    return arr.reshape(h, ss, w, ss, *arr.shape[2:]).mean(axis=(1, 3))
