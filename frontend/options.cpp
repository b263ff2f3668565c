// Options: three sliders that act at once, and the video mode and colour
// depth for the next start. Everything lands in gameconfig.cfg at shut-down.

#include "app/config.h"
#include "app/screens.h"
#include "audio/audio.h"
#include "frontend/frontend.h"
#include "frontend/layout.h"
#include "frontend/menuparts.h"
#include "frontend/screens.h"
#include "game/camera.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/text.h"

#include <allegro.h>
#include <alleggl.h>

OptionsState options = {3, 3, 3, 0, 0};

void syncOptionsWithSettings()
{
    scrollSpeedSlider.value = settings.scrollSpeed;
    soundVolumeSlider.value = settings.soundVolume;
    musicVolumeSlider.value = settings.musicVolume;
    options.lastScroll = settings.scrollSpeed;
    options.lastSound = settings.soundVolume;
    options.lastMusic = settings.musicVolume;
}

void optionsTick()
{
    tickFallingStars();
    if (options.noticeFlash >= 0.2f)
        options.noticeRising = 0;
    if (options.noticeRising)
        options.noticeFlash += 0.02f;
    else if (options.noticeFlash > 0)
        options.noticeFlash -= 0.02f;
}

struct VolumeSlider {
    Slider *slider;
    int32_t OptionsState::*last;
    int GameSettings::*setting;
    void (*apply)(int level);
};
static const VolumeSlider VOLUME_SLIDERS[] = {
    {&soundVolumeSlider, &OptionsState::lastSound, &GameSettings::soundVolume, setSoundLevel},
    {&musicVolumeSlider, &OptionsState::lastMusic, &GameSettings::musicVolume, setMusicLevel},
};

// The sliders are written back into the settings as they move, so the
// configuration written at shut-down holds what the player last chose.
static void handleSliders()
{
    const float px = input.pointerX, py = input.pointerY;
    updateSlider(scrollSpeedSlider, px, py);
    scrollSpeed = (float)(scrollSpeedSlider.value * 40);
    if (scrollSpeedSlider.value != options.lastScroll) {
        options.lastScroll = scrollSpeedSlider.value;
        settings.scrollSpeed = scrollSpeedSlider.value;
        InterfaceSoundRequest = SliderSound;
    }
    for (const VolumeSlider &v : VOLUME_SLIDERS) {
        updateSlider(*v.slider, px, py);
        if (v.slider->value != options.*v.last) {
            settings.*v.setting = v.slider->value;
            v.apply(v.slider->value);
            InterfaceSoundRequest = SliderSound;
            options.*v.last = v.slider->value;
        }
    }
}

// The video buttons only choose what the next start sets up; pressing one,
// even the mode already chosen, brightens the notice that says so.
struct VideoChoice {
    Button *button;
    unsigned char GameSettings::*flag;
    unsigned char value;
};
static const VideoChoice VIDEO_CHOICES[] = {
    {&color32Button, &GameSettings::colorDepth32, 1},
    {&color16Button, &GameSettings::colorDepth32, 0},
    {&windowedModeButton, &GameSettings::fullscreen, 0},
    {&fullscreenModeButton, &GameSettings::fullscreen, 1},
};

static void handleButtons()
{
    const float px = input.pointerX, py = input.pointerY;
    updateButton(optionsReturnButton, px, py);
    if (wasClicked(optionsReturnButton))
        startTransition(Options, MainMenu, StarfieldKeep);
    for (const VideoChoice &c : VIDEO_CHOICES) {
        updateButton(*c.button, px, py);
        if (wasClicked(*c.button)) {
            settings.*c.flag = c.value;
            options.noticeRising = 1;
        }
    }
}

struct LabelledButton {
    Button *button;
    float dx;
    const char *label;
};

void optionsFrame()
{
    drawMenuBackdrop();
    drawTexture(320, 360, SpriteTextures[12], 1, 1, 1, 1);
    drawTexture(320, 140, SpriteTextures[12], 1, 1, 1, 1);
    drawTexture(320, 450, SpriteTextures[18], 1, 1, 1, 1);
    drawTexture(320, 350, SpriteTextures[18], 1, 1, 1, 1);
    drawTexture(164, 360, SpriteTextures[19], 1, 1, 1, 1);
    drawTexture(476, 142, SpriteTextures[20], 1, 1, 1, 1);

    drawSlider(scrollSpeedSlider);
    drawSlider(musicVolumeSlider);
    drawSlider(soundVolumeSlider);

    static const LabelledButton buttons[] = {
        {&optionsReturnButton, -73, "Return To Menu"}, {&color32Button, -62, "32-Bit Color"},
        {&color16Button, -62, "16-Bit Color"},         {&windowedModeButton, -68, "Windowed Mode"},
        {&fullscreenModeButton, -77, "Fullscreen Mode"},
    };
    for (const LabelledButton &b : buttons) {
        drawButton(*b.button);
        drawOffsetLabel(*b.button, b.dx, b.label);
    }

    glColor4f(LABEL_GREY, LABEL_GREY, LABEL_GREY, 1);
    if (settings.fullscreen)
        drawText(MediumFont, 269, 444, "Fullscreen");
    else
        drawText(MediumFont, 279, 444, "Windowed");
    drawText(MediumFont, 279, 344, settings.colorDepth32 ? "32 - Bit" : "16 - Bit");

    float notice = 0.8f + options.noticeFlash;
    glColor4f(notice, notice, notice, 1);
    drawText(SmallFont, 68, 10,
             "Delvemoor Will Need To Be Restarted For New Video Settings To Take Effect");
    drawPointer();

    handleSliders();
    handleButtons();
}
