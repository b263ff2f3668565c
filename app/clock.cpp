// The clock of the game: Allegro's timer thread counts the ticks owed and the
// frames of the last second; the main thread spends and shows them.
#include "app/clock.h"

#include "app/log.h"

#include <allegro.h>

std::atomic<int32_t> tickCounter{0};
std::atomic<int32_t> framesThisSecond{0};
std::atomic<int32_t> framesPerSecond{0};

static void tickCallback()
{
    tickCounter++;
}
END_OF_FUNCTION(tickCallback)

static void secondCallback()
{
    framesPerSecond = framesThisSecond.load();
    framesThisSecond = 0;
}
END_OF_FUNCTION(secondCallback)

void installTimers()
{
    logLine("Calibrating timers...");
    LOCK_FUNCTION(tickCallback);
    LOCK_FUNCTION(secondCallback);
    install_int_ex(tickCallback, BPS_TO_TIMER(40));
    install_int_ex(secondCallback, SECS_TO_TIMER(1));
    logLine("Timers successfully calibrated");
}
