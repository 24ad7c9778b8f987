// Shapes while GDI refuses objects or memory is short: after each call the port, its clip and what is selected
// are as before, and the next call draws as ever.
#include "Settings.h"
#include "ShapeCanvas.h"

#include <win32/control.h>

#include <functional>
#include <tuple>
#include <vector>

namespace {

// The purge size of 0 makes a creation final after 17 tries.
struct QuickRefusals {
    Settings settings{"PurgeBytesForExhaustedGDIObjects=0\r\n"};
};

class ShapeShortage : private QuickRefusals, public ShapeCanvas {
protected:
    static constexpr DWORD tries = 17;

    ~ShapeShortage() override { Win32Control_Reset(); }

    auto state()
    {
        HDC dc = context();
        POINT brushOrigin, windowOrigin;
        GetBrushOrgEx(dc, &brushOrigin);
        GetWindowOrgEx(dc, &windowOrigin);
        Rect clip = clipBoxOf(dc);
        return std::tuple(GetCurrentObject(dc, OBJ_PEN), GetCurrentObject(dc, OBJ_BRUSH),
                          GetCurrentObject(dc, OBJ_FONT), GetROP2(dc), GetTextColor(dc), GetBkColor(dc), GetBkMode(dc),
                          brushOrigin.x, brushOrigin.y, windowOrigin.x, windowOrigin.y, clip.left, clip.top, clip.right,
                          clip.bottom, std::string(reinterpret_cast<char *>(port()), sizeof(GrafPort)),
                          Win32Control_GdiObjects());
    }
};

TEST_F(ShapeShortage, WhateverIsRefusedThePortAndWhatIsSelectedAreAsBefore)
{
    Rect rect = ltrb(5, 5, 40, 30), clip = ltrb(2, 2, 50, 50);
    Point points[] = {{1, 1}, {30, 20}, {9, 50}, {40, 12}};
    RgnHandle rgn = NewRgn();
    MacSetRectRgn(rgn, 8, 8, 30, 30);
    PolyHandle poly = OpenPoly();
    for (int i = 0; i < 100; ++i)
        MacLineTo(static_cast<SInt16>(i * 7 % 60), static_cast<SInt16>(i * 11 % 60));
    ClosePoly();
    ClipRect(&clip);
    struct {
        const char *name;
        std::function<void()> draw;
    } const calls[] = {
        {"line", [] { Move(20, 10), Line(15, 9), MoveTo(0, 0); }},
        {"many points", [&] { MTBX_PolyLine(4, points), MoveTo(0, 0); }},
        {"filled rectangle", [&] { MacFillRect(&rect, &stripes); }},
        {"erased rectangle", [&] { EraseRect(&rect); }},
        {"merged rectangle", [&] { PaintRect(&rect); }},
        {"filled oval", [&] { FillOval(&rect, &stripes); }},
        {"erased oval", [&] { EraseOval(&rect); }},
        {"inverted oval", [&] { InvertOval(&rect); }},
        {"framed round rectangle", [&] { FrameRoundRect(&rect, 8, 8); }},
        {"inverted round rectangle", [&] { InvertRoundRect(&rect, 8, 8); }},
        {"framed polygon", [&] { FramePoly(poly); }},
        {"filled polygon", [&] { FillPoly(poly, &stripes); }},
        {"inverted polygon", [&] { InvertPoly(poly); }},
        {"erased region", [&] { EraseRgn(rgn); }},
        {"filled region", [&] { MacFillRgn(rgn, &stripes); }},
        {"scrolled", [&] { ScrollRect(&rect, 3, 2, rgn); }},
        {"filled path",
         [] { OpenPoly2(), Line(9, 9), Line(9, -3), ClosePoly2(), FillPoly2(nullptr, &stripes), MoveTo(0, 0); }},
        {"read pixel", [] { MacGetPixel(5, 5); }},
    };
    for (SInt16 mode : {patCopy, patOr, patXor})
        for (auto &[name, draw] : calls) {
            PenNormal();
            PenMode(mode);
            MoveTo(0, 0);
            memory.clear(0x778899);
            draw();
            std::string expected = whole();
            auto before = state();
            Win32Control_RefuseGdiCreations(0, 0);
            Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 0, 0, 0);
            draw();
            DWORD creations = Win32Control_GdiCreationsCounted();
            DWORD allocations = Win32Control_AllocationsCounted(WIN32_ALLOCATION_C_HEAP);
            auto survive = [&](DWORD number) {
                draw();
                Win32Control_Reset();
                ASSERT_EQ(state(), before) << name << " in mode " << mode << ", refused " << number;
                memory.clear(0x778899);
                MoveTo(0, 0);
                draw();
                ASSERT_EQ(whole(), expected) << name << " in mode " << mode << ", after " << number;
            };
            for (DWORD number = 1; number <= creations; ++number)
                for (DWORD count : {tries, DWORD{WIN32_WITHOUT_END}}) {
                    Win32Control_RefuseGdiCreations(number, count);
                    survive(number);
                }
            for (DWORD number = 1; number <= allocations; ++number) {
                Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, number, WIN32_WITHOUT_END, 0);
                survive(number);
            }
        }
    KillPoly(poly);
    DisposeRgn(rgn);
}

