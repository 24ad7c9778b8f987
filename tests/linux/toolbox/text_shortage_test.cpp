// Fonts and text while GDI refuses objects or memory is short.
#include "Settings.h"
#include "TextCanvas.h"

#include <win32/control.h>

#include <functional>

namespace {

struct QuickFontRefusals {
    Settings settings{"PurgeBytesForExhaustedGDIObjects=0\r\n"};
};

class TextShortage : private QuickFontRefusals, public TextCanvas {
protected:
    ~TextShortage() override { Win32Control_Reset(); }

    // Everything that makes fonts or memory, from the start of the table on.
    void useText()
    {
        InitFonts();
        SInt16 number = 0;
        for (int i = 0; i < 8; ++i)
            GetFNum(Pascal("Family " + std::to_string(i)), &number);
        TextFont(FMGetFontFamilyFromName(Pascal("Arial")));
        for (SInt16 size : {9, 12, 14, 9}) {
            TextSize(size);
            MoveTo(2, 20);
            DrawString(Pascal("Text\rof two lines"));
        }
        TextMode(srcXor);
        DrawString(Pascal("Over"));
        TextMode(srcCopy);
        FMetricRec metrics;
        FontMetrics(&metrics);
        HFONT small;
        MTBX_SetSmallFont(0, 9, 0);
        MTBX_GetSmallHFnt(&small);
        MTBX_SetDBCSSafeModeFonts();
    }

    std::string scene()
    {
        PenNormal();
        std::string picture = drawn([this] { useText(); });
        MTBX_ShutdownFonts();
        return picture;
    }

    void refuseEach(const std::function<void(DWORD)> &refuse, const std::function<DWORD()> &counted)
    {
        // The layer and the library keep things for later, which are there after the first round.
        std::string expected = scene();
        scene();
        refuse(0);
        scene();
        DWORD count = counted();
        ASSERT_GT(count, 0u);
        SIZE_T bytes, blocks, bytesAfter, blocksAfter;
        Win32Control_HeldMemory(&bytes, &blocks);
        DWORD objects = Win32Control_GdiObjects();
        for (DWORD number = 1; number <= count; ++number) {
            HGDIOBJ font = GetCurrentObject(context(), OBJ_FONT);
            refuse(number);
            scene();
            Win32Control_Reset();
            ASSERT_EQ(GetCurrentObject(context(), OBJ_FONT), font) << "refused " << number;
            ASSERT_EQ(+qd.thePort, port()) << "refused " << number;
            ASSERT_EQ(scene(), expected) << "after " << number << " was refused";
            ASSERT_EQ(Win32Control_GdiObjects(), objects) << "refused " << number;
            Win32Control_HeldMemory(&bytesAfter, &blocksAfter);
            ASSERT_EQ(blocksAfter, blocks) << "refused " << number;
        }
    }
};

TEST_F(TextShortage, AnyRefusedGdiObjectIsSurvived)
{
    refuseEach([](DWORD number) { Win32Control_RefuseGdiCreations(number, number ? 17 : 0); },
               Win32Control_GdiCreationsCounted);
}

TEST_F(TextShortage, AnyRefusedMemoryIsSurvived)
{
    for (Win32Allocation kind : {WIN32_ALLOCATION_GLOBAL, WIN32_ALLOCATION_C_HEAP})
        refuseEach(
            [=](DWORD number) { Win32Control_RefuseAllocations(kind, number, number ? WIN32_WITHOUT_END : 0, 0); },
            [=] { return Win32Control_AllocationsCounted(kind); });
}

TEST_F(TextShortage, ATableThatCannotGrowKeepsItsFonts)
{
    for (int i = 0; i < 7; ++i)
        FMGetFontFamilyFromName(Pascal("Family " + std::to_string(i)));
    FontInstance *instance = nullptr;
    CharWidth('W');
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_GLOBAL, 1, WIN32_WITHOUT_END, 0);
    SInt16 number = 9;
    GetFNum(Pascal("One too many"), &number);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(MTBX_GetHFntFromFNum(arial, 50, 0, &instance), kFontNoMemory);
    Win32Control_Reset();
    EXPECT_EQ(MTBX_GetHFntFromFNum(arial, 50, 0, &instance), kFontNoError);
    GetFNum(Pascal("One too many"), &number);
    EXPECT_EQ(number, 25);
    Win32Control_RefuseAllocations(WIN32_ALLOCATION_FONT, 1, WIN32_WITHOUT_END, 0);
    EXPECT_EQ(MTBX_GetHFntFromFNum(arial, 51, 0, &instance), kFontNotCreated);
    TextSize(52);
    SInt32 width = CharWidth('W');
    DrawChar('W');
    Win32Control_Reset();
    EXPECT_EQ(width, PlainFont("Arial", 12).width("W")) << "the font before stays";
}

TEST_F(TextShortage, ExclusiveOrWithoutItsWorldDrawsNothing)
{
    TextMode(srcXor);
    MoveTo(2, 30);
    for (int kind : {WIN32_ALLOCATION_C_HEAP, WIN32_ALLOCATION_BITMAP, WIN32_ALLOCATION_CONTEXT}) {
        Win32Control_RefuseAllocations(static_cast<Win32Allocation>(kind), 1, WIN32_WITHOUT_END, 0);
        DrawString(Pascal("Over"));
        Win32Control_Reset();
        EXPECT_EQ(countBlack(), 0);
        EXPECT_EQ(+qd.thePort, port());
    }
    DrawString(Pascal("Over"));
    EXPECT_GT(countBlack(), 0);
}

} // namespace
