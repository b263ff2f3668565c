// The selection screen: campaign or custom games, a planet, a mission, and
// the start. It keeps its state between visits, so the player comes back to
// the planet and mission they left.

#include "app/log.h"
#include "app/screens.h"
#include "audio/audio.h"
#include "frontend/frontend.h"
#include "frontend/layout.h"
#include "frontend/menuparts.h"
#include "frontend/screens.h"
#include "game/camera.h"
#include "game/gamescreen.h"
#include "game/mission.h"
#include "game/proof.h"
#include "game/status.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/text.h"
#include "world/catalogue.h"
#include "world/passwords.h"

#include <allegro.h>
#include <alleggl.h>

#include <cstring>
#include <set>
#include <string>

int32_t missionMessage = 1;
MissionListView missionList = {124, 354, 1, 1, 1, 1, 0, ""};
// The custom levels whose proof names their bytes, found as the list is read.
static std::set<std::string> provenCustomLevels;
std::string chosenLevelPath;
int32_t selectedPlanet = 1;

GameSelectState selectScreen = {1, 1, false, false, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1, false};

static const float FADE_STEP = 0.08f;

// Planet 1 top left, 2 top right, 3 bottom left, 4 bottom right.
static const float PLANET_X[4] = {387, 493, 387, 493};
static const float PLANET_Y[4] = {410, 410, 304, 304};

static int32_t clampPlanet(int32_t planet)
{
    return planet < 1 ? 1 : planet > 4 ? 4 : planet;
}

// The globes' object slots do not follow the planets' order.
int planetGlobeSlot(int32_t planet)
{
    static const int slots[4] = {3, 4, 6, 5};
    return slots[clampPlanet(planet) - 1];
}

struct Message {
    int32_t id;
    const char *text;
    float x;  // 0: centred on the screen
};
static const Message MESSAGES[] = {
    {1, "Select A Mission To Play!", 136},
    {2, "New Mission Unlocked!", 166},
    {3, "", 178},
    {MessagePlanetLocked, "Win More Missions To Get There!", 0},
    {MessageLevelUnreadable, "That Level Could Not Be Read!", 0},
    {MessageCustomMode, "", 104},
};

static std::list<CatalogueEntry> &shownList()
{
    int base = campaignMode ? 0 : 4;
    return levelLists[base + clampPlanet(selectedPlanet) - 1];
}

// Custom levels are all open; campaign missions only as far as the player came.
// A title stays inside the list's panel, clear of the arrow that marks the
// chosen entry; the file keeps its whole title.
static const int LIST_TITLE_GLYPHS = 15;

static bool entryOpen(const CatalogueEntry &e)
{
    return !campaignMode || e.missionNumber <= missionsUnlocked;
}

bool missionCanStart()
{
    if (missionList.currentPath.empty() || shownList().empty())
        return false;
    if (campaignMode)
        return selectedPlanet <= planetProgress;
    return true;
}

// ---------------------------------------------------------------------------
// Logic

static void tickHint()
{
    GameSelectState &s = selectScreen;
    if (s.arrowHint) {
        s.hintCounter += (float)s.hintStep;
        if (s.hintCounter <= -10) {
            s.hintStep = 1;
            s.hintTint = 1.0f;
        } else if (s.hintCounter >= 10) {
            s.hintStep = -1;
            s.hintTint = 0.0f;
        }
        if (s.hintPanel) {
            s.hintDelay -= 1;
            if (s.hintDelay < 0 && s.hintAlpha < 1)
                s.hintAlpha = s.hintAlpha + 0.05f > 1 ? 1 : s.hintAlpha + 0.05f;
        }
    } else if (s.hintPanel) {
        s.hintAlpha -= 0.05f;
        if (s.hintAlpha <= 0) {
            s.hintAlpha = 0;
            s.hintPanel = 0;
        }
    }
}

static float clamp01(float v)
{
    return v < 0 ? 0 : v > 1 ? 1 : v;
}

static void tickMessageFade()
{
    GameSelectState &s = selectScreen;
    if (s.messageChangePending) {
        s.messageAlpha -= FADE_STEP;
        if (s.messageAlpha <= 0) {
            missionList.currentIndex = 0;
            selectedPlanet = clampPlanet((int32_t)s.targetPlanet);
            missionMessage = (int32_t)s.targetMessage;
            s.messageChangePending = false;
        }
    } else {
        s.messageAlpha += FADE_STEP;
    }
    s.messageAlpha = clamp01(s.messageAlpha);
}

