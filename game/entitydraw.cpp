// The pictures of the simulation's entities, each at its world position
// through the camera.
#include "game/entitydraw.h"

#include "game/camera.h"
#include "render/draw.h"
#include "render/text.h"
#include "render/textures.h"
#include "sim/bubblemen.h"
#include "sim/costlabels.h"
#include "sim/explosions.h"
#include "sim/rockets.h"

#include <GL/gl.h>

// World pixels (y down) to the y-up screen through the camera.
static float screenX(float worldX)
{
    return worldX + static_cast<float>(static_cast<int>(-camX));
}

static float screenY(float worldY)
{
    return static_cast<float>(static_cast<int>(-camY)) - worldY;
}

void drawExplosions()
{
    for (const Explosion &e : explosions) {
        const TextureId picture = (e.frame >= 0 && e.frame < e.frameCount) ? e.frames[e.frame] : 0;
        drawTexture(screenX(e.x), screenY(e.y), picture, 1, 1, 1, 1);
    }
}

void drawFlyingRockets()
{
    for (const FlyingRocket &r : flyingRockets) {
        const TextureId picture = (r.frame >= 0 && r.frame < r.frameCount) ? r.frames[r.frame] : 0;
        drawTexture(screenX(r.x), screenY(r.y), picture, 1, 1, 1, 1);
    }
}

static TextureId currentPicture(const Bubbleman &b)
{
    // Counts are fixed at birth, but a frame is never trusted as an index
    // without checking it against its own table.
    auto pick = [](const TextureId *frames, int32_t frame, int count) -> TextureId {
        return (frame >= 0 && frame < count) ? frames[frame] : 0;
    };
    if (b.emerging || b.entering)
        return pick(b.enterFrames, b.enterFrame, ENTER_FRAME_COUNT);
    if (b.sucked)
        return pick(b.suckedFrames, b.suckedFrame, SUCKED_FRAME_COUNT);
    if (b.dying)
        return pick(b.dyingFrames, b.dyingFrame, DYING_FRAME_COUNT);
    return pick(b.walkFrames, b.walkFrame, WALK_FRAME_COUNT);
}

void drawBubblemen()
{
    for (const Bubbleman &b : bubblemen)
        drawTexture(screenX(b.x), screenY(b.y), currentPicture(b), 1, 1, 1, b.alpha);
}

void drawCostLabels()
{
    for (const CostLabel &label : costLabels) {
        glColor4f(1, 1, 0.5f, label.alpha);
        const float sx = screenX(label.x), sy = screenY(label.y);
        if (label.kind == CreditsLabelKind)
            drawText(MediumFont, sx, sy, "+%d", CREDITS_PICKUP_VALUE);
        else if (toolCost(label.kind) > 0)
            drawText(MediumFont, sx, sy, "-%d", toolCost(label.kind));
    }
}
