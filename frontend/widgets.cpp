#include "frontend/widgets.h"
#include "app/screens.h"
#include "frontend/layout.h"
#include "audio/audio.h"
#include "render/draw.h"
#include "render/text.h"

#include <allegro.h>
#include <alleggl.h>

static int liveMouseButtons()
{
    return mouse_b;
}

int (*readMouseButtons)() = liveMouseButtons;

Button makeButton(float x, float y, int width, int height, int clickSound)
{
    Button b = {};
    b.x = x;
    b.y = y;
    b.width = width;
    b.height = height;
    b.clickSound = clickSound;
    b.armed = 1;
    return b;
}

Slider makeSlider(float x, float y, const char *label, int cellWidth, int cellHeight)
{
    Slider s = {};
    s.label = label;
    s.x = x;
    s.y = y;
    s.cellWidth = cellWidth;
    s.cellHeight = cellHeight;
    s.value = 3;
    s.cellSpacing = 16;
    return s;
}

static const int GUI_SLOTS = sizeof GuiTextures / sizeof GuiTextures[0];

// A slot outside the table leaves the widget without that frame (it draws
// untextured) rather than reading past the table at every draw.
static const TextureId *guiSlot(int slot)
{
    return slot >= 0 && slot < GUI_SLOTS ? &GuiTextures[slot] : nullptr;
}

void setButtonFrames(Button &b, int firstGuiSlot)
{
    b.normalFrame = guiSlot(firstGuiSlot);
    b.hoverFrame = guiSlot(firstGuiSlot + 1);
    b.pressedFrame = guiSlot(firstGuiSlot + 2);
}

void setSliderFrames(Slider &s, int filledGuiSlot, int emptyGuiSlot)
{
    s.filledFrame = guiSlot(filledGuiSlot);
    s.emptyFrame = guiSlot(emptyGuiSlot);
}

void updateButtonThroughVeil(Button &b, float px, float py)
{
    bool down = (readMouseButtons() & 1) != 0;
    b.clicked = (b.pressed && !down) ? 1 : 0;
    b.hovered = 0;
    b.pressed = 0;

    int halfW = b.width / 2, halfH = b.height / 2;
    bool inside = b.x - halfW < px && px < b.x + halfW && b.y - halfH < py && py < b.y + halfH;
    if (!inside)
        return;
    b.hovered = 1;
    if (down) {
        if (b.armed && b.clickSound == 1) {
            b.armed = 0;
            InterfaceSoundRequest = ButtonSound;
        }
        b.pressed = 1;
        b.clicked = 0;
    } else {
        b.armed = 1;
    }
}

void updateButton(Button &b, float px, float py)
{
    if (!input.veiled || !b.holdsLookBehindVeil)
        updateButtonThroughVeil(b, px, py);
    if (input.veiled)
        b.clicked = 0;
}

bool wasClicked(const Button &b)
{
    return b.clicked == 1;
}

int visualState(const Button &b)
{
    if (!b.hovered)
        return 0;
    return b.pressed ? 2 : 1;
}

static TextureId currentFrame(const Button &b)
{
    const TextureId *frame = b.normalFrame;
    if (b.hovered)
        frame = b.pressed ? b.pressedFrame : b.hoverFrame;
    return frame ? *frame : 0;
}

void drawButtonTinted(const Button &b, float r, float g, float b2, float a)
{
    drawTextureSized((int)b.x, (int)b.y, currentFrame(b), r, g, b2, a, b.width, b.height);
}

void drawButton(const Button &b)
{
    drawButtonTinted(b, 1, 1, 1, 1);
}

void drawButtonFaded(const Button &b, float alpha)
{
    drawButtonTinted(b, 1, 1, 1, alpha);
}

void updateSlider(Slider &s, float px, float py)
{
    if (input.veiled || !(readMouseButtons() & 1))
        return;
    float halfW = s.cellWidth / 2.0f, halfH = s.cellHeight / 2.0f;
    for (int k = 1; k <= 10; k++) {
        float cx = s.x + (k - 1) * s.cellSpacing;
        if (cx - halfW < px && px < cx + halfW && s.y - halfH < py && py < s.y + halfH)
            s.value = k;
    }
}

void drawSlider(const Slider &s)
{
    resetDrawState();
    glColor4f(1, 1, 1, 1);
    drawText(LargeFont, s.x - 13, s.y + 10, "%s", s.label);
    TextureId empty = s.emptyFrame ? *s.emptyFrame : 0;
    TextureId filled = s.filledFrame ? *s.filledFrame : 0;
    for (int k = 0; k < 10; k++)
        drawTextureSized((int)(s.x + k * s.cellSpacing), (int)s.y, empty, 1, 1, 1, 1, s.cellWidth, s.cellHeight);
    for (int k = 0; k < s.value && k < 10; k++)
        drawTextureSized((int)(s.x + k * s.cellSpacing), (int)s.y, filled, 1, 1, 1, 1, s.cellWidth, s.cellHeight);
}

void linkWidgetFrames()
{
    linkLayoutFrames();
}
