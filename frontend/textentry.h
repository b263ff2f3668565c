// The keys every line of typed text in the game answers the same way.
#pragma once

#include <cstdint>
#include <string>

// Left, Right, Backspace and Delete (Allegro scancodes) on text with the
// cursor at `cursor`, kept inside the text. False for any other key, which
// the caller's own rules then take.
bool editLineKey(std::string &text, int32_t &cursor, int scancode);
