// The layer's colour dialog, used with the mouse and the keys.
#include "Input.h"

#include <commdlg.h>
#include <gtest/gtest.h>
#include <win32/control.h>

#include <functional>

namespace {

// What a person does once the dialog shows, one thing at a time.
std::vector<std::function<void(HWND)>> steps;
size_t nextStep;

void CALLBACK takeStep(HWND, UINT, UINT_PTR, DWORD)
{
    HWND dialog = FindWindowA("Color dialog", nullptr);
    if (dialog && IsWindowVisible(dialog) && nextStep < steps.size())
        steps[nextStep++](dialog);
}

class ColorDialog : public testing::Test {
protected:
    BOOL ask(DWORD flags, COLORREF first)
    {
        request.lStructSize = sizeof request;
        request.lpCustColors = custom;
        request.rgbResult = first;
        request.Flags = flags | CC_RGBINIT;
        nextStep = 0;
        UINT_PTR timer = SetTimer(nullptr, 0, 1, takeStep);
        BOOL result = ChooseColorA(&request);
        KillTimer(nullptr, timer);
        steps.clear();
        return result;
    }
    void click(HWND dialog, int x, int y)
    {
        POINT point = {x, y};
        ClientToScreen(dialog, &point);
        input.moveTo(point.x, point.y);
        input.pressButton();
        input.releaseButton();
    }

    Input input;
    COLORREF custom[16] = {};
    CHOOSECOLORA request{};
};

TEST_F(ColorDialog, TakesBasicColoursByMouseAndKeys)
{
    steps = {[this](HWND dialog) { click(dialog, 15, 30); }, [this](HWND) { input.type(VK_RIGHT); }, [this](HWND) { input.type(VK_DOWN); },
             [this](HWND) { input.type(VK_RETURN); }};
    EXPECT_TRUE(ask(0, RGB(1, 2, 3)));
    EXPECT_EQ(request.rgbResult, RGB(0xFF, 0xFF, 0)) << "the second of the second row";
}

TEST_F(ColorDialog, MixesColoursAndKeepsThem)
{
    steps = {[](HWND dialog) { SendMessageA(dialog, WM_COMMAND, 719, 0); }, // opens the other half
             [this](HWND dialog) { click(dialog, 232, 8); },                  // red, in full
             [](HWND dialog) { SendMessageA(dialog, WM_COMMAND, 712, 0); },
             [](HWND dialog) {
                 if (const char *path = getenv("COLOR_DIALOG_PICTURE")) {
                     RECT rect;
                     UpdateWindow(dialog);
                     GetWindowRect(dialog, &rect);
                     Win32Control_SaveScreen(path, &rect);
                 }
             },
             [this](HWND) { input.type(VK_ESCAPE); }};
    EXPECT_FALSE(ask(0, RGB(0x80, 0x80, 0x80)));
    EXPECT_EQ(CommDlgExtendedError(), 0u);
    EXPECT_EQ(request.rgbResult, RGB(0x80, 0x80, 0x80));
    EXPECT_NEAR(GetRValue(custom[0]), 255, 1) << "as light as the grey before it";
    EXPECT_LE(GetGValue(custom[0]), 2);
}

UINT_PTR CALLBACK cancelAtOnce(HWND dialog, UINT message, WPARAM, LPARAM)
{
    if (message == WM_INITDIALOG)
        SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    return 0;
}

TEST_F(ColorDialog, GivesAllBackWhenMemoryIsShort)
{
    request = {sizeof request, nullptr, nullptr, 0, custom, CC_ENABLEHOOK | CC_FULLOPEN, 0, cancelAtOnce, nullptr};
    EXPECT_FALSE(ChooseColorA(&request));
    EXPECT_EQ(CommDlgExtendedError(), 0u);
    DWORD objects = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), pictures = Win32Control_GdiObjects();
    for (Win32Allocation kind : {WIN32_ALLOCATION_LAYER, WIN32_ALLOCATION_BITMAP}) {
        Win32Control_RefuseAllocations(kind, 0, 0, 0);
        ChooseColorA(&request);
        DWORD count = Win32Control_AllocationsCounted(kind);
        ASSERT_GT(count, 0u);
        for (DWORD number = 1; number <= count; ++number) {
            Win32Control_RefuseAllocations(kind, number, WIN32_WITHOUT_END, 0);
            EXPECT_FALSE(ChooseColorA(&request));
            Win32Control_AllowAllocations(kind);
            EXPECT_FALSE(FindWindowA("Color dialog", nullptr)) << number;
            ASSERT_EQ(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), objects) << number;
            ASSERT_LE(Win32Control_GdiObjects(), pictures) << number;
        }
    }
    Win32Control_Reset();
}

TEST_F(ColorDialog, RefusesWhatIsNoRequest)
{
    request.lStructSize = 1;
    EXPECT_FALSE(ChooseColorA(&request));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_STRUCTSIZE));
    EXPECT_FALSE(ChooseColorA(nullptr));
    EXPECT_FALSE(ask(CC_ENABLEHOOK, 0));
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_NOHOOK));
}

} // namespace
