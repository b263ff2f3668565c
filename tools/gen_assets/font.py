"""FONT: the three bitmap-font sheets, 256 x 128 each, white glyphs on
transparent: frame 0 with 16 x 16 cells, frame 1 with 12 x 12, frame 2 with
8 x 8. Every sheet uses the game's one character grid (row 0 at the top).

The game draws each character in its full cell but advances only the cell
width minus 2, so every glyph is kept inside the first (cell - 3) columns of
its cell: then neighbouring characters never touch and no glyph reaches into
the next cell of the sheet. The glyphs are DejaVu Sans Mono (Debian package
fonts-dejavu-core), rendered here."""
import os

import numpy as np
from PIL import Image, ImageDraw, ImageFont

import common

# The character grid: 16 columns, rows from the top; None marks an empty cell.
ROWS = [
    "0123456789abcdef",
    "ghijklmnopqrstuv",
    "wxyzABCDEFGHIJKL",
    "MNOPQRSTUVWXYZ.,",
    ":;!?\"'@#$%&\0+-*/",
    "=<>()[]{}_ \0\0\0\0\0",
]

SHEETS = [
    # cell, font file, antialiased
    (16, "DejaVuSansMono-Bold.ttf", True),
    (12, "DejaVuSansMono-Bold.ttf", True),
    (8, "DejaVuSansMono-Bold.ttf", False),
]


def cells():
    for row, text in enumerate(ROWS):
        for col, ch in enumerate(text):
            if ch != "\0":
                yield row, col, ch


def fit_font(path, cell):
    """The largest size whose ink, from the tallest bracket to the deepest
    descender, fits the cell height; returns the font and its ink rows."""
    for px in range(cell * 2, 4, -1):
        font = ImageFont.truetype(path, px)
        boxes = [font.getbbox(ch) for _, _, ch in cells() if ch != " "]
        top = min(b[1] for b in boxes)
        bottom = max(b[3] for b in boxes)
        width = max(b[2] - b[0] for b in boxes)
        if bottom - top <= cell and width <= cell - 3:
            return font, top, bottom, width
    raise ValueError("no size fits")


def small_glyph(path, ch, cell):
    """A glyph for the smallest sheet: hinted, unsmoothed DejaVu at the
    largest size that fits 5 columns and the cell's rows, on a baseline one
    row above the cell's bottom; a glyph whose descender would not fit is
    raised by the missing rows, as small pixel fonts do."""
    ink_cols = cell - 3
    baseline = cell - 1
    for px in (cell + 1, cell, cell - 1, cell - 2):
        font = ImageFont.truetype(path, px)
        g = Image.new("L", (cell * 3, cell * 3), 0)
        d = ImageDraw.Draw(g)
        d.fontmode = "1"
        d.text((cell, cell + baseline), ch, font=font, fill=255, anchor="ls")
        box = g.getbbox()
        x0, top, x1, bottom = box[0], box[1] - cell, box[2], box[3] - cell
        if x1 - x0 > ink_cols:
            continue
        lift = max(0, bottom - cell)
        if top - lift < 0:
            continue
        a = np.asarray(g)[cell + lift:cell + lift + cell, x0:x1]
        return a
    raise ValueError("no size fits " + ch)


def sheet(cell, fontfile, smooth):
    """Smooth sheets are drawn 8 times larger and boxed down, a little wider
    than the font's own shapes so each glyph fills its advance; the smallest
    sheet is drawn at its own size without smoothing, which keeps it crisp."""
    path = os.path.join(common.FONT_DIR, fontfile)
    advance = cell - 2
    ink_cols = advance - 1
    alpha = np.zeros((128, 256), dtype=np.uint8)
    ss = 8 if smooth else 1
    base, top, bottom, width = fit_font(path, cell)
    font = ImageFont.truetype(path, base.size * ss)
    stretch = min(1.45, ink_cols / float(width)) if smooth else 1.0
    y_off = (-top + (cell - (bottom - top)) // 2) * ss
    for row, col, ch in cells():
        if ch == " ":
            continue
        if not smooth:
            a = small_glyph(path, ch, cell)
            x = (ink_cols - a.shape[1]) // 2
            alpha[row * cell:(row + 1) * cell, col * cell + x:col * cell + x + a.shape[1]] = a
            continue
        g = Image.new("L", (cell * 3 * ss, cell * ss), 0)
        d = ImageDraw.Draw(g)
        if not smooth:
            d.fontmode = "1"
        d.text((cell * ss, y_off), ch, font=font, fill=255)
        box = g.getbbox()
        x0, x1 = box[0], box[2]
        glyph = g.crop((x0, 0, x1, cell * ss))
        w = max(1, min(ink_cols, int(round((x1 - x0) * stretch / ss))))
        glyph = glyph.resize((w, cell), Image.BOX) if ss > 1 else glyph
        a = np.asarray(glyph)
        x = (ink_cols - a.shape[1]) // 2
        alpha[row * cell:(row + 1) * cell, col * cell + x:col * cell + x + a.shape[1]] = a
    out = np.zeros((128, 256, 4), dtype=np.uint8)
    out[:, :, :3] = 255
    out[:, :, 3] = alpha
    out[alpha == 0, :3] = 0
    return Image.fromarray(out, "RGBA")


def check(img, cell):
    """Every mapped character has ink, and none spills past its columns."""
    a = np.asarray(img)[:, :, 3]
    for row, col, ch in cells():
        block = a[row * cell:(row + 1) * cell, col * cell:(col + 1) * cell]
        if ch != " ":
            assert block.any(), ("empty glyph", cell, ch)
        assert not block[:, cell - 3:].any(), ("glyph too wide", cell, ch)


def preview(sheets, path):
    """Sample lines set the way the game sets them (advance = cell - 2)."""
    lines = ["New Game  Options  Exit Game", "Select A Mission To Play!",
             "You dont have enough credits", "0123456789 +-*/=<>()[]{}_",
             "abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ",
             ".,:;!?\"'@#$%&", "Hatching Pods... 1500 Ready for launch"]
    out = Image.new("RGBA", (760, 420), (12, 16, 28, 255))
    y = 6
    for (cell, img) in sheets:
        for line in lines:
            x = 8
            for ch in line:
                for row, col, c in cells():
                    if c == ch:
                        g = img.crop((col * cell, row * cell, (col + 1) * cell, (row + 1) * cell))
                        out.alpha_composite(g, (x, y))
                x += cell - 2
            y += cell + 3
        y += 6
    out.convert("RGB").save(path)


def generate(reg):
    made = []
    for i, (cell, fontfile, smooth) in enumerate(SHEETS):
        img = sheet(cell, fontfile, smooth)
        check(img, cell)
        made.append((cell, img))
        reg.picture("FONT", i, img, "font sheet, %d x %d cells" % (cell, cell), alpha="clear")
    reg.font_preview = made
