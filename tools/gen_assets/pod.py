"""TERRAIN/POD: the pod (21 frames of 32 x 32), drawn over a Dirt1 tile in
the Pod cells buried in the ground. Frames 0 to 20 loop, about half a second
a turn, frame 0 among them: so the glow only breathes gently and a bubble
rises once through the fluid, and frame 20 leads back into frame 0.

It must stand out from the earth round it at a glance: bright green glass
with a dark outline and a soft green halo, a bubbleman curled up asleep
inside, a steel cradle with three lamps under it. Light from the upper
left."""
import math

from PIL import Image, ImageDraw, ImageFilter

import art
import common

FRAMES = 21
SHELL = [(22, 60, 36), (44, 120, 66), (92, 196, 110), (160, 240, 170), (228, 255, 232)]
FLUID = [(40, 130, 72), (70, 186, 104), (120, 228, 140)]
BODY = [art.rgb(c) for c in art.BODY]
STEEL = [(196, 204, 218), (138, 146, 162), (88, 94, 108), (48, 52, 62)]


def paint_pod(size=32, frame=0, scale=1.0):
    """The pod at `frame` of its loop (0..20)."""
    ss = 4
    n = size * ss
    k = ss * scale * size / 32.0
    t = frame / float(FRAMES)
    pulse = 0.5 + 0.5 * math.cos(t * 2 * math.pi)
    cx, cy = n / 2, n / 2 - 0.5 * k
    rw, rh = 8.6 * k, 11.0 * k
    img = Image.new("RGBA", (n, n), (0, 0, 0, 0))

    # the halo: the fluid's light in the earth round the pod
    halo = Image.new("RGBA", (n, n), (0, 0, 0, 0))
    ImageDraw.Draw(halo).ellipse([cx - rw - 2 * k, cy - rh - 2 * k, cx + rw + 2 * k, cy + rh + 2 * k],
                                 fill=(110, 255, 140, int(90 + 70 * pulse)))
    halo = halo.filter(ImageFilter.GaussianBlur(2.2 * k))
    img = Image.alpha_composite(img, halo)

    d = ImageDraw.Draw(img)
    # the shell: dark rim, fluid inside lit toward the upper left
    d.ellipse([cx - rw - 0.8 * k, cy - rh - 0.8 * k, cx + rw + 0.8 * k, cy + rh + 0.8 * k], fill=(10, 24, 14))
    d.ellipse([cx - rw, cy - rh, cx + rw, cy + rh], fill=SHELL[1])
    glow = tuple(int(a + (b - a) * pulse) for a, b in zip(FLUID[1], FLUID[2]))
    d.ellipse([cx - rw + 1.2 * k, cy - rh + 1.2 * k, cx + rw - 1.2 * k, cy + rh - 1.2 * k], fill=FLUID[0])
    d.ellipse([cx - rw + 1.2 * k, cy - rh + 1.2 * k, cx + rw - 2.6 * k, cy + rh - 2.6 * k], fill=glow)
    # deeper fluid is darker, so the sleeper stands out against it
    d.ellipse([cx - rw + 2.4 * k, cy - 2.5 * k, cx + rw - 2.0 * k, cy + rh - 1.6 * k], fill=FLUID[0])

    # the bubbleman asleep, curled up with his knees drawn in
    bx, by = cx + 0.2 * k, cy + 0.8 * k
    d.ellipse([bx - 5.6 * k, by - 4.8 * k, bx + 5.6 * k, by + 5.6 * k], fill=(18, 52, 24))
    d.ellipse([bx - 5.0 * k, by - 4.2 * k, bx + 5.0 * k, by + 5.0 * k], fill=BODY[2])
    d.ellipse([bx - 4.2 * k, by - 3.6 * k, bx + 1.4 * k, by + 0.8 * k], fill=BODY[3])
    d.ellipse([bx - 3.4 * k, by - 3.0 * k, bx - 1.2 * k, by - 1.4 * k], fill=BODY[4])
    d.ellipse([bx + 0.4 * k, by + 1.0 * k, bx + 5.2 * k, by + 5.2 * k], fill=BODY[1])   # knee
    # closed eyes and a small smile
    for ex in (-2.2, 1.4):
        d.arc([bx + (ex - 1.2) * k, by - 2.6 * k, bx + (ex + 1.2) * k, by - 0.4 * k], 20, 160, fill=BODY[0],
              width=max(1, int(0.8 * k)))
    d.arc([bx - 1.6 * k, by - 0.6 * k, bx + 0.8 * k, by + 1.2 * k], 30, 150, fill=BODY[0], width=max(1, int(0.6 * k)))

    # a bubble rising through the fluid once a loop
    rise = t
    bub_y = cy + rh * 0.7 - rise * rh * 1.5
    bub_x = cx + 4.2 * k + math.sin(t * 2 * math.pi * 2) * 0.8 * k
    if bub_y > cy - rh * 0.75:
        br = (0.9 + 0.5 * rise) * k
        d.ellipse([bub_x - br, bub_y - br, bub_x + br, bub_y + br], outline=SHELL[4], width=max(1, int(0.55 * k)))

    # glass: the highlight toward the light, a faint reflection opposite
    d.ellipse([cx - rw * 0.72, cy - rh * 0.8, cx - rw * 0.18, cy - rh * 0.22], fill=SHELL[4])
    d.ellipse([cx - rw * 0.55, cy - rh * 0.66, cx - rw * 0.32, cy - rh * 0.42], fill=(255, 255, 255))
    d.arc([cx - rw + 1.4 * k, cy - rh + 1.4 * k, cx + rw - 1.4 * k, cy + rh - 1.4 * k], 10, 70,
          fill=SHELL[3], width=max(1, int(0.8 * k)))

    # the cradle: a steel bracket round the lower third, three lamps
    top = cy + rh * 0.62
    d.chord([cx - rw - 2.2 * k, top - 4 * k, cx + rw + 2.2 * k, cy + rh + 2.6 * k], 0, 180, fill=(14, 16, 22))
    d.chord([cx - rw - 1.5 * k, top - 3.4 * k, cx + rw + 1.5 * k, cy + rh + 1.9 * k], 0, 180, fill=STEEL[2])
    d.chord([cx - rw - 1.5 * k, top - 3.4 * k, cx + rw + 0.5 * k, cy + rh + 1.2 * k], 0, 180, fill=STEEL[1])
    d.rectangle([cx - rw - 2.2 * k, top - 0.6 * k, cx + rw + 2.2 * k, top + 0.8 * k], fill=STEEL[0])
    d.rectangle([cx - rw - 2.2 * k, top + 0.8 * k, cx + rw + 2.2 * k, top + 1.6 * k], fill=STEEL[3])
    # the lamps light one after another round the loop
    for i, side in enumerate((-1, 0, 1)):
        lx = cx + side * rw * 0.62
        ly = top + 2.9 * k
        on = abs(((t * 3) % 3) - i) < 0.75 or abs(((t * 3) % 3) - i - 3) < 0.75
        col = (255, 236, 120) if on else (120, 100, 40)
        d.ellipse([lx - 1.1 * k, ly - 1.1 * k, lx + 1.1 * k, ly + 1.1 * k], fill=(20, 20, 24))
        d.ellipse([lx - 0.75 * k, ly - 0.75 * k, lx + 0.75 * k, ly + 0.75 * k], fill=col)
    out = img.resize((size, size), Image.BOX)
    return common.clean_alpha(out, 6)


def generate(reg):
    for i in range(FRAMES):
        role = "pod, still icon and first frame of its loop" if i == 0 else \
            "pod frame %d: glow breathing, a bubble rising, cradle lamps" % i
        reg.picture("TERRAIN/POD", i, paint_pod(32, i), role)
