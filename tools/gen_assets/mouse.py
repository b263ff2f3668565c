"""MOUSE: the three pointer pictures (32 x 32). The game centres every
pointer picture on the pointer position, so each hot spot is the centre."""
from common import Canvas


def arrow():
    """Frame 0, the ordinary pointer: the arrow's tip is the picture's centre."""
    c = Canvas(32, 32)
    tip = (16, 16)
    pts = [tip, (16, 30), (19.5, 26.5), (22.5, 32), (25, 30.8), (22.2, 25.4), (27, 25)]
    c.polygon([(x + 0.8, y + 0.8) for x, y in pts], (0, 0, 0, 110))
    c.polygon(pts, (20, 26, 40, 255))
    inner = [(17.2, 18.8), (17.2, 27.2), (19.8, 24.4), (22.9, 30.2), (23.6, 29.8), (20.6, 24.0), (24.2, 23.8)]
    c.polygon(inner, (235, 245, 255, 255))
    c.line([(17.6, 19.6), (17.6, 25)], (120, 220, 255, 255), 0.9)
    return c.image()


def highlight():
    """Frame 1, the editor's cell marker (drawn at 30 % opacity over a cell):
    bright corner brackets around the whole cell."""
    c = Canvas(32, 32)
    c.rect((0.5, 0.5, 31.5, 31.5), (255, 255, 255, 70))
    for x0, y0, dx, dy in ((1, 1, 1, 1), (31, 1, -1, 1), (1, 31, 1, -1), (31, 31, -1, -1)):
        c.line([(x0, y0 + dy * 9), (x0, y0), (x0 + dx * 9, y0)], (255, 255, 255, 255), 2.2)
    return c.image()


def crosshair():
    """Frame 2, the editor's painting pointer: a crosshair on its centre."""
    c = Canvas(32, 32)
    for col, wd in (((10, 14, 24, 200), 3.2), ((255, 230, 120, 255), 1.4)):
        c.ellipse((9, 9, 23, 23), None, outline=col, width=wd)
        c.line([(16, 2), (16, 11)], col, wd)
        c.line([(16, 21), (16, 30)], col, wd)
        c.line([(2, 16), (11, 16)], col, wd)
        c.line([(21, 16), (30, 16)], col, wd)
    c.ellipse((14.8, 14.8, 17.2, 17.2), (255, 255, 255, 255))
    return c.image()


def generate(reg):
    reg.picture("MOUSE", 0, arrow(), "pointer: arrow, tip at the centre")
    reg.picture("MOUSE", 1, highlight(), "editor cell highlight (drawn at 30 %)")
    reg.picture("MOUSE", 2, crosshair(), "editor pointer: crosshair on the centre")
