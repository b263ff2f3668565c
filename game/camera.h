// The camera of the level view: the world offset that scrolls with the pointer.
#pragma once

extern float camX, camY;
