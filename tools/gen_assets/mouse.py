"""MOUSE: the three pointer pictures, 32 x 32. The game centres every one
on the pointer position, so the hot spot of each is the picture's centre:
pixel (16, 16) counted from the top left is the screen pixel under the
pointer."""
from ink import Ink

NAVY = (16, 22, 40)
TIP = (16.0, 16.0)


def arrow():
    """Frame 0, the pointer of every screen and of play: an arrow whose tip
    is the centre pixel, white with a cool sheen, a dark rim that holds up
    over the bright sky and the pale panels, and a soft drop shadow."""
    x, y = TIP
    pts = [(x, y), (x, y + 13.0), (x + 3.2, y + 10.0), (x + 5.5, y + 13.6), (x + 7.6, y + 12.5),
           (x + 5.4, y + 9.1), (x + 9.6, y + 9.1)]
    g = Ink(32, 32)
    g.polygon(pts, (236, 244, 255))
    # a pale blue on the shadow side of the shaft
    g.polygon([(x + 3.2, y + 10.0), (x + 5.5, y + 13.6), (x + 7.6, y + 12.5), (x + 5.4, y + 9.1),
               (x + 9.6, y + 9.1), (x + 4.2, y + 4.4), (x + 4.2, y + 8.6)], (178, 214, 250))
    g.line([(x + 0.9, y + 2.4), (x + 0.9, y + 9.8)], (255, 255, 255), 0.8)
    g.outline(NAVY, 1.0)
    shadow = Ink(32, 32)
    shadow.polygon([(px + 1.0, py + 1.2) for px, py in pts], (0, 0, 0, 95))
    shadow.outline((0, 0, 0, 40), 1.0)
    g.under(shadow)
    # keep the tip pixel itself bright and solid, nothing above or left of it
    g.rect((x, y, x + 1, y + 1), (236, 244, 255))
    return g.image()


def highlight():
    """Frame 1, the level editor's cell marker, drawn over the whole cell at
    30 % opacity: so it is bold here, a full frame with heavy corners over a
    light wash, to still show at that strength."""
    g = Ink(32, 32)
    g.rect((0, 0, 32, 32), (255, 255, 255, 96))
    for box in ((0, 0, 32, 2), (0, 30, 32, 32), (0, 0, 2, 32), (30, 0, 32, 32)):
        g.rect(box, (255, 255, 255, 255))
    for cx, cy in ((0, 0), (32, 0), (0, 32), (32, 32)):
        x0, x1 = sorted((cx, cx + (8 if cx == 0 else -8)))
        y0, y1 = sorted((cy, cy + (3 if cy == 0 else -3)))
        g.rect((x0, y0, x1, y1), (255, 255, 255, 255))
        x0, x1 = sorted((cx, cx + (3 if cx == 0 else -3)))
        y0, y1 = sorted((cy, cy + (8 if cy == 0 else -8)))
        g.rect((x0, y0, x1, y1), (255, 255, 255, 255))
    return g.image(floor=0)


def crosshair():
    """Frame 2, the editor's painting pointer: a ring and four ticks round
    the centre pixel, amber on a dark rim so it shows on dirt and sky."""
    g = Ink(32, 32)
    col = (255, 214, 110)
    g.arc((8.5, 8.5, 24.5, 24.5), 0, 360, col, 1.4)
    for a, b in (((16.5, 2), (16.5, 11)), ((16.5, 22), (16.5, 31)), ((2, 16.5), (11, 16.5)),
                 ((22, 16.5), (31, 16.5))):
        g.line([a, b], col, 1.5)
    g.rect((16, 16, 17, 17), (255, 255, 255))
    g.outline((20, 16, 10, 220), 1.0)
    return g.image()


def generate(reg):
    reg.picture("MOUSE", 0, arrow(), "pointer: arrow, tip at the centre", alpha="clear")
    reg.picture("MOUSE", 1, highlight(), "editor cell highlight (drawn at 30 %)", alpha="soft")
    reg.picture("MOUSE", 2, crosshair(), "editor pointer: crosshair on the centre", alpha="clear")
