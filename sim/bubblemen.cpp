// A bubbleman decides only when he stands exactly on a cell centre and moves
// in whole pixels in between, so every decision sees a whole cell and the
// same level always plays out the same way.
#include "sim/bubblemen.h"

#include "audio/audio.h"
#include "game/mission.h"
#include "sim/cells.h"
#include "sim/costlabels.h"
#include "world/level.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

std::list<Bubbleman> bubblemen;

// Walking passes through the things a bubbleman can walk past: the rocket he
// boards, the hazards and pick-ups he meets, and the structures he stands in
// (girders, hatchers, lifts). Lift exits and blockers turn him round.
bool blocksWalk(int x, int y)
{
    const int32_t t = terrainAt(x, y);
    switch (t) {
    case Empty: {
        const int32_t s = structureAt(x, y);
        return s == LeftLiftExit || s == RightLiftExit || s == Blocker;
    }
    case Rocket: case Spikes: case Vortex: case Credits: case WorldItem3:
        return false;
    default:
        return true;
    }
}

// A lift carries him into anything but solid ground or a blocker, water and
// hazards included.
bool blocksRise(int x, int y)
{
    const int32_t t = terrainAt(x, y);
    if (isGround(t))
        return true;
    return t == Empty && structureAt(x, y) == Blocker;
}

bool canStandOn(int x, int y)
{
    const int32_t t = terrainAt(x, y);
    if (t == Empty)
        return structureAt(x, y) != 0;
    return isGround(t);
}

void spawnBubbleman(float x, float y)
{
    Bubbleman b;
    std::memset(&b, 0, sizeof b);
    // Each bubbleman keeps its own copy of the frames it was born with.
    std::memcpy(b.walkFrames, GreenmanWalkTextures, sizeof b.walkFrames);
    std::memcpy(b.enterFrames, GreenmanEnterTextures, sizeof b.enterFrames);
    std::memcpy(b.suckedFrames, GreenmanSuckedTextures, sizeof b.suckedFrames);
    std::memcpy(b.dyingFrames, GreenmanFallTextures, sizeof b.dyingFrames);
    b.walkCount = WALK_FRAME_COUNT;
    b.enterCount = ENTER_FRAME_COUNT;
    b.suckedCount = SUCKED_FRAME_COUNT;
    b.dyingCount = DYING_FRAME_COUNT;
    b.x = x;
    b.y = y;
    b.alpha = 1.0f;
    b.motion = OnGround;
    b.heading = HeadingLeft;
    // He climbs out of the hatcher: the boarding animation, backwards.
    b.enterFrame = b.enterCount - 1;
    b.emerging = true;
    bubblemen.push_front(b);
}

void clearBubblemen()
{
    bubblemen.clear();
}

static bool lastFrameReached(int32_t frame, int32_t count)
{
    return static_cast<uint32_t>(frame) >= static_cast<uint32_t>(count - 1);
}

static void animate(Bubbleman &b)
{
    if (b.sucked) {
        if (!lastFrameReached(b.suckedFrame, b.suckedCount)) {
            b.suckedFrame++;
            b.alpha -= 0.03f;
            EffectSoundRequest = SuckedSound;
        } else {
            b.sucked = false;
            b.dead = true;
        }
    }
    if (b.dying) {
        if (!lastFrameReached(b.dyingFrame, b.dyingCount)) {
            b.dyingFrame++;
            b.alpha -= 0.03f;
            EffectSoundRequest = SuckedSound;
        } else {
            b.dying = false;
            b.dead = true;
        }
    }
    if (b.emerging) {
        if (b.enterFrame > 1)
            b.enterFrame--;
        else
            b.emerging = false;
    }
    if (b.entering) {
        if (!lastFrameReached(b.enterFrame, b.enterCount))
            b.enterFrame++;
        else
            b.boarded = true;
        if (b.enterFrame == 13)
            EffectSoundRequest = BoardingSound + std::rand() % 3;
        if (b.enterFrame == 2)
            EffectSoundRequest = EnteringSound;
    } else {
        b.walkFrame++;
        // Frame 0 is the still pose of a bubbleman just born.
        if (static_cast<uint32_t>(b.walkFrame) >= static_cast<uint32_t>(b.walkCount))
            b.walkFrame = 1;
    }
}

