#include "sim/costlabels.h"


std::list<CostLabel> costLabels;

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
