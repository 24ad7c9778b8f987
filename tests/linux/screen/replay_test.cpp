// Replays on the layer: its screen, what they cost, what a recording of one says.
#include <Replays.h>

#include <gtest/gtest.h>

#include <string>
#include <sys/resource.h>

namespace {

class LayerReplay : public testing::Test {
protected:
    // On the sketch program.
    Replays::Result play(const std::string &steps, const std::string &environment = "") const
    {
        return replays_.play("sketch", steps, environment);
    }

    std::string linesOf(const std::string &name, const std::string &part)
    {
        std::string content = replays_.folder.read(name), found;
        for (size_t place = 0; place < content.size();) {
            size_t end = content.find('\n', place);
            std::string line = content.substr(place, end - place);
            if (line.find(part) == 0)
                found += line + "\n";
            place = end == std::string::npos ? content.size() : end + 1;
        }
        return found;
    }

    Replays replays_;
};

TEST_F(LayerReplay, AnotherModeOfTheScreenIsTold)
{
    Replays::Result result = play("screen 640x480\nwait idle\n", "WIN32_SCREEN=800x600x16 ");
    EXPECT_EQ(result.errors, "steps:1: screen 640x480: the screen is 800x600x16; WIN32_SCREEN chooses another\n");
    EXPECT_EQ(result.status, 121);
}

// In the processor's time of all that has run so far.
double processorSeconds()
{
    rusage usage;
    getrusage(RUSAGE_CHILDREN, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
           + static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

TEST_F(LayerReplay, AProgramThatWaitsCostsNothing)
{
    double before = processorSeconds();
    play("wait window \"Sketch\"\nwait idle\nquit\n");
    double between = processorSeconds();
    play("wait window \"Sketch\"\nwait idle\nwait 3000\nquit\n");
    double idle = (processorSeconds() - between) - (between - before);
    EXPECT_LT(idle, 0.03) << "of 3 seconds, where 1 in 100 is allowed";
}

TEST_F(LayerReplay, ARecordingPlaysTheSameAgain)
{
    std::string end = "key CapsLock\ntype \"aB\xc3\xa9\xc3\xa8\"\nkey Ctrl+C\nkey Escape\nkey Ctrl+V\nscreenshot NAME "
                      "nocursor\nclose\n";
    std::string steps = std::string(Replays::sketchedLine) + "expect pixel 5 5 3a6ea5\n" + end; // the desktop
    steps.replace(steps.find("NAME"), 4, "first.png");
    Replays::Result result = play(steps, "WIN32_RECORD=recorded ");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(linesOf("recorded", "screen"), "screen \"640x480x32\"\n");
    EXPECT_EQ(linesOf("recorded", "wait w"), "wait window \"Sketch\"\n");
    EXPECT_EQ(linesOf("recorded", "move"), "move 60 130\nmove 150 150\nmove 250 250\nmove 350 150\n");
    EXPECT_EQ(linesOf("recorded", "key B"), "key B\n"); // with the lock, a is the one that needs Shift
    EXPECT_EQ(linesOf("recorded", "type"), "type \"\xc3\xa9\xc3\xa8\"\n");
    EXPECT_EQ(linesOf("recorded", "close"), "close\n");

    std::string again = replays_.folder.read("recorded");
    again.insert(again.find("close"), "screenshot second.png nocursor\n");
    result = play(again);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(replays_.folder.read("second.png"), replays_.folder.read("first.png"));
}

} // namespace