static void tickModeFade()
{
    GameSelectState &s = selectScreen;
    if (s.modeChangePending) {
        s.modeAlpha -= FADE_STEP;
        if (s.modeAlpha <= 0) {
            missionList.currentIndex = 0;
            if (campaignMode) {
                campaignMode = 0;
                s.rememberedMessage = missionMessage;
                s.targetMessage = MessageCustomMode;
            } else {
                campaignMode = 1;
                s.targetMessage = (float)s.rememberedMessage;
            }
            s.modeChangePending = false;
        }
    } else {
        s.modeAlpha += FADE_STEP;
    }
    s.modeAlpha = clamp01(s.modeAlpha);
}

// The campaign's news, taken when the screen next runs, before anything reads
// the message: the campaign only says a mission opened, the words and the
// arrow's explanation belong to this screen.
static void takeCampaignNews()
{
    if (!missionJustUnlocked)
        return;
    missionJustUnlocked = false;
    missionMessage = 2;
    if (missionsUnlocked == 2) {
        GameSelectState &s = selectScreen;
        s.arrowHint = 1;
        s.hintPanel = 1;
        s.hintAlpha = 0;
        s.hintDelay = 25;
    }
}

void gameSelectTick()
{
    takeCampaignNews();
    tickHint();
    // This logic also runs under the veil, where it hears no keys: leaving
    // then would strand the veil over the menu and lose the level being entered.
    if (input.escape) {
        setScreen(MainMenu);
        return;
    }
    tickMessageFade();
    tickModeFade();
    if (passwordAccepted) {
        passwordAccepted = false;
        selectScreen.passwordPulse = 0;
    } else {
        selectScreen.passwordPulse = selectScreen.passwordPulse + 0.04f > 1 ? 1 : selectScreen.passwordPulse + 0.04f;
    }
    tickFallingStars();
    if (!selectScreen.menuSoundPlayed && transition.alpha <= 0.01f) {
        selectScreen.menuSoundPlayed = true;
        SoundRequest = SelectScreenSound;
    }
}

// ---------------------------------------------------------------------------
// The switch actions of the fades into and out of this screen

// "Retry" on the pause panel: the level the selection screen shows is the
// one in play. When it went away or changed during play, the list will say
// why, as after a start that fails.
static bool reloadFromSelection()
{
    if (loadLevelAt(missionList.currentPath))
        return true;
    missionMessage = MessageLevelUnreadable;
    return false;
}

bool (*reloadLevelForRetry)() = reloadFromSelection;

void enterGameSelect()
{
    loadLevelCatalogue();
    provenCustomLevels.clear();
    for (int list = LEVEL_LIST_COUNT / 2; list < LEVEL_LIST_COUNT; list++)
        for (const CatalogueEntry &e : levelLists[list])
            if (levelProvenOnDisk(e.path))
                provenCustomLevels.insert(e.path);
    blackoutWait(25);
}

void enterChosenLevel(bool fromGameSelect)
{
    if (fromGameSelect)
        resetMission();
    if (!loadLevelAt(chosenLevelPath)) {
        // The file went away or changed since the catalogue read it: back to
        // the list, which is read afresh and tells the player why.
        transition.to = GameSelect;
        missionMessage = MessageLevelUnreadable;
        requestMusic(MenuMusic);
        enterGameSelect();
        return;
    }
    // Only now: asking for the menu's track again while the level's is
    // pending would not bring it back (the music only hears a change).
    requestMusic(2);
    blackoutWait(25);
    armLevelBanner();
}

// ---------------------------------------------------------------------------
// Mouse actions

static void startMission()
{
    missionMessage = 0;
    chosenLevelPath = missionList.currentPath;
    resetMission();
    // Placeholders until the load counts the real ones: the game's first tick
    // runs before the switch and must not find every rocket gone.
    mission.podsWithoutHatcher = 1;
    mission.podCount = 2;
    mission.rocketCount = 1;
    startTransition(GameSelect, Playing, StarfieldGame);
    setStatus(StatusEmpty);
    logLine("Entering Level...");
    camX = START_CAM_X;
    camY = START_CAM_Y;
}

static void clickPlanet(int k)
{
    GameSelectState &s = selectScreen;
    SoundRequest = PlanetSound;
    s.targetPlanet = (float)k;
    s.targetMessage = (float)(k <= planetProgress ? 1 : MessagePlanetLocked);
    s.messageChangePending = true;
    if (k >= 2)
        newPlanetFlag[k - 1] = 0;
}

