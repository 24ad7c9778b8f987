// What ports offer to the other managers: hooks, the clip with a mask, brushes and raster modes.
#include "QDOffscreen/CopySettings_internal.h"
#include "Quickdraw/ColorTables_internal.h"
#include "Quickdraw/Quickdraw_internal.h"
#include "Scrap/ClipboardFormats_internal.h"
#include "Settings.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class PortsInside : public testing::Test {
protected:
    PortsInside()
    {
        InitGraf(nullptr);
        port = CreateNewPort();
        port->portRect = {0, 0, 50, 50};
        PixMap &map = **port->portPixMap;
        map.pmDC = CreateCompatibleDC(nullptr);
        map.pmBitmap = CreateBitmap(50, 50, 1, 1, nullptr);
        map.pmOldBitmap = static_cast<HBITMAP>(SelectObject(map.pmDC, map.pmBitmap));
        map.pmPersistentDC = 1;
        MacSetPort(port);
    }
    ~PortsInside() override
    {
        DisposePort(port);
        MTBX_ShutdownGraf();
    }

    CGrafPtr port;
};

std::vector<std::string> calls;

std::string written(const Rect &rect)
{
    return std::to_string(rect.left) + "," + std::to_string(rect.top);
}

TEST_F(PortsInside, HooksRunInPlaceOfDrawing)
{
    auto hooks = reinterpret_cast<CQDProcsPtr>(NewPtr(sizeof(CQDProcs)));
    SetStdCProcs(hooks);
    Rect rect = {3, 4, 5, 6};
    RgnHandle rgn = NewRgn();
    EXPECT_FALSE(MTBX_RectHook(kQDGrafVerbPaint, &rect));
    SetPortGrafProcs(port, hooks);
    EXPECT_FALSE(MTBX_TextHook(1, "a", {1, 1}, {1, 1}) || MTBX_LineHook({1, 2}) || MTBX_RectHook(1, &rect)
                 || MTBX_RoundRectHook(1, &rect, 2, 3) || MTBX_OvalHook(1, &rect) || MTBX_PolyHook(1, nullptr)
                 || MTBX_RegionHook(1, rgn));
    hooks->textProc = [](SInt16 count, const void *text, Point numer, Point denom) {
        calls.push_back("text " + std::string(static_cast<const char *>(text), count) + std::to_string(numer.h)
                        + std::to_string(denom.v));
    };
    hooks->lineProc = [](Point to) { calls.push_back("line " + std::to_string(to.h) + "," + std::to_string(to.v)); };
    hooks->rectProc = [](GrafVerb verb, const Rect *r) {
        calls.push_back("rect " + std::to_string(verb) + written(*r));
    };
    hooks->rRectProc = [](GrafVerb verb, const Rect *r, SInt16 width, SInt16 height) {
        calls.push_back("rRect " + std::to_string(verb) + written(*r) + std::to_string(width) + std::to_string(height));
    };
    hooks->ovalProc = [](GrafVerb verb, const Rect *r) {
        calls.push_back("oval " + std::to_string(verb) + written(*r));
    };
    hooks->polyProc = [](GrafVerb verb, PolyHandle) { calls.push_back("poly " + std::to_string(verb)); };
    hooks->rgnProc = [](GrafVerb verb, RgnHandle) { calls.push_back("rgn " + std::to_string(verb)); };
    EXPECT_TRUE(MTBX_TextHook(2, "abc", {7, 8}, {9, 6}) && MTBX_LineHook({1, 2}) && MTBX_RectHook(0, &rect)
                && MTBX_RoundRectHook(3, &rect, 7, 8) && MTBX_OvalHook(2, &rect) && MTBX_PolyHook(1, nullptr)
                && MTBX_RegionHook(3, rgn));
    EXPECT_EQ(calls, (std::vector<std::string>{"text ab89", "line 2,1", "rect 04,3", "rRect 34,378", "oval 24,3",
                                               "poly 1", "rgn 3"}));
    DisposeRgn(rgn);
}

TEST_F(PortsInside, TheClipIsLimitedToAMask)
{
    RgnHandle mask = NewRgn(), inner = NewRgn();
    MacSetRectRgn(mask, 5, 5, 45, 45);
    MacSetRectRgn(inner, 10, 10, 40, 40);
    DiffRgn(mask, inner, mask);
    Rect clip = {0, 0, 20, 60};
    ClipRect(&clip);
    MTBX_ComputePortClip(*port, mask);
    HDC context = currentContext();
    RECT box;
    EXPECT_EQ(GetClipBox(context, &box), COMPLEXREGION);
    EXPECT_EQ(box.left, 5);
    EXPECT_EQ(box.top, 5);
    EXPECT_EQ(box.right, 45);
    EXPECT_EQ(box.bottom, 20);
    EXPECT_FALSE(PtVisible(context, 20, 15));
    EXPECT_TRUE(PtVisible(context, 7, 15));
    MTBX_ComputePortClip(*port, nullptr);
    EXPECT_TRUE(PtVisible(context, 20, 15));
    DisposeRgn(mask);
    DisposeRgn(inner);
}

TEST_F(PortsInside, WithoutAScratchRegionTheClipStays)
{
    Rect clip = {1, 2, 20, 30};
    ClipRect(&clip);
    MTBX_StopClipping();
    clip = {0, 0, 5, 5};
    ClipRect(&clip);
    RECT box;
    GetClipBox(currentContext(), &box);
    EXPECT_EQ(box.right, 30);
    EXPECT_EQ(QDError(), memFullErr);
    EXPECT_EQ(QDError(), 0);
    ClipRect(&clip);
    GrafPtr current;
    GetPort(&current);
    EXPECT_EQ(QDError(), 0) << "cleared";
}