// A level file may start with credits near the top of the range; a pick-up
// there tops them up to the most they can hold rather than wrapping them
// round into a debt.
static void addPickUpCredits()
{
    if (mission.credits > INT32_MAX - CREDITS_PICKUP_VALUE)
        mission.credits = INT32_MAX;
    else
        mission.credits += CREDITS_PICKUP_VALUE;
}

static void stopForGood(Bubbleman &b)
{
    b.motion = OnGround;
    b.heading = Stopped;
}

static bool busy(const Bubbleman &b)
{
    return b.entering || b.emerging || b.sucked || b.dying;
}

static void decideOnCentre(Bubbleman &b)
{
    const int cx = b.cellX, cy = b.cellY;
    const int32_t t = terrainAt(cx, cy);
    const int32_t s = structureAt(cx, cy);

    if (t == Rocket) {
        b.entering = true;
        stopForGood(b);
    }
    if (t == Credits) {
        EffectSoundRequest = CreditsPickupSound;
        spawnCostLabel(cellCentreX(cx), cellCentreY(cy), CreditsLabelKind);
        addPickUpCredits();
        setTerrain(cx, cy, Empty);
    }
    if (t == Vortex) {
        b.sucked = true;
        stopForGood(b);
    }
    // Spikes only kill what falls onto them: walking, he steps between them.
    if (t == Spikes && b.motion == Falling) {
        b.dying = true;
        stopForGood(b);
    }
    if (t == Water) {
        b.dying = true;
        stopForGood(b);
    }
    if (busy(b))
        return;

    b.motion = canStandOn(cx, cy + 1) ? OnGround : Falling;
    if (structureAt(cx, cy + 1) == EnergyLift)
        b.motion = Parked;
    if (s == EnergyLift && !blocksRise(cx, cy - 1))
        b.motion = Rising;

    if (b.motion == OnGround) {
        const bool wallRight = blocksWalk(cx + 1, cy);
        const bool wallLeft = blocksWalk(cx - 1, cy);
        if (wallRight)
            b.heading = HeadingLeft;
        if (wallLeft)
            b.heading = HeadingRight;
        if (wallRight && wallLeft)
            b.heading = Halted;
    }
    if (s == LeftLiftExit) {
        b.motion = OnGround;
        b.heading = blocksWalk(cx - 1, cy) ? Halted : HeadingLeft;
    }
    if (s == RightLiftExit) {
        b.motion = OnGround;
        b.heading = blocksWalk(cx + 1, cy) ? Halted : HeadingRight;
    }
}

static void move(Bubbleman &b)
{
    if (b.motion == Falling)
        b.y += 2;
    if (b.motion == Rising)
        b.y -= 1;
    if (!busy(b) && b.motion == OnGround) {
        if (b.heading == HeadingLeft)
            b.x -= 1;
        else if (b.heading == HeadingRight)
            b.x += 1;
    }
}

static void updateBubbleman(Bubbleman &b)
{
    animate(b);
    const int cx0 = static_cast<int>(b.x) / 32;
    b.cellX = entityCellX(b.x);
    b.cellY = entityCellY(b.y);
    if (b.x == cellCentreX(b.cellX) && b.y == cellCentreY(b.cellY))
        decideOnCentre(b);
    move(b);
    // Beyond the edge of the level he is sent back in.
    if (cx0 < 1)
        b.heading = HeadingRight;
    if (cx0 >= currentLevel.width)
        b.heading = HeadingLeft;
}

void updateBubblemen()
{
    for (auto it = bubblemen.begin(); it != bubblemen.end();) {
        if (it->boarded) {
            mission.savedCount++;
            it = bubblemen.erase(it);
        } else if (it->dead) {
            mission.bubblemanLost = true;
            it = bubblemen.erase(it);
        } else {
            ++it;
        }
    }
    for (Bubbleman &b : bubblemen)
        updateBubbleman(b);
}
