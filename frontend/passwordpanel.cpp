// The password panel over the selection screen: a line editor of at most
// eight characters fed by the keyboard buffer, and "Continue", which tries
// the text against the campaign's passwords.

#include "app/screens.h"
#include "frontend/frontend.h"
#include "frontend/layout.h"
#include "frontend/menuparts.h"
#include "frontend/screens.h"
#include "frontend/textentry.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/text.h"
#include "world/passwords.h"

#include <allegro.h>
#include <alleggl.h>

int32_t cursorPos = 0;

static int bufferedKey()
{
    return keypressed() ? readkey() : -1;
}

int (*nextTypedKey)() = bufferedKey;

static bool typeable(int c)
{
    return (c >= 0x20 && c <= 0x5A) || (c >= 'a' && c <= 'z') || c == '_';
}

// The low byte is the character, the high byte Allegro's scancode. The
// limit is on the cursor, as players of the game have always found it: two
// steps left of a full line, a ninth character still goes in.
void typePasswordKey(int key)
{
    int c = key & 0xFF;
    int scancode = (key >> 8) & 0xFF;
    // The cursor is kept inside the text whatever happened to it, so an edit
    // can never reach past either end.
    if (cursorPos < 0)
        cursorPos = 0;
    if (cursorPos > (int32_t)enteredText.size())
        cursorPos = (int32_t)enteredText.size();
    if (typeable(c) && cursorPos <= 7) {
        if (c >= 'a' && c <= 'z')
            c = c - 'a' + 'A';
        enteredText.insert(enteredText.begin() + cursorPos, (char)c);
        cursorPos++;
        return;
    }
    editLineKey(enteredText, cursorPos, scancode);
}

// Keys pressed before the panel opened must not turn up in it. At most a
// buffer's worth is drained, so a key source that never runs dry cannot hang.
void clearTypedKeys()
{
    for (int i = 0; i < 256 && nextTypedKey() >= 0; i++) {
    }
}

void passwordEntryTick()
{
    tickFallingStars();
    for (int i = 0; i < 256; i++) {
        int key = nextTypedKey();
        if (key < 0)
            break;
        typePasswordKey(key);
    }
}

void passwordPanelFrame()
{
    resetDrawState();
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0, 0, 0.5f);
    drawTexture(320, 230, SpriteTextures[12], 1, 1, 1, 1);
    drawTexture(320, 210, SpriteTextures[30], 1, 1, 1, 1);

    updateButton(dialogLowerButton, input.pointerX, input.pointerY);
    if (wasClicked(dialogLowerButton)) {
        checkPassword();
        setScreen(GameSelect);
    }
    drawLabelledButton(dialogLowerButton, "Continue");

    glColor4f(1, 1, 1, 1);
    drawMediumCentred(320, 300, "Enter Password");
    static const char *const lines[] = {"Please enter your current", "campaign password to continue",
                                        "your missions from the save", "point."};
    for (int i = 0; i < 4; i++)
        drawSmallCentred(320, 280 - 10 * i, lines[i]);
    glColor4f(0.7f, 0.7f, 0.7f, 1);
    drawMediumCentred(320, 204, enteredText.c_str());
    drawPointer();
}
