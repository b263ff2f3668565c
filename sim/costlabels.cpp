#include "sim/costlabels.h"


std::list<CostLabel> costLabels;

// One table for the toolbar, the rules and the labels, by ToolId.
static const int32_t toolCosts[11] = {0, 100, 150, 150, 500, 300, 400, 400, 250, 200, 400};

int32_t toolCost(int32_t tool)
{
    if (tool < 0 || tool > 10)
        return 0;
    return toolCosts[tool];
}

void spawnCostLabel(float x, float y, int32_t kind)
{
    CostLabel label = {x - 1, y - 10, 0.9f, kind, false};
    costLabels.push_front(label);
}

void tickCostLabels()
{
    for (auto it = costLabels.begin(); it != costLabels.end();) {
        it->y -= 1;
        it->alpha -= 0.05f;
        if (it->alpha <= 0)
            it->finished = true;
        if (it->finished)
            it = costLabels.erase(it);
        else
            ++it;
    }
}

void clearCostLabels()
{
    costLabels.clear();
}
