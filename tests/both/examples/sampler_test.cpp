// The sampler is played its tour, and trouble.
#include <Replays.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

// As the build knows it, with slashes.
std::string sampleFolder()
{
    std::string folder = SAMPLER_FOLDER;
    for (char &each : folder)
        each = each == '/' ? '\\' : each;
    return (folder[0] == '\\' ? "Z:" : "") + folder + "\\";
}

class Sampler : public testing::Test {
protected:
    Sampler()
    {
        for (const char *name : {"welcome.txt", "gallery.ini", "rose.bmp", "harbour.bmp", "hills.bmp"})
            replays_.folder.write(name, sample(name));
    }

    static std::string sample(const std::string &name)
    {
        return TemporaryFolder::readFile(sampleFolder() + "samples\\" + name);
    }
    void writeHalf(const std::string &whole, const std::string &name) const
    {
        std::string content = sample(whole);
        replays_.folder.write(name, content.substr(0, content.size() / 2));
    }
    static std::string replay(const std::string &name) { return TemporaryFolder::readFile(sampleFolder() + name); }

    Replays::Result play(const std::string &steps, const std::string &arguments) const
    {
        return replays_.play("sampler", "screen 1024x768x32\nwait window \"Sampler\"\nwait idle\n" + steps, "",
                             arguments);
    }
    bool isWritten(const std::string &name) const { return replays_.folder.read(name).size() > 1000; }

    Replays replays_;
};

void expectPlayed(const Replays::Result &result)
{
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

TEST_F(Sampler, TheTourShowsWhatItShould)
{
    Replays::Result result = replays_.play("sampler", replay("tour.replay"), "",
                                           "--report welcome.txt gallery.ini rose.bmp harbour.bmp hills.bmp");
    expectPlayed(result);
    unsigned mouse = 0, keys = 0, updates = 0, activations = 0;
    ASSERT_EQ(sscanf(result.output.c_str(), "handled: mouse %u, keys %u, updates %u, activations %u", &mouse, &keys,
                     &updates, &activations),
              4)
        << result.output;
    EXPECT_EQ(mouse, 25u);
    EXPECT_EQ(keys, 21u); // six of the wheel
    EXPECT_EQ(activations, 15u);
    EXPECT_GE(updates, 20u);
    EXPECT_LE(updates, 80u); // no window is drawn again and again
    for (const char *picture : {"1-documents.png", "4-painting.png", "9-about.png"})
        EXPECT_TRUE(isWritten(picture)) << picture;
}

TEST_F(Sampler, SurvivesTrouble)
{
    writeHalf("gallery.ini", "cut.ini");
    writeHalf("rose.bmp", "cut.bmp");
    replays_.folder.write("cut.dll", "MZ, and nothing that a module has");
    replays_.folder.write("empty.txt", "");
    expectPlayed(replays_.play("sampler", replay("trouble.replay"), "", "rose.bmp cut.ini empty.txt hills.bmp"));
    for (const char *damaged : {"cut.bmp", "cut.dll", "missing.bmp", "missing.ini"})
        expectPlayed(
            play("wait window \"Notice\"\nkey Escape\nwait gone \"Notice\"\nexpect front \"rose.bmp\"\nkey Ctrl+Q\n",
                 std::string("rose.bmp ") + damaged));
}

// Pages of documents behind the front one are given up and drawn again, and where nothing can be had, that is said.
TEST_F(Sampler, WorksWithLittleMemory)
{
    std::string documents = "rose.bmp harbour.bmp hills.bmp welcome.txt";
    expectPlayed(play("expect count 1 \"Notice\"\nkey Escape\nkey Ctrl+N\nwait window \"Notice\"\nkey Escape\n"
                      "expect count 2 \"*\"\nkey Ctrl+Q\n",
                      "--memory=1 " + documents));
    expectPlayed(play("key Ctrl+P\nkey Ctrl+W\nwait gone \"welcome.txt\"\nexpect front \"hills.bmp\"\n"
                      "expect pixel 464 186 fff4c8\n" // its sun
                      "key Ctrl+Q\n",
                      documents));
}

TEST_F(Sampler, SavesAPaintingBesideWhatIsThere)
{
    expectPlayed(play("key Ctrl+N\nwait window \"Untitled 1\"\nkey Ctrl+A\nkey Ctrl+I\nkey Ctrl+S\n"
                      "wait window \"Untitled 1.bmp\"\nkey Ctrl+Q\n",
                      ""));
    std::string first = replays_.folder.read("Untitled 1.bmp");
    EXPECT_GT(first.size(), 100000u);
    expectPlayed(
        play("expect front \"Untitled 1.bmp\"\nexpect pixel 300 200 000000\nkey Ctrl+N\nwait window \"Untitled 1\"\n"
             "key Ctrl+S\nwait window \"Untitled 1 (2).bmp\"\nkey Ctrl+Q\n",
             "\"Untitled 1.bmp\""));
    EXPECT_EQ(replays_.folder.read("Untitled 1.bmp"), first);
    EXPECT_NE(replays_.folder.read("Untitled 1 (2).bmp"), first);
}

TEST_F(Sampler, ADocumentMayVanish)
{
    std::thread other([&] {
        for (int i = 0; i < 5000 && replays_.folder.read("purged.png") == "(missing)"; ++i)
            Sleep(2);
        DeleteFileA(replays_.folder.path("hills.bmp").c_str());
        replays_.folder.write("deleted", "");
    });
    expectPlayed(play("key Ctrl+P\nscreenshot purged.png\nwait 300\nkey Ctrl+W\nwait gone \"rose.bmp\"\n"
                      "expect front \"hills.bmp\"\nwait idle\n"
                      "expect pixel 400 250 ffffff\n" // nothing of it is left to be shown
                      "key Ctrl+W\nkey Ctrl+Q\n",
                      "hills.bmp rose.bmp"));
    other.join();
}

} // namespace
