// Delvemoor: start-up, the main loop, shut-down.

#include "app/game.h"

#include <allegro.h>

int main()
{
    return runGame();
}
END_OF_MAIN()
