// The colour dialog, answered by the test.
#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

namespace {

WORD answer;
RECT place;

// The dialog's own loop runs this.
void CALLBACK answerDialog(HWND, UINT, UINT_PTR timer, DWORD)
{
    HWND dialog = FindWindowA(nullptr, "Color");
    if (!dialog || !IsWindowVisible(dialog))
        return;
    KillTimer(nullptr, timer);
    GetWindowRect(dialog, &place);
    PostMessageA(dialog, WM_COMMAND, answer, 0);
}

Boolean ask(WORD reply, const RGBColor &first, RGBColor &chosen)
{
    answer = reply;
    UINT_PTR timer = SetTimer(nullptr, 0, 10, answerDialog);
    Boolean result = GetColor({0, 0}, nullptr, &first, &chosen);
    KillTimer(nullptr, timer);
    return result;
}

TEST(ColorPicker, GivesTheChosenColorInEightBitSteps)
{
    RGBColor first = {65535, 32768, 0x0100}, chosen = {1, 2, 3};
    EXPECT_TRUE(ask(IDOK, first, chosen));
    EXPECT_EQ(chosen.red, 65535);
    EXPECT_EQ(chosen.green, 128 * 257);
    EXPECT_EQ(chosen.blue, 1 * 257);
    EXPECT_NEAR((place.left + place.right) / 2, GetSystemMetrics(SM_CXSCREEN) / 2, 1);
    EXPECT_NEAR((place.top + place.bottom) / 2, GetSystemMetrics(SM_CYSCREEN) / 2, 1);
}

TEST(ColorPicker, CancellingLeavesTheColorAlone)
{
    RGBColor first = {5, 6, 7}, chosen = {1, 2, 3};
    EXPECT_FALSE(ask(IDCANCEL, first, chosen));
    EXPECT_EQ(chosen.red, 1);
    EXPECT_EQ(chosen.blue, 3);
}

} // namespace
