// Pictures into textures without AllegroGL, for the offscreen OpenGL
// contexts of the tools and the pixel tests, and the rendered frame out as a
// PNG file that people can look at.
#pragma once

#include "render/draw.h"
#include "render/textures.h"

#include <string>
#include <vector>

struct BITMAP;

// The upload the load screen makes, done with plain OpenGL calls: RGBA,
// linear filtering, the bottom row first as the game's textures are.
TextureId uploadPictureOffscreen(BITMAP *picture);

// The 640 x 480 frame (or the whole window) read back from the current
// context, top row first, RGB.
std::vector<unsigned char> readFrameRgb(int width = SCREEN_WIDTH, int height = SCREEN_HEIGHT);
// Writes an RGB picture, top row first, as an uncompressed-deflate PNG.
bool writePng(const std::string &path, int width, int height, const std::vector<unsigned char> &rgb);
