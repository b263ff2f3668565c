// Small drawing pieces every front-end screen shares: the turning backdrop,
// the pointer, and the labels over the buttons.
#pragma once

#include "frontend/widgets.h"

void drawMenuBackdrop();
void drawPointer();

// Colour of every button label on the front end.
const float LABEL_GREY = 0.9f;

// A label in the 12-pixel font, centred on the button 6 pixels below its
// centre, one pixel further left and down while the button is held.
void drawCentredLabel(const Button &b, const char *text, float alpha = 1.0f);
// A button and its centred label, the way most of them are drawn.
void drawLabelledButton(const Button &b, const char *text);
// The same with the text starting dx pixels right of the button's centre.
void drawOffsetLabel(const Button &b, float dx, const char *text, float alpha = 1.0f);
// The 8-pixel font variant, 4 pixels below the centre, white.
void drawSmallCentredLabel(const Button &b, const char *text);

// The 8-pixel font, centred on x, in the current colour.
void drawSmallCentred(float x, float y, const char *text);
// The 12-pixel font, centred on x, in the current colour.
void drawMediumCentred(float x, float y, const char *text);
