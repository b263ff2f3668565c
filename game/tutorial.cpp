// The panel stays where the level's landmarks are, not where the screen is:
// its words point at the pod and the rocket they talk about.
#include "game/tutorial.h"

#include "game/gamescreen.h"
#include "render/draw.h"
#include "render/text.h"

#include <GL/gl.h>
#include <string>

namespace {

struct TutorialLine {
    int d;              // pixels below the panel's text origin
    const char *text;
};

struct TutorialBlock {
    const char *title;
    float cx, cy;                       // panel centre relative to the view origin
    float left, right, bottom, top;     // rectangle relative to the centre
    float tx;                           // text column relative to the view origin
    const TutorialLine *lines;
    int lineCount;
};

const TutorialLine introLines[] = {
    {100, "Welcome to Delvemoor, rescuer of bubblemen!"},
    {120, "This introduction level is designed to help"},
    {130, "you learn the basics of the game."},
    {150, "In order to complete this level you must"},
    {160, "select the hatcher building from the top and"},
    {170, "build it over the pod located in the lower"},
    {180, "righthand corner."},
    {200, "Once the hatcher is in place click the hatch"},
    {210, "pods button at the bottom of the screen."},
    {230, "The now hatched bubbleman will walk across the"},
    {240, "ground then enter the awaiting rocket."},
    {260, "Click the launch button to complete the level."},
};

const TutorialLine moreToolsLines[] = {
    {100, "This time you will build a few new structures;"},
    {110, "Girders and vertical lifts."},
    {130, "Repeat what you did last level. (Find the pod and build a"},
    {140, "hatcher over it.) Then click the right hanging girder"},
    {150, "button. (The third button)."},
    {170, "Once the girder is selected, build one on the sides"},
    {180, "of each of the two cliffs leading down to the rocket."},
    {190, "This will allow the bubbleman to cross over the two gaps."},
    {210, "After you have patched the gaps, click on the vertical"},
    {220, "lift button and place one under the rocket on the right."},
    {230, "This will allow the bubbleman to reach the rocket."},
};

const TutorialLine seeDoubleLines[] = {
    {145, "On the right side of the map we need to use the shovel"},
    {155, "and dynamite. The crates to the lower right of this pod"},
    {165, "are too heavy to dig out, so select the dynamite and blow"},
    {175, "them out instead."},
    {195, "Use the shovel to dig a tunnel leading downwards where the"},
    {205, "crates used to be. Just before the exit, there are some"},
    {215, "rocks. Destroy them with the dynamite. This bubbleman"},
    {225, "will now be able to reach the rocket through this tunnel."},
    {235, ""},
    {255, "You're probably eager to start playing on your own so this"},
    {265, "tutorial ends here. Remember, there is usually more than"},
    {275, "one solution to most levels. Experiment and have fun!"},
};

#define LINES(a) a, static_cast<int>(sizeof(a) / sizeof((a)[0]))

const TutorialBlock blocks[] = {
    {"Intro", 412, -330, -140, 155, -90, 95, 280, LINES(introLines)},
    {"More Tools", 432, -330, -140, 220, -60, 95, 300, LINES(moreToolsLines)},
    {"See Double", 215, -350, -140, 222, -82, 70, 83, LINES(seeDoubleLines)},
};

const TutorialBlock *blockFor(const std::string &title)
{
    for (const TutorialBlock &b : blocks)
        if (title == b.title)
            return &b;
    return nullptr;
}

} // namespace

bool hasTutorial(const std::string &title)
{
    return blockFor(title) != nullptr;
}

bool tutorialPanelArea(const std::string &title, float *left, float *right, float *bottom, float *top)
{
    const TutorialBlock *b = blockFor(title);
    if (!b)
        return false;
    *left = b->cx + b->left;
    *right = b->cx + b->right;
    *bottom = b->cy + b->bottom;
    *top = b->cy + b->top;
    return true;
}

void drawTutorialPanel(const Level &level, float ox, float oy)
{
    const TutorialBlock *b = blockFor(level.title);
    // Until its delay has run out the panel's alphas are below zero: nothing
    // to draw, and nothing to spend the frame on.
    const float alpha = introBanner.tutorialAlpha;
    if (!b || alpha - 0.2f <= 0)
        return;
    const float cx = ox + b->cx, cy = oy + b->cy;
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    if (alpha - 0.8f > 0)
        drawRect(cx + b->left, cy + b->bottom, cx + b->right, cy + b->top, 0.1f, 0.1f, 0.8f, alpha - 0.8f);
    glColor4f(0.8f, 0.8f, 1.0f, alpha - 0.2f);
    for (int i = 0; i < b->lineCount; i++)
        drawText(SmallFont, ox + b->tx, oy - 150 - b->lines[i].d, "%s",
                 b->lines[i].text);
}
