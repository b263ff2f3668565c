// Buttons and sliders as a player's pointer meets them, and the layout table
// that places every control.
#include "audio/audio.h"
#include "frontend/layout.h"
#include "render/textures.h"
#include "sim/rockets.h"
#include "support/scripted_input.h"

#include <gtest/gtest.h>

struct WidgetTest : ::testing::Test {
    void SetUp() override
    {
        readMouseButtons = scriptedMouse;
        scriptedButtons = 0;
        InterfaceSoundRequest = 0;
    }
};

TEST_F(WidgetTest, AClickIsAPressThenAReleaseOverTheButtonWithOneSound)
{
    Button b = makeButton(100, 100, 64, 32, 1);
    // Press over it, release over it: one click on the release, one sound on the press.
    scriptedButtons = 1;
    updateButton(b, 100, 100);
    EXPECT_FALSE(wasClicked(b));
    EXPECT_EQ(InterfaceSoundRequest, 11);
    EXPECT_EQ(visualState(b), 2);
    InterfaceSoundRequest = 0;
    updateButton(b, 100, 100);  // still held: no second sound
    EXPECT_EQ(InterfaceSoundRequest, 0);
    scriptedButtons = 0;
    updateButton(b, 100, 100);
    EXPECT_TRUE(wasClicked(b));
    EXPECT_EQ(visualState(b), 1);
    updateButton(b, 100, 100);
    EXPECT_FALSE(wasClicked(b));

    // Press outside, move in held, release over: a click, with the sound on entry.
    scriptedButtons = 1;
    updateButton(b, 10, 10);
    EXPECT_EQ(InterfaceSoundRequest, 0);
    updateButton(b, 100, 100);
    EXPECT_EQ(InterfaceSoundRequest, 11);
    scriptedButtons = 0;
    updateButton(b, 100, 100);
    EXPECT_TRUE(wasClicked(b));

    // Press over, drag out, release outside: nothing.
    scriptedButtons = 1;
    updateButton(b, 100, 100);
    updateButton(b, 300, 300);
    scriptedButtons = 0;
    updateButton(b, 300, 300);
    EXPECT_FALSE(wasClicked(b));
}

TEST_F(WidgetTest, SlidersFollowTheHeldPointerAndNeverGoToZero)
{
    Slider s = makeSlider(248, 200, "Scroll Speed", 16, 16);
    EXPECT_EQ(s.value, 3);
    scriptedButtons = 1;
    updateSlider(s, 230, 200);  // left of the first cell
    EXPECT_EQ(s.value, 3);
    for (int k = 1; k <= 10; k++) {
        updateSlider(s, 248 + (k - 1) * 16, 200);
        EXPECT_EQ(s.value, k);
    }
    scriptedButtons = 0;
    updateSlider(s, 248, 200);  // not held: no change
    EXPECT_EQ(s.value, 10);
}
