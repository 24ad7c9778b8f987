// Sources written for the Macintosh: in C (classic_in_c.c), and in C++ beside the system's calls of the same names.
#include "HostKitTest.h"
#include "TemporaryFolder.h"

#include <hostkit/classic.h>

extern "C" short classicProgram(void (*play)(WindowPtr window, short step));

namespace {

class HostKitClassic : public HostKitTest {};

TEST_F(HostKitClassic, RunsAProgramInC)
{
    short counted = classicProgram([](WindowPtr window, short step) {
        static Input keyboard;
        if (step == 3)
            PostMessageA(GetMacWindowPtrHwnd(window), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
        if (step == 6)
            keyboard.type('A');
        if (step == 9)
            PostMessageA(hWndMain, WM_CLOSE, 0, 0);
    });
    EXPECT_GE(counted, 5) << "an activation, an update, a press, two keys";
    EXPECT_EQ(gFrontWindow, gDesktopWindow);
}

TEST_F(HostKitClassic, KeepsTheSystemsNamesInCxx)
{
    Rect rect;
    RECT native;
    SetRect(&rect, 10, 20, 30, 40);
    SetRect(&native, 10, 20, 30, 40);
    OffsetRect(&rect, 1, 1);
    OffsetRect(&native, 1, 1);
    EXPECT_TRUE(PtInRect(Point{25, 15}, &rect) && PtInRect(&native, POINT{15, 25}));
    Rect sameRect = rect;
    RECT sameNative = native;
    EXPECT_TRUE(EqualRect(&rect, &sameRect) && EqualRect(&native, &sameNative));

    WindowPtr window = NewWindow(nullptr, &rect, Pascal("w"), false, documentProc, reinterpret_cast<WindowPtr>(-1), true, 0);
    ShowWindow(window);
    MoveWindow(window, 60, 70, true);
    HWND handle = GetMacWindowPtrHwnd(window);
    EXPECT_TRUE(IsWindowVisible(handle));
    ShowWindow(handle, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(handle));
    MoveWindow(handle, 5, 5, 100, 100, FALSE);
    EXPECT_EQ(FindWindow("HostKitMain", nullptr), hWndMain);
    WindowPtr found;
    EXPECT_EQ(FindWindow(Point{500, 600}, &found), inDesk);
    EXPECT_EQ(GetNextWindow(window), nullptr);
    EXPECT_EQ(GetNextWindow(handle, GW_HWNDNEXT), nullptr);

    SetPort(window);
    HDC context = GetDC(handle);
    LineTo(10, 10);
    LineTo(context, 10, 10);
    FillRect(&rect, &qd.gray);
    FillRect(context, &native, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    DrawText("text", 0, 4);
    DrawText(context, "text", 4, &native, DT_LEFT);
    ReleaseDC(handle, context);
    SetCursor(&qd.arrow);
    EXPECT_NE(GetCursor(), nullptr);
    DisposeWindow(window);
}

TEST_F(HostKitClassic, MovesBytesAndFiles)
{
    Handle text = NewHandle(0);
    EXPECT_EQ(PtrAndHand("abc", text, 3), noErr);
    EXPECT_EQ(PtrAndHand(*text, text, 3), noErr) << "of itself";
    EXPECT_EQ(std::string(*text, static_cast<size_t>(GetHandleSize(text))), "abcabc");
    volatile Size tooMany = 0x7FFFFFFF;
    EXPECT_EQ(PtrAndHand(*text, text, tooMany), memFullErr);
    EXPECT_EQ(GetHandleSize(text), 6);
    EXPECT_NE(PtrAndHand("abc", nullptr, 3), noErr);
    DisposeHandle(text);

    TemporaryFolder folder("hostkit-classic");
    FSSpec spec;
    FSMakeFSSpec(0, 0, Pascal(folder.path("old.txt")), &spec);
    EXPECT_EQ(FSpCreate(&spec, 0x54455354, 0x54455854, 0), noErr);
    SInt16 file = 0;
    ASSERT_EQ(FSpOpenDF(&spec, fsRdWrPerm, &file), noErr);
    SInt32 count = 5, length = 0;
    FSWrite(file, &count, "12345");
    EXPECT_EQ(GetEOF(file, &length), noErr);
    EXPECT_EQ(length, 5);
    FSClose(file);
    EXPECT_EQ(GetEOF(file, &length), rfNumErr);
    EXPECT_EQ(FSpDelete(&spec), noErr);
    EXPECT_EQ(FSpOpenDF(&spec, fsRdWrPerm, &file), fnfErr);
}

TEST_F(HostKitClassic, AddsToWhatIsToBeDrawn)
{
    WindowPtr window = open(ltrb(40, 60, 240, 160));
    drain();
    SetPort(window);
    Rect part = ltrb(10, 10, 50, 40), half = ltrb(10, 10, 30, 40), left;
    InvalRect(&part);
    ValidRect(&half);
    GetRegionBounds(recordOf(window).updateRgn, &left);
    EXPECT_EQ(left, ltrb(30, 10, 50, 40));
    MacSetPort(nullptr);
    InvalRect(&part);
    MacSetPort(window);
    EXPECT_EQ(drain(), std::vector<std::string>{"update 0"});
}

} // namespace
