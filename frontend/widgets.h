// The two widget records. Every control of every screen is a fixed global
// instance; screens update them with the pointer, ask whether they were
// clicked, and draw them. Labels are drawn by the screens.
#pragma once

#include "render/textures.h"

#include <cstdint>

struct Button {
    const TextureId *normalFrame, *hoverFrame, *pressedFrame;
    float x, y;
    uint8_t hovered, pressed, clicked;
    int32_t width, height;
    int32_t clickSound;
    uint8_t armed;
    // Behind a fade's veil the button keeps the look it had when the veil
    // came down, instead of following the pointer (the menus' own buttons).
    uint8_t holdsLookBehindVeil;
};

struct Slider {
    const char *label;
    const TextureId *filledFrame, *emptyFrame;
    float x, y;
    int32_t cellWidth, cellHeight;
    int32_t value;
    int32_t cellSpacing;
};

Button makeButton(float x, float y, int width, int height, int clickSound);
Slider makeSlider(float x, float y, const char *label, int cellWidth, int cellHeight);

// Frames are references to GuiTextures slots k, k+1, k+2.
void setButtonFrames(Button &b, int firstGuiSlot);
void setSliderFrames(Slider &s, int filledGuiSlot, int emptyGuiSlot);

// Reads the live left-button state itself, as the game always has: a release
// between two frames still completes the click. Behind a fade's veil
// (input.veiled) no button reports a click, so no screen acts in a fade.
void updateButton(Button &b, float px, float py);
// The one control that answers through the veil: the player may leave for
// the driver tool while the intro is already fading in.
void updateButtonThroughVeil(Button &b, float px, float py);
bool wasClicked(const Button &b);
int visualState(const Button &b);  // 0 normal, 1 hovered, 2 pressed
void drawButton(const Button &b);
void drawButtonFaded(const Button &b, float alpha);
void drawButtonTinted(const Button &b, float r, float g, float b2, float a);

// Behind the veil a slider does not move.
void updateSlider(Slider &s, float px, float py);
void drawSlider(const Slider &s);

// The live mouse buttons (bit 0 left). Tests point it at their own state.
extern int (*readMouseButtons)();

// The dialog buttons shared by the slow-driver, help and password screens.
extern Button dialogUpperButton;
extern Button dialogLowerButton;

// Gives every widget its GUI frames; part of the object link after loading.
void linkWidgetFrames();
