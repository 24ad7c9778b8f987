// Replays as text: what is read, what is refused and with which words, what is written.
#include <screen/replay_script.h>

#include <gtest/gtest.h>

using namespace win32::screen;

namespace {

std::string problemOf(const std::string &text)
{
    Script script = readScript(text);
    return script.problem.empty()
               ? ""
               : std::to_string(script.problemLine) + ": " + script.problemSource + ": " + script.problem;
}

TEST(ReplayScript, AllStepsAreWrittenAsTheyAreRead)
{
    const std::string text = "screen \"640x480x32\"\n"
                             "limit 30\n"
                             "move -10 20\n"
                             "press left\n"
                             "release middle\n"
                             "click 1 2 left\n"
                             "doubleclick 3 4 right\n"
                             "wheel -2\n"
                             "key Ctrl+Shift+F4\n"
                             "keydown NumEnter\n"
                             "keyup A\n"
                             "type \"say \\\"a\\\\b\\\"\\n\\t\xc3\xa9\"\n"
                             "wait idle\n"
                             "wait window \"Sk*tch\"\n"
                             "wait gone \"\"\n"
                             "wait 250\n"
                             "screenshot \"a b.png\"\n"
                             "screenshot \"c.png\" nocursor\n"
                             "expect pixel 3 4 ff00c0\n"
                             "expect front \"*\"\n"
                             "repeat 3\n"
                             "expect count 2 \"a b\"\n"
                             "end\n"
                             "close\n"
                             "quit\n";
    Script script = readScript(text);
    ASSERT_EQ(script.problem, "");
    std::string written;
    for (const Step &step : script.steps)
        written += writeStep(step) + "\n";
    EXPECT_EQ(written, text);
    EXPECT_EQ(script.steps[11].text, "say \"a\\b\"\n\t\xc3\xa9");
    EXPECT_EQ(script.steps[18].color, COLORREF{RGB(0xff, 0, 0xc0)});
}

TEST(ReplayScript, LeavesRoomForPeople)
{
    Script script =
        readScript("\n  # a comment\r\n\tmove  1\t2   # and one behind a step\r\n\r\nclick 3 4\nkey ctrl+return1\n");
    EXPECT_EQ(script.problem, "\"return1\" is no key");
    EXPECT_EQ(script.problemLine, 6);
    ASSERT_EQ(script.steps.size(), 2u);
    EXPECT_EQ(script.steps[0].line, 3);
    EXPECT_EQ(script.steps[0].source, "move  1\t2   # and one behind a step");
    EXPECT_EQ(script.steps[1].button, MouseButton::Left);
    EXPECT_TRUE(readScript("").steps.empty());
}

TEST(ReplayScript, TellsWhatIsWrongWhere)
{
    const std::pair<const char *, const char *> cases[] = {
        {"move 1 2\nmvoe 3 4", "2: mvoe 3 4: \"mvoe\" is no step"},
        {"move 10", "1: move 10: expected: move X Y"},
        {"move 10 2O", "1: move 10 2O: \"2O\" is no number; expected: move X Y"},
        {"move 10 20 30", "1: move 10 20 30: \"30\" is too much; expected: move X Y"},
        {"move 1 99999", "1: move 1 99999: 99999 is not between -32767 and 32767"},
        {"move 1 99999999999999", "1: move 1 99999999999999: 99999999999999 is not between -32767 and 32767"},
        {"press top", "1: press top: \"top\" is no button; expected: press [left | right | middle]"},
        {"key S+Ctrl", "1: key S+Ctrl: \"S\" is no modifier; they are Ctrl, Shift, Alt and the right ones"},
        {"key Ctrl+", "1: key Ctrl+: \"\" is no key"},
        {"type \"abc", "1: type \"abc: the quotation has no end"},
        {"type \"a\\x\"", "1: type \"a\\x\": \"\\x\" is not among \\n, \\t, \\\" and \\\\"},
        {"type \"a\"b", "1: type \"a\"b: a blank is missing behind the quotation"},
        {"type \"\"", "1: type \"\": the text is empty; expected: type \"TEXT\""},
        {"wait", "1: wait: expected: wait MILLISECONDS, wait idle, wait window \"TITLE\" or wait gone \"TITLE\""},
        {"wait -1", "1: wait -1: -1 is not between 0 and 600000"},
        {"expect color 1 2 3", "1: expect color 1 2 3: expected: expect pixel X Y RRGGBB, expect front \"TITLE\" or expect count NUMBER "
         "\"TITLE\""},
        {"expect pixel 1 2 fff",
         "1: expect pixel 1 2 fff: \"fff\" is no colour of six digits; expected: expect pixel X Y RRGGBB"},
        {"quit\nmove 1 2", "2: move 1 2: nothing can follow quit"},
        {"wait idle\nend", "2: end: there is no repeat to end"},
        {"repeat 2\nrepeat 3\nend\nwait idle", "1: repeat 2: the repeat has no end"},
        {"repeat 0\nend", "1: repeat 0: 0 is not between 1 and 100000"},
        {"wait idle\nscreen 1x1", "2: screen 1x1: the screen can be given by the first step only"},
    };
    for (auto [text, problem] : cases)
        EXPECT_EQ(problemOf(text), problem);
}

TEST(ReplayScript, EveryKeyHasANameAndAPlaceOfItsOwn)
{
    for (const Key &key : allKeys()) {
        EXPECT_EQ(keyNamed(key.name), &key);
        EXPECT_EQ(keyOfVirtualKey(key.virtualKey, key.isExtended), &key) << key.name;
        EXPECT_EQ(keyOfUsage(key.usage), key.usage ? &key : nullptr) << key.name;
        if (UINT scanCode = MapVirtualKeyA(key.virtualKey, 0)) {
            EXPECT_EQ(scanCode, key.scanCode) << key.name;
        }
    }
}

} // namespace
