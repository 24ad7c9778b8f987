// The colour dialog, answered by the test.
#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <commdlg.h>

namespace {

HHOOK hook;
WORD answer;
RECT place;

LRESULT CALLBACK answerDialog(int code, WPARAM wParam, LPARAM lParam)
{
    const auto &call = *reinterpret_cast<const CWPRETSTRUCT *>(lParam);
    if (code == HC_ACTION && call.message == WM_INITDIALOG) {
        GetWindowRect(call.hwnd, &place);
        PostMessageA(call.hwnd, WM_COMMAND, answer, 0);
    }
    return CallNextHookEx(hook, code, wParam, lParam);
}

Boolean ask(WORD reply, const RGBColor &first, RGBColor &chosen)
{
    answer = reply;
    hook = SetWindowsHookExA(WH_CALLWNDPROCRET, answerDialog, nullptr, GetCurrentThreadId());
    Boolean result = GetColor({0, 0}, nullptr, &first, &chosen);
    UnhookWindowsHookEx(hook);
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
