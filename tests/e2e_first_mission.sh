# The first mission's winning run with the mouse, in the picture's own
# 640 x 480 pixels (y down), which `player` takes to wherever the picture lies
# in the window. The view opens on the level's top left, so cell (x, y) lies
# under picture point (32x + 16, 32y - 86).
hatch_first_mission() {
    player click 225 48                          # the hatcher
    player click 560 394                         # over the pod, cell (17, 15)
    player click 311 463                         # Hatch Pods
    player click 311 463 right                   # the tool put down
}
launch_first_mission() {
    player launch-panel 90                       # once the bubbleman has walked to the rocket
    player click 502 410                         # Launch
    player mission-end 60                        # the rocket leaves the level
}
