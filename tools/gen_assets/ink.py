"""Inking for the small sprites that move or are built in a level (the
bubbleman, structures, tools, cursors): shapes drawn large and boxed down,
lit from the upper left in a few flat shades, and closed by a dark outline
so that each piece stays readable over dirt, rock, cave wall and sky.

Everything works on a supersampled RGBA picture (`Ink.img`, `ss` times the
final size) so that outlines, turns and squeezes happen before the box
filter and keep even, soft edges."""
import math

import numpy as np
from PIL import Image, ImageDraw

import common

# Light comes from the upper left and a little from the front.
LIGHT = np.array([-0.55, -0.7, 0.55])
LIGHT = LIGHT / np.linalg.norm(LIGHT)


def rgb(h):
    h = h.lstrip("#")
    return tuple(int(h[i:i + 2], 16) for i in (0, 2, 4))


def rgba(colour, a=None):
    """Any colour form used here (hex text, RGB or RGBA tuple) as RGBA;
    `a` overrides the alpha."""
    if isinstance(colour, str):
        c = rgb(colour) + (255,)
    else:
        c = tuple(int(v) for v in colour[:3]) + ((int(colour[3]),) if len(colour) > 3 else (255,))
    return c[:3] + (int(a),) if a is not None else c


class Ink:
    """A supersampled drawing surface whose coordinates are final pixels."""

    def __init__(self, w, h, ss=8):
        self.w, self.h, self.ss = w, h, ss
        self.img = Image.new("RGBA", (w * ss, h * ss), (0, 0, 0, 0))

    def blank(self):
        return Ink(self.w, self.h, self.ss)

    def _draw(self, fn):
        lay = Image.new("RGBA", self.img.size, (0, 0, 0, 0))
        fn(ImageDraw.Draw(lay), self.ss)
        self.img = Image.alpha_composite(self.img, lay)
        return self

    def ellipse(self, box, fill):
        f = rgba(fill)
        return self._draw(lambda d, s: d.ellipse([v * s for v in box], fill=f))

    def rect(self, box, fill, radius=0):
        f = rgba(fill)
        if radius:
            return self._draw(lambda d, s: d.rounded_rectangle([v * s for v in box], radius=radius * s,
                                                               fill=f))
        return self._draw(lambda d, s: d.rectangle([v * s for v in box], fill=f))

    def polygon(self, pts, fill):
        f = rgba(fill)
        return self._draw(lambda d, s: d.polygon([(x * s, y * s) for x, y in pts], fill=f))

    def line(self, pts, fill, width=1.0):
        f = rgba(fill)

        def fn(d, s):
            w = max(1, int(round(width * s)))
            d.line([(x * s, y * s) for x, y in pts], fill=f, width=w, joint="curve")
            # round caps, so bars meet cleanly at joints
            for x, y in (pts[0], pts[-1]):
                d.ellipse([x * s - w / 2, y * s - w / 2, x * s + w / 2, y * s + w / 2], fill=f)
        return self._draw(fn)

    def arc(self, box, start, end, fill, width=1.0):
        f = rgba(fill)
        return self._draw(lambda d, s: d.arc([v * s for v in box], start, end, fill=f,
                                             width=max(1, int(round(width * s)))))

    def paste(self, other):
        """Composites another Ink (or a supersampled PIL image) over this one."""
        src = other.img if isinstance(other, Ink) else other
        self.img = Image.alpha_composite(self.img, src)
        return self

    def under(self, other):
        src = other.img if isinstance(other, Ink) else other
        self.img = Image.alpha_composite(src, self.img)
        return self

    def outline(self, colour, width=1.0):
        """Puts a band of `colour` round everything drawn so far."""
        a = np.asarray(self.img)[:, :, 3]
        grown = dilate(a, int(round(width * self.ss)))
        band = np.zeros(a.shape + (4,), np.uint8)
        band[:, :, :3] = rgba(colour)[:3]
        band[:, :, 3] = grown
        self.under(Image.fromarray(band, "RGBA"))
        return self

    def clip(self, mask):
        """Keeps only what lies inside `mask` (an Ink or image whose alpha is used)."""
        m = np.asarray(mask.img if isinstance(mask, Ink) else mask)[:, :, 3].astype(np.float32) / 255
        a = np.asarray(self.img).copy()
        a[:, :, 3] = (a[:, :, 3] * m).astype(np.uint8)
        self.img = Image.fromarray(a, "RGBA")
        return self

    def fade(self, k):
        a = np.asarray(self.img).copy()
        a[:, :, 3] = (a[:, :, 3].astype(np.float32) * max(0.0, min(1.0, k))).astype(np.uint8)
        self.img = Image.fromarray(a, "RGBA")
        return self

    def tint(self, colour, k):
        """Blends the colour of every pixel towards `colour`, alpha unchanged."""
        a = np.asarray(self.img).astype(np.float32)
        a[:, :, :3] = a[:, :, :3] * (1 - k) + np.array(rgba(colour)[:3], np.float32) * k
        self.img = Image.fromarray(np.clip(a, 0, 255).astype(np.uint8), "RGBA")
        return self

    def transform(self, scale=(1.0, 1.0), angle=0.0, pivot=(16, 16), to=None):
        """Scales (sx, sy) and turns (degrees, counter-clockwise on screen)
        about `pivot`, which lands on `to`."""
        s = self.ss
        sx, sy = scale if isinstance(scale, tuple) else (scale, scale)
        px, py = pivot[0] * s, pivot[1] * s
        tx, ty = ((to or pivot)[0] * s, (to or pivot)[1] * s)
        c, sn = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        # PIL wants the inverse map: p = P + S^-1 R^-1 (p' - T)
        a11, a12 = c / max(sx, 1e-4), -sn / max(sx, 1e-4)
        a21, a22 = sn / max(sy, 1e-4), c / max(sy, 1e-4)
        coeffs = (a11, a12, px - a11 * tx - a12 * ty,
                  a21, a22, py - a21 * tx - a22 * ty)
        # premultiplied, so the see-through surroundings lend no dark fringe
        moved = self.img.convert("RGBa").transform(self.img.size, Image.AFFINE, coeffs,
                                                   resample=Image.BICUBIC)
        self.img = moved.convert("RGBA")
        return self

    def image(self, floor=6):
        """The final picture: boxed down, nearly clear pixels dropped."""
        a = np.asarray(self.img).astype(np.float32)
        # premultiply before filtering so see-through pixels lend no colour
        a[:, :, :3] *= a[:, :, 3:4] / 255.0
        h, w = self.h, self.w
        small = a.reshape(h, self.ss, w, self.ss, 4).mean(axis=(1, 3))
        alpha = small[:, :, 3:4]
        small[:, :, :3] = np.where(alpha > 0, small[:, :, :3] * 255.0 / np.maximum(alpha, 1e-6), 0)
        out = Image.fromarray(np.clip(np.round(small), 0, 255).astype(np.uint8), "RGBA")
        return common.clean_alpha(out, floor)


