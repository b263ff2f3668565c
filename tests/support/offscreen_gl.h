// The OpenGL context the drawing tests draw into: OSMesa, offscreen, 640 x
// 480, with no display and no AllegroGL. The test's CMake puts OSMesa first
// on the link line, since libGL exports the same gl* entry points and the
// first library loaded wins.
#pragma once

#include "render/draw.h"

#include <GL/osmesa.h>
#include <gtest/gtest.h>

#include <vector>

// The frame the context draws into: RGBA, the bottom row first.
inline std::vector<unsigned char> &offscreenFrame()
{
    static std::vector<unsigned char> frame(SCREEN_WIDTH * SCREEN_HEIGHT * 4);
    return frame;
}

// One context for the whole program, made on first use and kept until the
// program ends: Mesa's own tear-down reads freed state under the sanitizers.
// Each call sets the drawing state start-up sets, whatever the last test left.
inline void useOffscreenContext()
{
    static OSMesaContext context = OSMesaCreateContextExt(OSMESA_RGBA, 0, 0, 0, nullptr);
    ASSERT_NE(context, nullptr);
    ASSERT_TRUE(OSMesaMakeCurrent(context, offscreenFrame().data(), GL_UNSIGNED_BYTE, SCREEN_WIDTH, SCREEN_HEIGHT));
    // Had libGL taken the gl* symbols, the calls would go nowhere.
    ASSERT_NE(glGetString(GL_RENDERER), nullptr);
    setDrawingState();
}
