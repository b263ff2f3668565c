// SIGTERM, SIGHUP and SIGINT end the game through its normal shut-down, as
// the close box does: the main loop sees the request at its next frame, so
// the configuration is written and the log gets its trailer. Allegro's own
// handler shuts the library down from inside the signal instead, which loses
// both and, with some sound drivers, never returns at all.

#include "app/signals.h"

#include <csignal>

static volatile sig_atomic_t quitSignal = 0;

static const int quitSignals[] = {SIGTERM, SIGHUP, SIGINT};
// A signal ignored by whoever started the game stays ignored: nohup and a
// background start in a script promise that, and the library's handlers
// would otherwise have undone it.
static bool ignoredAtStart[3];

// A second signal while the first is still being served means the player
// wants out now: the default action ends the process at once.
static void onQuitSignal(int number)
{
    if (quitSignal != 0) {
        signal(number, SIG_DFL);
        raise(number);
        return;
    }
    quitSignal = number;
}

void noteInheritedSignals()
{
    for (int i = 0; i < 3; i++) {
        struct sigaction old = {};
        ignoredAtStart[i] = sigaction(quitSignals[i], nullptr, &old) == 0 && old.sa_handler == SIG_IGN;
    }
}

void installQuitSignals()
{
    struct sigaction action = {};
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int i = 0; i < 3; i++) {
        action.sa_handler = ignoredAtStart[i] ? SIG_IGN : onQuitSignal;
        sigaction(quitSignals[i], &action, nullptr);
    }
}

int quitSignalReceived()
{
    return quitSignal;
}