TEST_F(ShapeShortage, EraseRectFallsBackOnTheWindowsClassBrush)
{
    WNDCLASSA description = {};
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    description.lpszClassName = "BlackWindow";
    RegisterClassA(&description);
    HWND window =
        CreateWindowExA(0, "BlackWindow", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, description.hInstance, nullptr);
    Rect rect = ltrb(5, 5, 20, 20);
    RgnHandle rgn = NewRgn();
    RectRgn(rgn, &rect);
    Win32Control_RefuseGdiCreations(1, WIN32_WITHOUT_END);
    EraseRect(&rect);
    EXPECT_EQ(countBlack(), 0) << "no window, no brush";
    pixMapOf(port()).pmWindow = window;
    EraseRect(&rect);
    EXPECT_EQ(countBlack(), 225);
    clear();
    EraseRgn(rgn);
    EXPECT_EQ(countBlack(), 225);
    // A class that names a system colour.
    SetClassLongPtrA(window, GCLP_HBRBACKGROUND, COLOR_WINDOWTEXT + 1);
    clear();
    EraseRect(&rect);
    EXPECT_EQ(countBlack(), 225);
    Win32Control_Reset();
    EraseRect(&rect);
    EXPECT_EQ(countBlack(), 0);
    pixMapOf(port()).pmWindow = nullptr;
    DisposeRgn(rgn);
    DestroyWindow(window);
    UnregisterClassA("BlackWindow", description.hInstance);
}

TEST_F(ShapeShortage, APolygonKeepsTheVerticesForWhichThereIsMemory)
{
    PolyHandle poly = OpenPoly();
    MacLineTo(5, 5);
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 1, WIN32_WITHOUT_END, 0);
    MacLineTo(9, 9);
    EXPECT_EQ((*poly)->polySize, 14);
    EXPECT_EQ(port()->pnLoc, (Point{9, 9}));
    Win32Control_Reset();
    MacLineTo(20, 9);
    EXPECT_EQ((*poly)->polySize, 18);
    ClosePoly();
    KillPoly(poly);
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 1, WIN32_WITHOUT_END, 0);
    EXPECT_FALSE(OpenPoly());
    EXPECT_EQ(port()->pnVis, 0);
}

PolyHandle purgedPolygon;

SInt32 purgePolygon(UInt64)
{
    EmptyHandle(reinterpret_cast<Handle>(purgedPolygon));
    return 1;
}

TEST_F(ShapeShortage, APolygonMayBePurgedWhileItIsToBeDrawn)
{
    purgedPolygon = OpenPoly();
    for (int i = 0; i < 100; ++i)
        MacLineTo(static_cast<SInt16>(i * 7 % 60), static_cast<SInt16>(i * 11 % 60));
    ClosePoly();
    SetGrowZoneEx(purgePolygon);
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, 1, 2, 0);
    PaintPoly(purgedPolygon);
    SetGrowZoneEx(nullptr);
    EXPECT_EQ(countBlack(), 0);
    KillPoly(purgedPolygon);
}

TEST_F(ShapeShortage, Windows95FillsTheOutlineOfALineWhenItRefusesThePen)
{
    PenSize(5, 5);
    PenPat(&stripes);
    auto draw = [&] {
        return drawn([] {
            MoveTo(10, 10);
            MacLineTo(50, 40);
        });
    };
    std::string expected = draw();
    gWin95 = 1;
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_PEN, 1, 1, 0);
    EXPECT_EQ(draw(), expected);
    gWin95 = 0;
}

} // namespace
