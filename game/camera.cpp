#include "game/camera.h"

float camX = 0.0f;
float camY = 0.0f;