static void handleMouse()
{
    const float px = input.pointerX, py = input.pointerY;
    for (int k = 0; k < PLANET_COUNT; k++) {
        updateButton(planetButtons[k], px, py);
        if (wasClicked(planetButtons[k]))
            clickPlanet(k + 1);
    }
    updateButton(previousMissionButton, px, py);
    updateButton(nextMissionButton, px, py);
    if (wasClicked(nextMissionButton)) {
        missionList.currentIndex++;
        selectScreen.arrowHint = 0;
    }
    if (wasClicked(previousMissionButton)) {
        missionList.currentIndex--;
        selectScreen.arrowHint = 0;
    }
    updateButton(gameModeButton, px, py);
    if (wasClicked(gameModeButton))
        selectScreen.modeChangePending = true;
    if (campaignMode) {
        updateButton(enterPasswordButton, px, py);
        if (wasClicked(enterPasswordButton)) {
            clearTypedKeys();
            setScreen(PasswordEntry);
        }
    }
    if (missionCanStart()) {
        updateButton(startMissionButton, px, py);
        if (wasClicked(startMissionButton)) {
            startMission();
            return;
        }
    }
    updateButton(selectReturnButton, px, py);
    if (wasClicked(selectReturnButton))
        startTransition(GameSelect, MainMenu, StarfieldKeep);
}

// ---------------------------------------------------------------------------
// Drawing

static void drawSquares()
{
    drawRect(90, 260, 290, 460, 0, 0, 0, 1);
    drawRect(340, 40, 540, 240, 0, 0, 0, 1);
    for (int k = 1; k < 4; k++)
        if (newPlanetFlag[k])
            drawRect(PLANET_X[k] - 40, PLANET_Y[k] - 40, PLANET_X[k] + 40, PLANET_Y[k] + 40, 0.8f, 1, 0,
                     pulseA - 0.2f);
    int p = clampPlanet(selectedPlanet) - 1;
    drawRect(PLANET_X[p] - 40, PLANET_Y[p] - 40, PLANET_X[p] + 40, PLANET_Y[p] + 40, p == 0 ? 0.4f : 0.2f, 1, 0,
             selectScreen.messageAlpha * 0.25f);
}

static void drawMissionList()
{
    std::list<CatalogueEntry> &list = shownList();
    missionList.a = selectScreen.messageAlpha;
    const int count = (int)list.size();
    // A campaign mission that is not open yet cannot be the current one.
    if (count > 0 && missionList.currentIndex >= 0 && missionList.currentIndex < count) {
        auto it = list.begin();
        std::advance(it, missionList.currentIndex);
        if (!entryOpen(*it))
            missionList.currentIndex--;
    }
    if (missionList.currentIndex > count - 1)
        missionList.currentIndex = count - 1;
    if (missionList.currentIndex < 0)
        missionList.currentIndex = 0;
    if (count == 0)
        missionList.currentPath.clear();

    int i = 0;
    for (const CatalogueEntry &e : list) {
        if (i == missionList.currentIndex)
            missionList.currentPath = e.path;
        float y = missionList.y + 16.0f * (missionList.currentIndex - i);
        if (entryOpen(e) && y > 254 && y < 454) {
            // A custom level whose winning run lies beside it, naming its very
            // bytes, is known to be winnable: green, and marked where there is room.
            const bool proven = !campaignMode && provenCustomLevels.count(e.path) > 0;
            if (proven)
                glColor4f(0.5f, 1.0f, 0.5f, missionList.a);
            else
                glColor4f(missionList.r, missionList.g, missionList.b, missionList.a);
            const std::string title = fitText(e.title, LIST_TITLE_GLYPHS);
            drawText(MediumFont, missionList.x, y, "%s", title.c_str());
            const float tagX = missionList.x + 10.0f * (float)title.size() + 6;
            if (proven && tagX + 36 < 290)
                drawText(SmallFont, tagX, y + 2, "Proven");
        }
        i++;
    }
    if (count == 0 && !campaignMode) {
        glColor4f(0.8f, 0.8f, 1, missionList.a);
        drawSmallCentred(190, 430, "No custom levels for this");
        drawSmallCentred(190, 420, "planet: build one in the");
        drawSmallCentred(190, 410, "Editor, or copy level");
        drawSmallCentred(190, 400, "files into custom/");
    }
}

