# The first mission's winning run with the mouse, in the picture's own
# 640 x 480 pixels (y down). The script that sources this supplies hold_click,
# which takes a point of the picture to wherever it lies in the window. The
# view opens on the level's top left, so cell (x, y) lies under picture point
# (32x + 16, 32y - 86).
hatch_first_mission() {
    hold_click 225 48                            # the hatcher
    hold_click 560 394                           # over the pod, cell (17, 15)
    sleep 0.5
    hold_click 311 463                           # Hatch Pods
    sleep 0.5
    xdotool mousedown 3; sleep 0.3; xdotool mouseup 3   # the tool put down
}
launch_first_mission() {
    sleep 14                                     # the bubbleman walks to the rocket
    for attempt in 1 2 3 4; do
        hold_click 502 410                       # Launch, once the panel is in
        sleep 2
    done
    sleep 6                                      # the rocket leaves the level
}
