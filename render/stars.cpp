// The starfield: falling stars behind the front-end screens, drifting stars
// fixed to the world behind a level. One list, fed by two spawners.

#include "render/stars.h"

#include "app/log.h"
#include "render/draw.h"
#include "render/textures.h"

#include <GL/gl.h>

#include <cstdlib>
#include <iterator>

std::list<Star> StarList;
int starSpawnCounter = 10;

struct StarKind {
    float dx, dy;
    bool inWorld;  // drawn relative to the camera
};

// Three layers each: far and faint moves slowly, near and bright quickly.
static const StarKind starKinds[6] = {
    {-0.2f, -0.4f, false}, {-0.5f, -0.8f, false}, {-1.0f, -1.0f, false},
    {-0.2f, 0.0f, true},   {-0.5f, 0.0f, true},   {-1.0f, 0.0f, true},
};

// The drifting spawner draws its kind from 3 to 8, but only 3 to 5 move. A
// star of kind 6 to 8 would stand still above the sky for good, so the list
// would grow without end over a long level. Folding 6, 7, 8 onto 3, 4, 5
// keeps the picture the kind would have had (kind mod 3), makes every
// drifting star cross the level and leave, and keeps the three layers
// equally likely.
static unsigned foldKind(unsigned kind)
{
    return kind < 6 ? kind : 3 + (kind - 3) % 3;
}

Star makeStar(float x, float y, unsigned kind)
{
    kind = foldKind(kind);
    return Star{x, y, 0, kind, kind % 3};
}

void clearStars()
{
    StarList.clear();
}

void updateStars()
{
    for (Star &star : StarList) {
        const StarKind &kind = starKinds[foldKind(star.kind)];
        star.x += kind.dx;
        star.y += kind.dy;
        if (star.x <= -100 || (!kind.inWorld && star.y <= -10))
            star.dead = 1;
    }
}

void purgeStars()
{
    for (auto it = StarList.begin(); it != StarList.end();)
        it = it->dead ? StarList.erase(it) : std::next(it);
}

// Stars off the screen are skipped, and a run of stars with one picture is
// one batch of quads: the software renderer pays for every glBegin.
void drawStars(float originX, float originY)
{
    // The world stars are shifted by the view's origin (the whole-pixel
    // camera and half a cell), so they scroll in step with the terrain drawn
    // over them.
    const float worldX = originX;
    const float worldY = originY;
    const float half = 4;
    resetDrawState();
    TextureId bound = 0;
    bool open = false;
    for (const Star &star : StarList) {
        bool inWorld = starKinds[foldKind(star.kind)].inWorld;
        const float x = inWorld ? star.x + worldX : star.x;
        const float y = inWorld ? star.y + worldY : star.y;
        if (x + half <= 0 || x - half >= SCREEN_WIDTH || y + half <= 0 || y - half >= SCREEN_HEIGHT)
            continue;
        const TextureId texture = StarTextures[star.frame % 3];
        if (!open || texture != bound) {
            if (open)
                glEnd();
            glBindTexture(GL_TEXTURE_2D, texture);
            glBegin(GL_QUADS);
            bound = texture;
            open = true;
        }
        glTexCoord2f(0, 0);
        glVertex3f(x - half, y - half, 1);
        glTexCoord2f(1, 0);
        glVertex3f(x + half, y - half, 1);
        glTexCoord2f(1, 1);
        glVertex3f(x + half, y + half, 1);
        glTexCoord2f(0, 1);
        glVertex3f(x - half, y + half, 1);
    }
    if (open)
        glEnd();
}

void tickFallingStars()
{
    updateStars();
    purgeStars();
    int r1 = rand();
    int r2 = rand();
    StarList.push_back(makeStar((float)(r2 % 1200), (float)SCREEN_HEIGHT, (unsigned)(r1 % 3)));
}

void tickDriftingStars()
{
    updateStars();
    purgeStars();
    if (starSpawnCounter <= 9) {
        starSpawnCounter++;
        if (starSpawnCounter <= 9)
            return;
    }
    int r1 = rand();
    int r2 = rand();
    StarList.push_back(makeStar(1000, (float)(r2 % 210 - 210), (unsigned)(3 + r1 % 6)));
    starSpawnCounter = 0;
}

void prefillStars()
{
    logLine("Loading starfield...");
    clearStars();
    for (int i = 0; i < 1000; i++)
        tickFallingStars();
    logLine("Starfield loaded");
}

void prefillGameStars()
{
    logLine("Loading game starfield...");
    clearStars();
    for (int i = 0; i < 6000; i++)
        tickDriftingStars();
    logLine("Starfield loaded");
}