def dilate(a, r):
    """Grows a mask by about `r` pixels: alternating square and cross steps
    trace an octagon, close enough to a disc at this size."""
    out = a.copy()
    for i in range(max(0, r)):
        g = out.copy()
        g[1:, :] = np.maximum(g[1:, :], out[:-1, :])
        g[:-1, :] = np.maximum(g[:-1, :], out[1:, :])
        g[:, 1:] = np.maximum(g[:, 1:], out[:, :-1])
        g[:, :-1] = np.maximum(g[:, :-1], out[:, 1:])
        if i % 2:
            g[1:, 1:] = np.maximum(g[1:, 1:], out[:-1, :-1])
            g[:-1, :-1] = np.maximum(g[:-1, :-1], out[1:, 1:])
            g[1:, :-1] = np.maximum(g[1:, :-1], out[:-1, 1:])
            g[:-1, 1:] = np.maximum(g[:-1, 1:], out[1:, :-1])
        out = g
    return out


def lit_ellipse(ink, box, colours, light=LIGHT, ambient=0.18, alpha=255):
    """A ball or egg lit from the upper left, shaded in the flat steps of
    `colours` (dark to light)."""
    s = ink.ss
    x0, y0, x1, y1 = box
    cx, cy = (x0 + x1) / 2 * s, (y0 + y1) / 2 * s
    rx, ry = (x1 - x0) / 2 * s, (y1 - y0) / 2 * s
    W, H = ink.img.size
    # work only inside the ellipse's bounding box
    bx0, by0 = max(0, int(cx - rx) - 1), max(0, int(cy - ry) - 1)
    bx1, by1 = min(W, int(cx + rx) + 2), min(H, int(cy + ry) + 2)
    if bx1 <= bx0 or by1 <= by0:
        return ink
    ys, xs = np.mgrid[by0:by1, bx0:bx1].astype(np.float32)
    nx = (xs + 0.5 - cx) / rx
    ny = (ys + 0.5 - cy) / ry
    rr = nx * nx + ny * ny
    nz = np.sqrt(np.clip(1 - rr, 0, 1))
    lam = np.clip(nx * light[0] + ny * light[1] + nz * light[2], 0, 1)
    t = ambient + (1 - ambient) * lam
    pal = np.array([rgba(c)[:3] for c in colours], np.float32)
    idx = np.clip((t * len(colours)).astype(int), 0, len(colours) - 1)
    out = np.zeros((H, W, 4), np.uint8)
    out[by0:by1, bx0:bx1, :3] = pal[idx].astype(np.uint8)
    out[by0:by1, bx0:bx1, 3] = np.where(rr < 1.0, alpha, 0).astype(np.uint8)
    ink.paste(Image.fromarray(out, "RGBA"))
    return ink


def shaded_bar(ink, p0, p1, width, colours, outline=None):
    """A straight steel bar seen from the side: dark underside, lit top edge."""
    dark, mid, light = colours[0], colours[len(colours) // 2], colours[-1]
    if outline is not None:
        ink.line([p0, p1], outline, width + 1.2)
    ink.line([p0, p1], dark, width)
    # lit face shifted towards the light
    dx, dy = p1[0] - p0[0], p1[1] - p0[1]
    n = math.hypot(dx, dy) or 1.0
    nx, ny = -dy / n, dx / n
    if nx + ny > 0:       # pick the normal that faces the upper left
        nx, ny = -nx, -ny
    off = width * 0.18
    ink.line([(p0[0] + nx * off, p0[1] + ny * off), (p1[0] + nx * off, p1[1] + ny * off)], mid, width * 0.62)
    off = width * 0.32
    ink.line([(p0[0] + nx * off, p0[1] + ny * off), (p1[0] + nx * off, p1[1] + ny * off)], light,
             max(0.5, width * 0.22))
    return ink

