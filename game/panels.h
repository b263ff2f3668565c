// The pause and mission-end panels, drawn over the frozen level (the screen
// table draws the game screen under them).
#pragma once

void pausePanelFrame();
void missionCompletePanelFrame();
void missionFailedPanelFrame();
