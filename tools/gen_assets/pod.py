"""TERRAIN/POD: the pod's 21-frame cycle (32 x 32), drawn over a dirt tile."""
import math

import art


def generate(reg):
    for i in range(21):
        pulse = 0.5 + 0.5 * math.sin(i / 21.0 * 2 * math.pi)
        role = "pod, still icon" if i == 0 else "pod glow cycle frame %d" % i
        reg.picture("TERRAIN/POD", i, art.pod(32, pulse), role)
