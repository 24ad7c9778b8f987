// The table of fonts: numbers, instances and their locks.
#include "TextCanvas.h"

namespace {

class Fonts : public testing::Test {
protected:
    Fonts() { InitFonts(); }
    ~Fonts() override { MTBX_ShutdownFonts(); }

    static SInt16 numberOf(const std::string &name)
    {
        SInt16 number = -7;
        GetFNum(Pascal(name), &number);
        return number;
    }
    static std::string nameOf(SInt16 number)
    {
        Str255 name;
        GetFontName(number, name);
        return {reinterpret_cast<char *>(name + 1), name[0]};
    }
    static LOGFONTA descriptionOf(HFONT font)
    {
        LOGFONTA description = {};
        GetObjectA(font, sizeof description, &description);
        return description;
    }
    static LOGFONTA described(SInt16 number, SInt16 size, UInt16 style)
    {
        FontInstance *instance = nullptr;
        EXPECT_EQ(MTBX_GetHFntFromFNum(number, size, style, &instance), kFontNoError);
        return descriptionOf(instance->hFont);
    }
};

TEST_F(Fonts, NewNamesTakeTheLowestFreeNumber)
{
    EXPECT_EQ(numberOf("OrvZpLg"), 0);
    EXPECT_EQ(nameOf(1), "OrvZpLg");
    EXPECT_EQ(nameOf(3), "");
    EXPECT_EQ(nameOf(10), "");
    EXPECT_EQ(numberOf("First"), 10);
    EXPECT_EQ(FMGetFontFamilyFromName(Pascal("Second")), 13);
    EXPECT_EQ(numberOf("First"), 10);
    EXPECT_EQ(numberOf("first"), 14) << "told by case";
    for (SInt16 number = 15; number <= 19; ++number)
        EXPECT_EQ(numberOf("Font " + std::to_string(number)), number);
    for (SInt16 number = 25; number < 120; ++number)
        EXPECT_EQ(numberOf("Font " + std::to_string(number)), number);
    EXPECT_EQ(nameOf(119), "Font 119");
    EXPECT_EQ(numberOf(""), -7) << "left alone";
    EXPECT_EQ(FMGetFontFamilyFromName(Pascal("")), 0);
    std::string longest(255, 'x');
    EXPECT_EQ(nameOf(numberOf(longest)), longest);
    InitFonts();
    EXPECT_EQ(numberOf("First"), 10) << "a second start keeps the table";
}

TEST_F(Fonts, NumbersWithoutAFaceHaveNoFont)
{
    FontInstance *instance = nullptr;
    for (SInt16 number : {3, 10, 11, 24, 25, 100, 32767, -1, -32768}) {
        EXPECT_EQ(MTBX_GetHFntFromFNum(number, 12, 0, &instance), kFontBadNumber) << number;
        EXPECT_EQ(nameOf(number), "");
    }
    EXPECT_FALSE(instance);
}

TEST_F(Fonts, NamesOfNativeFontsHaveAtMost31Bytes)
{
    FontInstance *instance = nullptr;
    EXPECT_EQ(MTBX_GetHFntFromFNum(numberOf(std::string(31, 'a')), 12, 0, &instance), kFontNoError);
    SInt16 number = numberOf(std::string(32, 'a'));
    EXPECT_EQ(MTBX_GetHFntFromFNum(number, 12, 0, &instance), kFontNameTooLong);
    EXPECT_EQ(nameOf(number), std::string(32, 'a')) << "the family was stored all the same";
}

TEST_F(Fonts, SizeAndStyleMakeAnInstanceOnce)
{
    SInt16 number = numberOf("Arial");
    FontInstance *bold = nullptr, *plain = nullptr, *again = nullptr, *byName = nullptr, **place = &byName;
    MTBX_GetHFntFromFNum(number, 14, 1, &bold);
    MTBX_GetHFntFromFNum(number, 14, 0, &plain);
    MTBX_GetHFntFromFNum(number, 14, 1, &again);
    EXPECT_NE(bold, plain);
    EXPECT_NE(+bold->hFont, +plain->hFont);
    EXPECT_EQ(bold, again);
    EXPECT_EQ(+bold->size, 14);
    EXPECT_EQ(+bold->style, 1);
    EXPECT_EQ(MTBX_GetHFntFromFacename("Arial", 14, 1, &place), kFontNoError);
    EXPECT_EQ(byName, bold);
    EXPECT_EQ(MTBX_GetHFntFromFacename("A new face", 9, 0, &place), kFontNoError);
    EXPECT_EQ(nameOf(13), "A new face");
    EXPECT_EQ(MTBX_GetHFntFromFacename("", 9, 0, &place), kFontBadNumber);
    EXPECT_EQ(MTBX_GetHFntFromFacename(std::string(1000, 'y').c_str(), 9, 0, &place), kFontNameTooLong);
}

TEST_F(Fonts, DescriptionsOfNativeFonts)
{
    LOGFONTA font = described(numberOf("Arial"), 14, 0);
    EXPECT_EQ(font.lfHeight, -14);
    EXPECT_EQ(font.lfWeight, FW_NORMAL);
    EXPECT_FALSE(font.lfItalic || font.lfUnderline);
    EXPECT_EQ(font.lfCharSet, DEFAULT_CHARSET);
    EXPECT_EQ(font.lfPitchAndFamily, 0);
    EXPECT_EQ(font.lfQuality, PROOF_QUALITY);
    EXPECT_STREQ(font.lfFaceName, "Arial");
    font = described(numberOf("Arial"), 9, 0xFF);
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    EXPECT_TRUE(font.lfItalic && font.lfUnderline);
    EXPECT_FALSE(font.lfStrikeOut);
    font = described(numberOf("Helvetica"), 9, 2);
    EXPECT_EQ(font.lfCharSet, ANSI_CHARSET);
    EXPECT_EQ(font.lfPitchAndFamily, FF_SWISS);
    EXPECT_EQ(font.lfWeight, FW_NORMAL);
    EXPECT_TRUE(font.lfItalic);
}

TEST_F(Fonts, LocksCountAndHoldAtTheEnd)
{
    FontInstance *instance = nullptr, *none = nullptr;
    HFONT font = nullptr;
    EXPECT_EQ(MTBX_LockHFnt(nullptr, &font), kFontBadParameter);
    EXPECT_EQ(MTBX_LockHFnt(&none, &font), kFontBadParameter);
    EXPECT_EQ(MTBX_UnlockHFnt(&none), kFontBadParameter);
    MTBX_GetHFntFromFNum(0, 12, 0, &instance);
    EXPECT_EQ(MTBX_UnlockHFnt(&instance), kFontNotLocked);
    EXPECT_EQ(+instance->lockCount, -1);
    EXPECT_EQ(MTBX_LockHFnt(&instance, &font), kFontNoError);
    EXPECT_EQ(font, +instance->hFont);
    EXPECT_EQ(MTBX_LockHFnt(&instance, &font), kFontNoError);
    EXPECT_EQ(MTBX_ShutdownFonts(), kFontLocked);
    EXPECT_EQ(nameOf(0), "");
    EXPECT_EQ(MTBX_ShutdownFonts(), kFontNoError) << "nothing to end";
    EXPECT_EQ(descriptionOf(font).lfHeight, -12) << "still there for its holder";
    InitFonts();
    EXPECT_EQ(MTBX_UnlockHFnt(&instance), kFontNoError);
    EXPECT_EQ(MTBX_ShutdownFonts(), kFontNoError);
    EXPECT_EQ(GetObjectType(font), 0u) << "deleted once it is free";
}

TEST_F(Fonts, TheSmallFontIsFetchedOnce)
{
    HFONT font = nullptr, again = nullptr;
    MTBX_SetSmallFont(3, 9, 0);
    EXPECT_EQ(MTBX_GetSmallHFnt(&font), kFontBadNumber);
    EXPECT_FALSE(font);
    MTBX_SetSmallFont(0, 9, 1);
    EXPECT_EQ(MTBX_GetSmallHFnt(&font), kFontNoError);
    EXPECT_EQ(descriptionOf(font).lfHeight, -9);
    EXPECT_STREQ(descriptionOf(font).lfFaceName, "OrvZpLg");
    MTBX_SetSmallFont(0, 20, 0);
    EXPECT_EQ(MTBX_GetSmallHFnt(&again), kFontNoError);
    EXPECT_EQ(again, font);
    FontInstance *instance = nullptr;
    MTBX_GetHFntFromFNum(0, 9, 1, &instance);
    EXPECT_EQ(+instance->lockCount, 1);
    EXPECT_EQ(MTBX_ShutdownFonts(), kFontNoError);
    InitFonts();
    MTBX_GetSmallHFnt(&font);
    EXPECT_EQ(descriptionOf(font).lfHeight, -20);
}

TEST(FontsBeforeStart, ThereAreNone)
{
    SInt16 number = 5;
    FontInstance *instance = nullptr, **place = &instance;
    GetFNum(Pascal("Arial"), &number);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(MTBX_GetHFntFromFNum(0, 12, 0, &instance), kFontBadNumber);
    EXPECT_EQ(MTBX_GetHFntFromFacename("Arial", 12, 0, &place), kFontNoMemory);
    EXPECT_EQ(GetSysFont(), 0);
    EXPECT_EQ(GetDefFontSize(), 0);
    InitFonts();
    EXPECT_EQ(FMGetFontFamilyFromName(Pascal("Arial")), 10);
    EXPECT_EQ(MTBX_ShutdownFonts(), kFontNoError);
}

class FontMeasures : public TextCanvas {};

TEST_F(FontMeasures, MetricsAndTheTableOfWidths)
{
    TextSize(20);
    TextFace(1);
    EXPECT_EQ(GetSysFont(), arial);
    EXPECT_EQ(GetDefFontSize(), 20);
    SetFractEnable(true);
    PlainFont plain("Arial", 20, 1);
    TEXTMETRICA expected = plain.metrics();
    FMetricRec metrics;
    FontMetrics(&metrics);
    EXPECT_EQ(+metrics.ascent, expected.tmAscent << 16);
    EXPECT_EQ(+metrics.descent, expected.tmDescent << 16);
    EXPECT_EQ(+metrics.leading, expected.tmExternalLeading << 16);
    EXPECT_EQ(+metrics.widMax, expected.tmMaxCharWidth << 16);
    auto table = reinterpret_cast<WidthTable **>(metrics.wTabHandle);
    for (int code = 32; code < 256; ++code)
        EXPECT_EQ((*table)->tabData[code], plain.extent(std::string(1, static_cast<char>(code))).cx << 16) << code;
    const UInt8 last[4] = {0, 0, 0, 1};
    EXPECT_EQ(memcmp(&(*table)->aSize, last, 4), 0);
    EXPECT_EQ(+(*table)->vOutput, 1);
    EXPECT_EQ(+(*table)->hFactor, 1);
    EXPECT_EQ(+(*table)->fSize, 0);
    EXPECT_EQ(port()->portFontDirty, 1) << "taken out of the context again";
    Handle first = metrics.wTabHandle;
    FontMetrics(&metrics);
    EXPECT_EQ(+metrics.wTabHandle, first);
    MTBX_SetStringConstant(6, "HEIGHT=3");
    FontMetrics(&metrics);
    EXPECT_EQ(+metrics.leading, (expected.tmExternalLeading + 3) << 16);
    MTBX_SetStringConstant(6, "VERTICAL_FONT_HEIGHT_ADJUSTMENT=0");
}

} // namespace
