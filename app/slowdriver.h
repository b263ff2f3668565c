// The warning shown at start-up when only a software renderer draws.
#pragma once

// The SlowDriverWarning row's render handler.
void slowDriverFrame();