static void drawWidgets()
{
    const GameSelectState &s = selectScreen;
    drawTexture(440, 360, SpriteTextures[6], 1, 1, 1, 1);
    drawTexture(315, 16, SpriteTextures[32], 1, 1, 1, 1);
    drawTexture(190, 360, SpriteTextures[11], 1, 1, 1, 1);
    drawTexture(190, 140, SpriteTextures[12], 1, 1, 1, 1);
    if (campaignMode)
        drawTexture(190, 195, SpriteTextures[18], s.passwordPulse, s.passwordPulse, 1, s.modeAlpha);
    drawTexture(440, 140, SpriteTextures[42], 1, 1, 1, 1);
    drawTexture(440, 140, SpriteTextures[6 + clampPlanet(selectedPlanet)], 1, 1, 1, s.messageAlpha);

    for (int k = 0; k < PLANET_COUNT; k++) {
        planetButtons[k].x = PLANET_X[k];
        planetButtons[k].y = PLANET_Y[k];
        drawObject(PLANET_X[k], PLANET_Y[k], planetGlobeSlot(k + 1), 1, 1, 1, 1);
    }

    drawButton(previousMissionButton);
    drawTexture(previousMissionButton.x, previousMissionButton.y, SpriteTextures[13], 1, 1, 1, 1);
    if (s.arrowHint)
        drawButtonTinted(nextMissionButton, s.hintTint, s.hintTint, 1, 1);
    else
        drawButton(nextMissionButton);
    drawTexture(nextMissionButton.x, nextMissionButton.y, SpriteTextures[14], 1, 1, 1, 1);

    if (campaignMode) {
        drawButtonFaded(enterPasswordButton, s.modeAlpha);
        drawCentredLabel(enterPasswordButton, "Enter Password", s.modeAlpha);
    }
    drawButtonFaded(gameModeButton, s.modeAlpha);
    if (campaignMode)
        drawOffsetLabel(gameModeButton, -57, "Custom Game", s.modeAlpha);
    else
        drawOffsetLabel(gameModeButton, -68, "Campaign Game", s.modeAlpha);
    if (missionCanStart())
        drawButtonFaded(startMissionButton, s.messageAlpha);
    drawLabelledButton(selectReturnButton, "Return To Menu");
}

static void drawMessageLine()
{
    for (const Message &m : MESSAGES) {
        if (m.id != missionMessage || !m.text[0])
            continue;
        float x = m.x != 0 ? m.x : 320 - (14.0f * (float)strlen(m.text)) / 2;
        glColor4f(pulseB, 0, 1, selectScreen.messageAlpha);
        drawText(LargeFont, x, 4, "%s", m.text);
    }
}

static void drawModeTexts()
{
    const GameSelectState &s = selectScreen;
    if (campaignMode) {
        glColor4f(s.passwordPulse, s.passwordPulse, 1, s.modeAlpha);
        drawMediumCentred(191, 189, savedPassword.c_str());
        drawMessageLine();
    } else {
        glColor4f(1, 1, 1, s.modeAlpha);
        drawSmallCentred(190, 210, "Playing");
        drawSmallCentred(190, 200, "Your Levels");
        // Green titles are proven; the chosen one says so in words.
        if (provenCustomLevels.count(missionList.currentPath) > 0) {
            glColor4f(0.5f, 1.0f, 0.5f, s.modeAlpha);
            drawSmallCentred(190, 184, "Proven: its winning run replays");
        }
        // The one message custom games need: why the level did not start.
        if (missionMessage == MessageLevelUnreadable)
            drawMessageLine();
    }
}

static void drawHintPanel()
{
    const GameSelectState &s = selectScreen;
    if (!s.hintPanel)
        return;
    drawRect(261, 270, 496, 335, 0.1f, 0.1f, 0.7f, s.hintAlpha - 0.4f);
    glColor4f(0.8f, 0.8f, 1, s.hintAlpha);
    static const char *const lines[] = {"Everytime you beat a campaign mission", "a new level will be unlocked.",
                                        "Click the arrow to select the now", "unlocked level!"};
    static const float ys[] = {320, 310, 290, 280};
    for (int i = 0; i < 4; i++)
        drawText(SmallFont, 266, ys[i], "%s", lines[i]);
    drawTexture(230, 300, SpriteTextures[38], 1, 1, 1, s.hintAlpha);
}

void gameSelectFrame()
{
    drawMenuBackdrop();
    drawSquares();
    drawMissionList();
    handleMouse();
    drawWidgets();
    drawModeTexts();
    drawHintPanel();
    drawPointer();
}
