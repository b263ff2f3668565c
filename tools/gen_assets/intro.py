"""SPRITES2/INTRO: the two pictures of the load and intro screens, shown
centred on grey: the maker's emblem and the line under it."""
import art
import common
from common import Canvas


def emblem():
    """Frame 0 (512 x 128): a globe with a rocket rising from it and the
    game's name, drawn at (320, 260)."""
    img = common.blank(512, 128)
    g = art.globe(1, 112, 0.15)
    img.alpha_composite(g, (40, 10))
    rk = art.rocket(32, 48, flame=0.8, key=3, legs=False)
    img.alpha_composite(rk, (112, 0))
    c = Canvas(512, 128)
    c.text((320, 58), "DELVEMOOR", 46, (250, 235, 200, 255))
    c.text((320, 98), "pods \u00b7 lifts \u00b7 rockets", 15, (200, 215, 235, 255), font="DejaVuSans.ttf")
    t = common.glow(c.image(), 2.5, (20, 20, 30), 1.5)
    return common.over(img, t)


def tagline():
    """Frame 1 (512 x 64): the credit line, drawn at (320, 160)."""
    c = Canvas(512, 64)
    c.text((256, 22), "a puzzle about digging, building and launching", 15, (235, 235, 240, 255),
           font="DejaVuSans.ttf")
    c.text((256, 44), "made with Allegro, AllegroGL and OpenGL", 11, (190, 200, 215, 255),
           font="DejaVuSans.ttf")
    return common.glow(c.image(), 2.0, (20, 20, 30), 1.3)


def generate(reg):
    reg.picture("SPRITES2/INTRO", 0, emblem(), "intro: emblem and name (at 320, 260)")
    reg.picture("SPRITES2/INTRO", 1, tagline(), "intro: line under the emblem (at 320, 160)")
