#include "game/camera.h"

// Where the view looks before any level has set it.
float camX = 200.0f;
float camY = -700.0f;
