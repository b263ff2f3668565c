"""TERRAIN/ROCKET/LANDED and FLYING: the rocket standing on the ground and
the rocket in flight (41 frames each, 32 x 32; frame 0 is the still icon,
frames 1 to 40 loop)."""
import math

import art


def generate(reg):
    for i in range(41):
        # the porthole light breathes slowly while the rocket waits
        lights = 0.5 + 0.5 * math.cos(i / 40.0 * 2 * math.pi)
        role = "landed rocket, still icon" if i == 0 else "landed rocket cycle frame %d" % i
        reg.picture("TERRAIN/ROCKET/LANDED", i, art.rocket(32, 32, lights=lights), role)
    for i in range(41):
        role = "flying rocket, still icon" if i == 0 else "flying rocket flame frame %d" % i
        flame = 0.6 + 0.4 * abs(math.sin(i * 1.7))
        reg.picture("TERRAIN/ROCKET/FLYING", i,
                    art.rocket(32, 32, flame=flame, key=i, legs=False, lights=1.0), role)