TEST_F(PortsInside, RasterModesOfThePen)
{
    for (SInt16 mode = -20; mode < 70; ++mode)
        EXPECT_EQ(MTBX_PatternRaster(mode), mode == srcXor || mode == patXor ? PATINVERT : PATCOPY) << mode;
}

TEST_F(PortsInside, ATemporaryBrushLeavesThePortsAlone)
{
    HBRUSH own = port->portBrush;
    HBRUSH temporary = MTBX_NewPatternBrush(qd.gray);
    ASSERT_TRUE(temporary);
    EXPECT_NE(temporary, own);
    EXPECT_EQ(GetCurrentObject(currentContext(), OBJ_BRUSH), own);
    DeleteObject(temporary);
}

TEST_F(PortsInside, EachDepthHasItsTableInThePixMap)
{
    for (SInt16 depth : {1, 2, 4, 8, 16, 32}) {
        SInt16 former = gbits_per_pixel;
        gbits_per_pixel = depth;
        CGrafPtr of = CreateNewPort();
        gbits_per_pixel = former;
        EXPECT_EQ(+(*of->portPixMap)->pmTable, MTBX_StandardTable(depth));
        EXPECT_EQ((*of->portPixMap)->pmTable == nullptr, depth == 1);
        DisposePort(of);
    }
}

TEST_F(PortsInside, FontsFollowTheContext)
{
    static std::string steps;
    static GrafPtr observed;
    observed = port;
    auto step = [](GrafPtr changed, char letter) {
        if (changed == observed)
            steps += letter;
        return SInt16{0};
    };
    static auto note = step;
    portFontCalls = {[](GrafPtr changed) { return note(changed, '+'); },
                     [](GrafPtr changed) { return note(changed, '-'); }};
    MacSetPort(nullptr);
    MacSetPort(port);
    MacSetPort(port);
    EXPECT_EQ(steps, "-+");
    portFontCalls = {};
}

TEST_F(PortsInside, MeasuringFallsBackOnASpareContext)
{
    EXPECT_EQ(measuringContext(), contextOf(*port));
    CGrafPtr bare = CreateNewPort();
    MacSetPort(bare);
    ASSERT_TRUE(fallbackDC);
    EXPECT_EQ(measuringContext(), fallbackDC);
    DisposePort(bare);
}

TEST_F(PortsInside, ClipboardFormatsAreTheSystems)
{
    EXPECT_EQ(clipboardFormats.exchange, RegisterClipboardFormatA("Larkspin ZP Exchange"));
    EXPECT_EQ(clipboardFormats.projectItem, RegisterClipboardFormatA("Larkspin ZP Project Item Exchange"));
    EXPECT_EQ(clipboardFormats.layout, RegisterClipboardFormatA("ORVANE QL3"));
    EXPECT_EQ(clipboardFormats.styledText, RegisterClipboardFormatA("Tessarine Text"));
    EXPECT_EQ(clipboardFormats.glyphweave, RegisterClipboardFormatA("Orvane Glyphweave 2.0"));
    EXPECT_EQ(clipboardFormats.portableDocument, RegisterClipboardFormatA("Portable Document Format"));
    EXPECT_EQ(clipboardFormats.linkSourceList, RegisterClipboardFormatA("livelinksourcelist"));
    EXPECT_EQ(clipboardFormats.cookie, RegisterClipboardFormatA("ZP Cookie"));
}

TEST_F(PortsInside, CopySettingsAreReadAndMasksTriedOut)
{
    {
        Settings settings("UseStretchBlt=1\r\nUseBitfieldsIfPossible=1\r\nDirectDrawMoniker=3\r\n"
                          "WorkaroundStretchDIBitsBug=0\r\nUseDirectDraw=0\r\n");
        MTBX_ReadCopySettings();
        EXPECT_EQ(copySettings.useBitfieldsIfPossible, copySettings.useStretchBlt) << "both, or none after a failure";
        EXPECT_EQ(copySettings.directDrawMoniker, 3);
        EXPECT_EQ(copySettings.workaroundStretchDIBitsBug, 0);
        EXPECT_EQ(copySettings.useDirectDraw, 0);
    }
    MTBX_ReadCopySettings();
}

TEST_F(PortsInside, BevelColorsComeFromTheSystemOnce)
{
    CTabHandle table = GetBevelColorsFromSystem();
    ASSERT_TRUE(table);
    EXPECT_EQ(entryCountOf(table), 234);
    auto isGdi = [&](int index, COLORREF color) {
        const ColorSpec &entry = entriesOf(table)[index];
        return entry.value == index && entry.rgb.red == GetRValue(color) << 8
               && entry.rgb.green == GetGValue(color) << 8 && entry.rgb.blue == GetBValue(color) << 8;
    };
    EXPECT_TRUE(isGdi(1, GetSysColor(COLOR_BTNFACE)) && isGdi(5, GetSysColor(COLOR_BTNFACE)));
    EXPECT_TRUE(isGdi(2, GetSysColor(COLOR_BTNSHADOW)) && isGdi(6, GetSysColor(COLOR_BTNSHADOW))
                && isGdi(12, GetSysColor(COLOR_BTNSHADOW)));
    EXPECT_TRUE(isGdi(8, GetSysColor(COLOR_BTNHIGHLIGHT)) && isGdi(9, GetSysColor(COLOR_BTNHIGHLIGHT)));
    for (int index : {7, 11, 13, 14})
        EXPECT_TRUE(isGdi(index, 0)) << index;
    for (int index : {0, 3, 4, 10}) {
        EXPECT_EQ(entriesOf(table)[index].rgb.green, 65535) << index;
        EXPECT_EQ(entriesOf(table)[index].value, index);
    }
    EXPECT_EQ(GetBevelColorsFromSystem(), table);
}

} // namespace
