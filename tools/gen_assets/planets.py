"""TERRAIN/<planet>/PLANET: the four turning globes (73 frames of 64 x 64
each; frame 0 is the still icon, frames 1 to 72 turn once, 5 degrees a step,
so the loop is seamless)."""
import art

FOLDERS = {1: "TERRAIN/FIELD/PLANET", 2: "TERRAIN/ICE/PLANET",
           3: "TERRAIN/ASTEROID/PLANET", 4: "TERRAIN/SOFT/PLANET"}
WORDS = {1: "green field planet", 2: "ice planet", 3: "asteroid", 4: "soft pink planet"}


def generate(reg):
    for num, folder in FOLDERS.items():
        surface = art.planet_map(num)
        for i in range(73):
            turn = 0.0 if i == 0 else (i - 1) / 72.0
            role = "%s globe, %s" % (WORDS[num], "still icon" if i == 0 else "turn step %d" % i)
            reg.picture(folder, i, art.globe(num, 64, turn, surface), role)
