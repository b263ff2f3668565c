// The small "-cost" and "+500" texts that rise from a cell when credits are
// spent or picked up.
#pragma once

#include "sim/toolinfo.h"

#include <cstdint>
#include <list>

const int32_t CreditsLabelKind = 11;      // a kind beyond the ten tools
const int32_t CREDITS_PICKUP_VALUE = 500;

struct CostLabel {
    float x, y;
    float alpha;
    int32_t kind;       // a ToolId 1 to 10, or CreditsLabelKind
    bool finished;
};

// Newest first.
extern std::list<CostLabel> costLabels;

void spawnCostLabel(float x, float y, int32_t kind);
void tickCostLabels();
void clearCostLabels();
