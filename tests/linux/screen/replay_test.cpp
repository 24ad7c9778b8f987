// Replays played on a sample program: what they do, how they fail, what a recording of one says.
#include <RunProgram.h>
#include <TemporaryFolder.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {

class Replay : public testing::Test {
protected:
    struct Result {
        int status;
        std::string errors;
    };

    std::string unixPath(const std::string &name) const
    {
        std::string path = folder_.path(name).substr(2);
        std::replace(path.begin(), path.end(), '\\', '/');
        return path;
    }

    // Plays steps on the sketch program, in the test's folder.
    Result play(const std::string &steps, const std::string &environment = "")
    {
        folder_.write("steps", steps);
        std::string program = folderOfProgram().substr(2) + "sketch";
        std::replace(program.begin(), program.end(), '\\', '/');
        std::string command = "cd '" + unixPath("") + "' && env -u WIN32_SCREEN WIN32_DISPLAY=none WIN32_REPLAY=steps "
                              + environment + " '" + program + "' 2> errors";
        int status = system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder_.read("errors")};
    }

    std::string linesOf(const std::string &name, const std::string &part)
    {
        std::string content = folder_.read(name), found;
        for (size_t place = 0; place < content.size();) {
            size_t end = content.find('\n', place);
            std::string line = content.substr(place, end - place);
            if (line.find(part) == 0)
                found += line + "\n";
            place = end == std::string::npos ? content.size() : end + 1;
        }
        return found;
    }

    TemporaryFolder folder_{"replay"};
};

constexpr const char *drawing = "screen 640x480x32\n"
                                "wait window \"Sk*\"\n"
                                "expect pixel 5 5 3a6ea5\n" // the desktop
                                "click 60 130\n"            // green
                                "wheel 5\n"
                                "move 150 150\n"
                                "press\n"
                                "move 250 250\n"
                                "move 350 150\n"
                                "release\n"
                                "expect pixel 250 249 208020\n"
                                "expect pixel 151 151 208020\n"
                                "expect pixel 150 200 ffffff\n";

TEST_F(Replay, DrawsWithTheMouseAndTypes)
{
    Result result = play(std::string(drawing)
                         + "doubleclick 60 100\n"
                           "type \" Abc; \xc3\xa9\"\n"
                           "key Backspace\n"
                           "key Ctrl+Z\n"
                           "expect pixel 250 249 ffffff\n"
                           "quit\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

TEST_F(Replay, AFailedExpectationNamesFileLineAndStep)
{
    Result result = play("wait window \"Sketch\"\nexpect pixel 250 250 000001   # black?\n");
    EXPECT_EQ(result.errors, "steps:2: expect pixel 250 250 000001   # black?: the pixel is ffffff\n");
    EXPECT_EQ(result.status, 121);
    result = play("screen 64x48\nexpect pixel 64 0 000000\n");
    EXPECT_EQ(result.errors, "steps:2: expect pixel 64 0 000000: the pixel is not on the screen\n");
    result = play("screen 640x480\nwait idle\n", "WIN32_SCREEN=800x600x16");
    EXPECT_EQ(result.errors, "steps:1: screen 640x480: the screen is 800x600x16; WIN32_SCREEN chooses another\n");
}

TEST_F(Replay, WaitsHaveALimit)
{
    Result result = play("limit 1\nwait window \"Other\"\n");
    EXPECT_EQ(result.errors, "steps:2: wait window \"Other\": no such window after 1 second; there is \"Sketch\"\n");
    EXPECT_EQ(result.status, 121);
}

TEST_F(Replay, WhatCannotBeReadIsToldBeforeTheProgramBegins)
{
    Result result = play("move 1 2\npress hard\n");
    EXPECT_EQ(result.errors, "steps:2: press hard: \"hard\" is no button; expected: press [left | right | middle]\n");
    EXPECT_EQ(result.status, 120);
    result = play("", "WIN32_REPLAY=missing");
    EXPECT_EQ(result.errors, "WIN32_REPLAY: cannot read missing: No such file or directory\n");
    EXPECT_EQ(result.status, 120);
}

TEST_F(Replay, AProgramThatEndsEarlyIsTold)
{
    Result result = play("wait window \"Sketch\"\nclose\nwait 5000\nmove 1 2\n");
    EXPECT_EQ(result.errors, "steps:3: wait 5000: the program ended before this was done\n");
    EXPECT_EQ(result.status, 122);
    result = play("wait window \"Sketch\"\nkey Alt+F4\n"); // the last step may end it
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

// In the processor's time of all that has run so far.
double processorSeconds()
{
    rusage usage;
    getrusage(RUSAGE_CHILDREN, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
           + static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

TEST_F(Replay, AProgramThatWaitsCostsNothing)
{
    double before = processorSeconds();
    play("wait window \"Sketch\"\nwait idle\nquit\n");
    double between = processorSeconds();
    play("wait window \"Sketch\"\nwait idle\nwait 3000\nquit\n");
    double idle = (processorSeconds() - between) - (between - before);
    EXPECT_LT(idle, 0.03) << "of 3 seconds, where 1 in 100 is allowed";
}

TEST_F(Replay, ScreenshotsShowTheCursorUnlessToldOtherwise)
{
    Result result = play(std::string(drawing)
                         + "screenshot with.png\n"
                           "screenshot without.png nocursor\n"
                           "move 5 5\n"
                           "screenshot elsewhere.png nocursor\n"
                           "quit\n");
    EXPECT_EQ(result.errors, "");
    std::string without = folder_.read("without.png");
    EXPECT_EQ(without.substr(1, 3), "PNG");
    EXPECT_NE(folder_.read("with.png"), without);
    EXPECT_EQ(folder_.read("elsewhere.png"), without);
    result = play("screenshot missing/a.png\n");
    EXPECT_EQ(result.status, 121);
    EXPECT_NE(result.errors.find("a.png: No such file or directory\n"), std::string::npos) << result.errors;
}

TEST_F(Replay, ARecordingPlaysTheSameAgain)
{
    std::string end = "key CapsLock\ntype \"aB\xc3\xa9\xc3\xa8\"\nkey Ctrl+C\nkey Escape\nkey Ctrl+V\nscreenshot NAME "
                      "nocursor\nclose\n";
    std::string steps = drawing + end;
    steps.replace(steps.find("NAME"), 4, "first.png");
    Result result = play(steps, "WIN32_RECORD=recorded");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(linesOf("recorded", "screen"), "screen \"640x480x32\"\n");
    EXPECT_EQ(linesOf("recorded", "wait w"), "wait window \"Sketch\"\n");
    EXPECT_EQ(linesOf("recorded", "move"), "move 60 130\nmove 150 150\nmove 250 250\nmove 350 150\n");
    EXPECT_EQ(linesOf("recorded", "key B"), "key B\n"); // with the lock, a is the one that needs Shift
    EXPECT_EQ(linesOf("recorded", "type"), "type \"\xc3\xa9\xc3\xa8\"\n");
    EXPECT_EQ(linesOf("recorded", "close"), "close\n");

    std::string again = folder_.read("recorded");
    again.insert(again.find("close"), "screenshot second.png nocursor\n");
    result = play(again);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(folder_.read("second.png"), folder_.read("first.png"));
}

} // namespace
