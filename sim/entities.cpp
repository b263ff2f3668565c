// One place that knows every list a level's attempt fills, so nothing of a
// previous attempt can survive a retry.
#include "sim/entities.h"

#include "sim/bubblemen.h"
#include "sim/costlabels.h"
#include "sim/explosions.h"
#include "sim/rockets.h"

void clearEntityLists()
{
    clearBubblemen();
    clearFlyingRockets();
    clearExplosions();
    clearCostLabels();
}
