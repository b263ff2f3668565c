// Screens that are not built yet. Each keeps its place in the screen table so
// the state machine is whole; a screen's own file replaces its entry here.

#include "app/screens.h"
#include "frontend/screens.h"
#include "game/gamescreen.h"
#include "game/mission.h"
#include "world/catalogue.h"
#include "world/passwords.h"


