// The window's size on the desktop, where the picture lies in it, and the
// pointer taken back to the 640 x 480 picture.

#include "app/window_scale.h"
#include "render/draw.h"

#include <gtest/gtest.h>

TEST(WindowScale, OpensAtTheLargestWholeMultipleThatFitsComfortably)
{
    EXPECT_EQ(openingScale(1920, 1080), 2);  // a 1080p screen: 1280 x 960
    EXPECT_EQ(openingScale(1920, 1053), 2);  // the same with a top panel
    EXPECT_EQ(openingScale(1024, 768), 1);   // nothing larger fits
    EXPECT_EQ(openingScale(1366, 768), 1);
    EXPECT_EQ(openingScale(2560, 1440), 2);  // 3 x would leave no room for the title bar
    EXPECT_EQ(openingScale(3840, 2160), 4);
    EXPECT_EQ(openingScale(640, 480), 1);
    EXPECT_EQ(openingScale(0, 0), 1);
}

TEST(WindowScale, ThePictureIsCentredAtAWholeFactorOrShrunkToFit)
{
    struct Case {
        int w, h;
        PictureRect want;
    } cases[] = {
        {640, 480, {0, 0, 640, 480, 1}},       // the window is the picture
        {1280, 960, {0, 0, 1280, 960, 2}},     // opened at 2 x
        {1920, 1080, {320, 60, 1280, 960, 2}}, // maximised on 1080p: black bars around
        {1919, 1440, {319, 240, 1280, 960, 2}}, // wide enough for 2 x only
        {1920, 1440, {0, 0, 1920, 1440, 3}},
        {1279, 700, {319, 110, 640, 480, 1}},  // between 1 x and 2 x: centred at 1 x
        {400, 300, {0, 0, 400, 300, 0}},       // smaller: shrunk, shape kept
        {400, 400, {0, 50, 400, 300, 0}},
        {900, 300, {250, 0, 400, 300, 0}},
    };
    for (const Case &c : cases) {
        const PictureRect p = pictureRectFor(c.w, c.h);
        EXPECT_EQ(p.x, c.want.x) << c.w << " x " << c.h;
        EXPECT_EQ(p.y, c.want.y) << c.w << " x " << c.h;
        EXPECT_EQ(p.width, c.want.width) << c.w << " x " << c.h;
        EXPECT_EQ(p.height, c.want.height) << c.w << " x " << c.h;
        EXPECT_EQ(p.scale, c.want.scale) << c.w << " x " << c.h;
    }
}

// Every click a player aims at a spot of the picture lands on that spot,
// whatever the window; the border is never the picture.
TEST(WindowScale, ThePointerLandsOnTheSameSpotOfThePictureAtEveryScale)
{
    for (int scale = 1; scale <= 3; scale++) {
        const PictureRect p = pictureRectFor(SCREEN_WIDTH * scale + 100, SCREEN_HEIGHT * scale + 41);
        ASSERT_EQ(p.scale, scale);
        for (int y = 0; y < SCREEN_HEIGHT; y += 7)
            for (int x = 0; x < SCREEN_WIDTH; x += 5)
                for (int within = 0; within < scale; within++) {
                    const PicturePoint q = picturePointAt(p, p.x + x * scale + within, p.y + y * scale + within);
                    ASSERT_EQ(q.x, x);
                    ASSERT_EQ(q.y, y);
                    ASSERT_FALSE(q.onBorder);
                }
    }

    // 2 x in a maximised 1080p window: the picture spans 320..1599 and 60..1019.
    const PictureRect p = pictureRectFor(1920, 1080);
    struct Case {
        int wx, wy, x, y;
        bool onBorder;
    } cases[] = {
        {320, 60, 0, 0, false},        {1599, 1019, 639, 479, false},
        {319, 500, 0, 220, true},      // left border: the picture's left edge, where the view scrolls left
        {1600, 500, 639, 220, true},   // right border
        {900, 0, 290, 0, true},        // above
        {900, 1079, 290, 479, true},   // below
        {0, 0, 0, 0, true},            {1919, 1079, 639, 479, true},
    };
    for (const Case &c : cases) {
        const PicturePoint q = picturePointAt(p, c.wx, c.wy);
        EXPECT_EQ(q.x, c.x) << c.wx << ", " << c.wy;
        EXPECT_EQ(q.y, c.y) << c.wx << ", " << c.wy;
        EXPECT_EQ(q.onBorder, c.onBorder) << c.wx << ", " << c.wy;
    }

    // Shrunk into 320 x 240: every window pixel is a pixel of the picture.
    const PictureRect small = pictureRectFor(320, 240);
    const PicturePoint corner = picturePointAt(small, 319, 239);
    EXPECT_EQ(corner.x, 638);
    EXPECT_EQ(corner.y, 478);
    EXPECT_FALSE(corner.onBorder);
}

TEST(WindowScale, AClickOnTheBorderReachesNothing)
{
    const int Left = 1, Right = 2;
    int onBorder = 0;
    // Pressed on the border, then dragged onto the picture: up until let go.
    onBorder = buttonsPressedOnBorder(onBorder, Left, 0, true);
    EXPECT_EQ(onBorder, Left);
    onBorder = buttonsPressedOnBorder(onBorder, Left, Left, false);
    EXPECT_EQ(onBorder, Left);
    onBorder = buttonsPressedOnBorder(onBorder, 0, Left, false);
    EXPECT_EQ(onBorder, 0);
    // Pressed on the picture and dragged onto the border: still the player's
    // press, so a button pressed on the picture is not clicked by leaving it.
    onBorder = buttonsPressedOnBorder(onBorder, Left, 0, false);
    EXPECT_EQ(onBorder, 0);
    onBorder = buttonsPressedOnBorder(onBorder, Left, Left, true);
    EXPECT_EQ(onBorder, 0);
    // The right button pressed on the border meanwhile is left out alone.
    onBorder = buttonsPressedOnBorder(onBorder, Left | Right, Left, true);
    EXPECT_EQ(onBorder, Right);
    onBorder = buttonsPressedOnBorder(onBorder, Left, Left | Right, true);
    EXPECT_EQ(onBorder, 0);
}
