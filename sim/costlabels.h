// The small "-cost" and "+500" texts that rise from a cell when credits are
// spent or picked up.
#pragma once

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

// The price of a tool in credits; 0 for anything that is not a tool.
int32_t toolCost(int32_t tool);

void spawnCostLabel(float x, float y, int32_t kind);
void tickCostLabels();
void clearCostLabels();
