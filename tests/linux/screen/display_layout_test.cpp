// Where the screen lies in the display's window, and what of it has to be shown anew.
#include <screen/damage.h>
#include <screen/display.h>
#include <screen/display_layout.h>

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace win32;
using namespace win32::screen;

// The display that the damage wakes is not here.
void win32::screen::wakeDisplay()
{
}

namespace {

struct Case {
    int windowWidth, windowHeight, factor;
    gdi::Box shown;
};

TEST(DisplayLayout, EnlargesByWholeFactorsAndKeepsTheShape)
{
    const Case cases[] = {{320, 200, 1, {0, 0, 320, 200}},    {959, 700, 2, {159, 150, 799, 550}},
                          {960, 600, 3, {0, 0, 960, 600}},    {160, 200, 0, {0, 50, 160, 150}},
                          {1000, 100, 0, {420, 0, 580, 100}}, {321, 201, 1, {0, 0, 320, 200}}};
    for (const Case &each : cases) {
        DisplayLayout layout = DisplayLayout::of(320, 200, each.windowWidth, each.windowHeight);
        EXPECT_EQ(layout.factor, each.factor);
        EXPECT_EQ(gdi::rectOf(layout.shown).left, each.shown.x1);
        EXPECT_EQ(gdi::rectOf(layout.shown).top, each.shown.y1);
        EXPECT_EQ(gdi::rectOf(layout.shown).right, each.shown.x2);
        EXPECT_EQ(gdi::rectOf(layout.shown).bottom, each.shown.y2);
    }
}

TEST(DisplayLayout, EveryPixelIsFoundAgainUnderItsPlaceInTheWindow)
{
    for (auto [width, height] : {std::pair{64, 48}, {200, 100}, {333, 251}}) {
        DisplayLayout layout = DisplayLayout::of(64, 48, width, height);
        for (int y = 0; y < 48; ++y) {
            for (int x = 0; x < 64; ++x) {
                POINT place = layout.toWindow(POINT{x, y});
                POINT back = layout.toScreen(place.x, place.y);
                ASSERT_EQ(back.x, x);
                ASSERT_EQ(back.y, y);
            }
        }
    }
    DisplayLayout layout = DisplayLayout::of(64, 48, 200, 100);
    EXPECT_EQ(layout.toScreen(-500, -500).x, 0);
    EXPECT_EQ(layout.toScreen(5000, 5000).y, 47);
}

TEST(DisplayLayout, NewWindowsFollowTheDensityAsFarAsThereIsRoom)
{
    EXPECT_EQ(firstFactor(1024, 768, 1920, 1080, 96), 1);
    EXPECT_EQ(firstFactor(1024, 768, 3840, 2160, 185), 2);
    EXPECT_EQ(firstFactor(1024, 768, 1920, 1080, 185), 1);
    EXPECT_EQ(firstFactor(1024, 768, 800, 600, 40), 1);
}

TEST(DamagedBoxes, CoverAllThatWasDrawnWithFewBoxes)
{
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<gdi::Box> drawn;
        DamagedBoxes damaged;
        for (int i = 0; i < 40; ++i) {
            int x = static_cast<int>(random() % 1000), y = static_cast<int>(random() % 700);
            gdi::Box box{x, y, x + static_cast<int>(random() % 60), y + static_cast<int>(random() % 60)};
            drawn.push_back(box);
            damaged.add(box);
        }
        for (const gdi::Box &box : drawn) {
            bool isCovered = gdi::isEmpty(box);
            for (const gdi::Box &each : damaged)
                isCovered |= box.x1 >= each.x1 && box.y1 >= each.y1 && box.x2 <= each.x2 && box.y2 <= each.y2;
            ASSERT_TRUE(isCovered) << "round " << round;
        }
        EXPECT_LE(damaged.end() - damaged.begin(), 8);
    }
    DamagedBoxes corners;
    corners.add({0, 0, 10, 10});
    corners.add({900, 700, 910, 710});
    EXPECT_EQ(corners.end() - corners.begin(), 2); // not one box over the whole screen
}

} // namespace
