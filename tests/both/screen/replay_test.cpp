// Replays played on programs: what they do and see, how they fail.
#include <Replays.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace {

class Replay : public testing::Test {
protected:
    Replays::Result sketch(const std::string &steps, const std::string &environment = "") const
    {
        return replays_.play("sketch", steps, environment);
    }

    // With four documents open.
    Replays::Result documents(const std::string &steps) const
    {
        return replays_.play("documents", "screen 640x480x32\n"
                                          "wait window \"Documents\"\n"
                                          "repeat 3\n"
                                          "key N\n"
                                          "end\n"
                                          "wait idle\n"
                                              + steps);
    }

    Replays replays_;
};

void expectPlayed(const Replays::Result &result)
{
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

void expectFailed(const Replays::Result &result, const std::string &errors, int status = 121)
{
    EXPECT_EQ(result.errors, errors);
    EXPECT_EQ(result.status, status);
}

TEST_F(Replay, DrawsWithTheMouseAndTypes)
{
    expectPlayed(sketch(std::string(Replays::sketchedLine)
                        + "doubleclick 60 100\n"
                          "type \" Abc; \xc3\xa9\"\n"
                          "key Backspace\n"
                          "key Ctrl+Z\n"
                          "expect pixel 250 249 ffffff\n"
                          "quit\n"));
}

TEST_F(Replay, AFailedExpectationNamesFileLineAndStep)
{
    expectFailed(sketch("wait window \"Sketch\"\nexpect pixel 250 250 000001   # black?\n"),
                 "steps:2: expect pixel 250 250 000001   # black?: the pixel is ffffff\n");
    expectFailed(sketch("screen 64x48\nexpect pixel 64 0 000000\n"),
                 "steps:2: expect pixel 64 0 000000: the pixel is not on the screen\n");
}

TEST_F(Replay, WaitsHaveALimit)
{
    expectFailed(sketch("limit 1\nwait window \"Other\"\n"),
                 "steps:2: wait window \"Other\": no such window after 1 second; there is \"Sketch\"\n");
}

TEST_F(Replay, WhatCannotBeReadIsToldBeforeTheProgramBegins)
{
    expectFailed(sketch("move 1 2\npress hard\n"),
                 "steps:2: press hard: \"hard\" is no button; expected: press [left | right | middle]\n", 120);
    expectFailed(sketch("", "WIN32_REPLAY=missing "), "WIN32_REPLAY: cannot read missing: No such file or directory\n",
                 120);
}

TEST_F(Replay, AProgramThatEndsEarlyIsTold)
{
    expectFailed(sketch("wait window \"Sketch\"\nclose\nwait 5000\nmove 1 2\n"),
                 "steps:3: wait 5000: the program ended before this was done\n", 122);
    expectPlayed(sketch("wait window \"Sketch\"\nkey Alt+F4\n")); // the last step may end it
    expectPlayed(sketch("wait window \"Sketch\"\nrepeat 2\nwait idle\nend\nrepeat 1\nkey Alt+F4\nend\n"));
}

TEST_F(Replay, WindowsInsideOthersAreSeen)
{
    expectPlayed(documents("wait window \"Document 4\"\n"
                           "expect front \"Document 4\"\n"
                           "expect count 4 \"Document *\"\n"
                           "click 90 70\n" // the caption of the second
                           "expect front \"*2\"\n"
                           "key W\n"
                           "wait gone \"Document 2\"\n"
                           "expect count 0 \"Document 2\"\n"
                           "repeat 3\nkey W\nend\n"
                           "expect count 1 \"*\"\n"
                           "expect front \"Documents\"\n"
                           "quit\n"));
    expectFailed(documents("expect front \"*3\"\n"), "steps:7: expect front \"*3\": in front is \"Document 4\"\n");
    expectFailed(documents("expect count 3 \"Document *\"\n"),
                 "steps:7: expect count 3 \"Document *\": the count is 4; there is \"Documents\", \"Document 4\", "
                 "\"Document 3\", \"Document 2\", \"Document 1\"\n");
}

TEST_F(Replay, AFailureNamesTheRoundOfItsRepeats)
{
    expectFailed(documents("repeat 2\nrepeat 3\nkey W\nexpect count 1 \"Document *\"\nend\nend\n"),
                 "steps:10: expect count 1 \"Document *\": the count is 3; there is \"Documents\", \"Document 3\", "
                 "\"Document 2\", \"Document 1\" (round 1 of 3, of round 1 of 2)\n");
}

std::string moves(int count)
{
    std::string steps;
    for (int i = 0; i < count; ++i)
        steps += "move " + std::to_string(140 + i * 3 % 150) + " " + std::to_string(150 + i / 7 % 60) + "\n";
    return steps;
}

// The program sees the places, and no step waits until the program would be taken for deaf.
TEST_F(Replay, ADragIsFollowedWhetherOrNotTheProgramReadsMessages)
{
    auto start = std::chrono::steady_clock::now();
    expectPlayed(documents("move 140 150\npress\n" + moves(100) + "release\nwait window \"Seen about 100\"\nquit\n"));
    expectPlayed(documents("move 139 150\npress right\n" + moves(100)
                           + "release right\nwait window \"Seen about 100\"\nquit\n"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(9));
}

TEST_F(Replay, ScreenshotsShowTheCursorUnlessToldOtherwise)
{
    expectPlayed(sketch(std::string(Replays::sketchedLine)
                        + "screenshot with.png\n"
                          "screenshot without.png nocursor\n"
                          "move 5 5\n"
                          "screenshot elsewhere.png nocursor\n"
                          "quit\n"));
    std::string without = replays_.folder.read("without.png");
    EXPECT_EQ(without.substr(0, 24), std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x2\x80\0\0\x1\xe0", 24));
    EXPECT_NE(replays_.folder.read("with.png"), without);
    EXPECT_EQ(replays_.folder.read("elsewhere.png"), without);
    Replays::Result result = sketch("screenshot missing/a.png\n");
    EXPECT_EQ(result.status, 121);
    EXPECT_NE(result.errors.find("a.png: No such file or directory\n"), std::string::npos) << result.errors;
}

} // namespace
