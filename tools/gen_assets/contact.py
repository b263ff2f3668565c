"""Contact sheets: every frame of a folder side by side, enlarged, on a
checkerboard, so a person can judge a folder's art at a glance."""
import os

from PIL import Image, ImageDraw


def checker(w, h, cell=8):
    img = Image.new("RGBA", (w, h), (90, 90, 96, 255))
    d = ImageDraw.Draw(img)
    for y in range(0, h, cell):
        for x in range(0, w, cell):
            if (x // cell + y // cell) % 2:
                d.rectangle([x, y, x + cell - 1, y + cell - 1], fill=(130, 130, 138, 255))
    return img


def sheet(frames, max_width=1600, pad=6, label=12):
    """Shelf-packs the frames, each at its own (enlarged) size."""
    big = max(max(im.size) for _, im in frames)
    scale = max(1, min(8, 128 // big))
    cells = [(i, im.resize((im.size[0] * scale, im.size[1] * scale), Image.NEAREST), im.size)
             for i, im in frames]
    placed, x, y, row_h, width = [], pad, pad, 0, 0
    for i, im, size in cells:
        w, h = im.size
        if x + w + pad > max_width and x > pad:
            x, y, row_h = pad, y + row_h + label + pad, 0
        placed.append((i, im, size, x, y))
        x += max(w, 70) + pad
        width = max(width, x)
        row_h = max(row_h, h)
    height = y + row_h + label + pad
    out = Image.new("RGBA", (width, height), (40, 40, 44, 255))
    d = ImageDraw.Draw(out)
    for i, im, size, x, y in placed:
        out.paste(Image.alpha_composite(checker(*im.size), im), (x, y + label))
        d.text((x, y), "%02d %dx%d" % (i, size[0], size[1]), fill=(230, 230, 230, 255))
    return out


def write_sheets(reg, out_dir):
    os.makedirs(out_dir, exist_ok=True)
    for name in ("P1M01", "P3M12"):
        level_preview(reg, name, os.path.join(out_dir, "level_%s.png" % name))
    for folder, frames in reg.pictures.items():
        name = folder.replace("/", "_") + ".png"
        sheet(frames).convert("RGB").save(os.path.join(out_dir, name))


def spectrogram(x, rate, width=360, height=96):
    """Waveform on top, spectrogram below: enough to see a sound's shape,
    its length and whether it ends in silence."""
    import numpy as np
    out = Image.new("RGB", (width, height + 40), (20, 20, 24))
    d = ImageDraw.Draw(out)
    n = len(x)
    cols = np.array_split(np.abs(x), width)
    for i, c in enumerate(cols):
        v = float(c.max()) if len(c) else 0.0
        d.line([(i, 20 - v * 19), (i, 20 + v * 19)], fill=(120, 200, 255))
    win = 512
    hop = max(1, (n - win) // width) if n > win else 1
    power = np.zeros((win // 2, width))
    for i in range(width):
        seg = x[i * hop:i * hop + win]
        if len(seg) < win:
            seg = np.pad(seg, (0, win - len(seg)))
        power[:, i] = np.abs(np.fft.rfft(seg * np.hanning(win)))[:win // 2]
    power = np.log1p(power * 20)
    power /= max(1e-6, power.max())
    rows = np.linspace(0, win // 2 - 1, height).astype(int)[::-1]
    img = (power[rows] * 255).astype(np.uint8)
    out.paste(Image.fromarray(img, "L").convert("RGB"), (0, 40))
    return out


def write_sound_sheets(reg, out_dir):
    os.makedirs(out_dir, exist_ok=True)
    for folder, items in reg.sounds.items():
        tiles = []
        for name, x, rate in items:
            t = spectrogram(x, rate)
            ImageDraw.Draw(t).text((2, 0), "%s %.2f s" % (name, len(x) / float(rate)), fill=(255, 255, 255))
            tiles.append(t)
        per_row = 4
        w, h = tiles[0].size
        rows = (len(tiles) + per_row - 1) // per_row
        sheet_img = Image.new("RGB", (per_row * (w + 6), rows * (h + 6)), (40, 40, 44))
        for k, t in enumerate(tiles):
            sheet_img.paste(t, ((k % per_row) * (w + 6), (k // per_row) * (h + 6)))
        sheet_img.save(os.path.join(out_dir, folder.replace("/", "_") + ".png"))


def level_preview(reg, name, path):
    """A level as the game's view lays it out (backdrop layers, terrain,
    edge lips, pods and rockets), to judge whether the pieces fit."""
    pics = {f: dict(fr) for f, fr in reg.pictures.items()}
    need = ["TERRAIN/FIELD", "TERRAIN/FIELD/BACKGROUND", "TERRAIN/POD", "TERRAIN/ROCKET/LANDED",
            "TERRAIN/FIELD/WATER", "SPRITES2/STARS"]
    if not all(n in pics for n in need):
        return
    data = dict(reg.levels).get(name)
    if data is None:
        return
    lines = data.decode("latin-1").splitlines()
    w, h = int(lines[6]), int(lines[7])
    cells = [int(v) for v in lines[17:17 + w * h]]
    g = [[cells[x * h + y] for y in range(h)] for x in range(w)]
    img = Image.new("RGBA", (w * 32, h * 32 + 64), (0, 0, 0, 255))
    top = 64                       # sky above row 0
    bg = pics["TERRAIN/FIELD/BACKGROUND"]
    tiles = pics["TERRAIN/FIELD"]

    def layer(slot, yc):
        for k in range(6):
            x0 = 16 + 256 * k - 128
            img.alpha_composite(bg[slot], (x0, top + yc - 128)) if x0 >= 0 else img.alpha_composite(
                bg[slot].crop((-x0, 0, 256, 256)), (0, top + yc - 128))

    layer(5, 166)
    import random
    rnd = random.Random(1)
    for _ in range(60):
        s = pics["SPRITES2/STARS"][rnd.randrange(3)]
        img.alpha_composite(s, (rnd.randrange(0, w * 32 - 8), rnd.randrange(0, top + 200)))
    layer(2, 166)
    layer(1, 166)
    layer(0, 422)
    layer(4, 678)
    layer(3, 934)
    slot = {1: 1, 2: 6, 4: 8, 5: 9, 6: 10, 7: 12, 8: 13, 9: 14, 11: 11, 14: 15, 15: 16,
            19: 18, 20: 19, 21: 20, 22: 21, 23: 22}
    ground = {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 16}
    receiving = {0, 13, 14, 15, 17, 18, 19, 20, 21, 22, 23}
    for x in range(w):
        for y in range(h):
            c = g[x][y]
            at = (x * 32, top + y * 32)
            if c in (3, 12, 16):
                img.alpha_composite(tiles[1], at)
            if c in slot:
                img.alpha_composite(tiles[slot[c]], at)
            if c in (3, 16):
                # the game tints the glow (g, 1, g + 0.7); g = 0.5 here
                from PIL import ImageChops
                glowt = tiles[7 if c == 3 else 17]
                tint = Image.new("RGBA", glowt.size, (128, 255, 255, 255))
                img.alpha_composite(ImageChops.multiply(glowt, tint), at)
            if c == 12:
                img.alpha_composite(pics["TERRAIN/POD"][0], at)
            if c == 13:
                img.alpha_composite(pics["TERRAIN/ROCKET/LANDED"][0], at)
            if c == 18:
                img.alpha_composite(pics["TERRAIN/FIELD/WATER"][0], at)
    for x in range(1, w - 1):
        for y in range(1, h - 1):
            if g[x][y] not in receiving:
                continue
            for dx, dy, t in ((1, 0, 5), (-1, 0, 3), (0, -1, 4), (0, 1, 2)):
                if g[x + dx][y + dy] in ground:
                    img.alpha_composite(tiles[t], (x * 32 + 4 * dx, top + y * 32 + 4 * dy))
    img.convert("RGB").save(path)
