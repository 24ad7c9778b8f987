// Safe mode of fonts, with families that the test tells of.
#include "Fonts/Fonts_internal.h"
#include "Settings.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

LOGFONTA family(const char *face, BYTE charSet)
{
    LOGFONTA font = {};
    strcpy(font.lfFaceName, face);
    font.lfCharSet = charSet;
    font.lfWeight = 900;
    font.lfItalic = 1;
    return font;
}

class SafeFonts : public testing::Test {
protected:
    SafeFonts() { InitFonts(); }
    ~SafeFonts() override
    {
        MTBX_ShutdownFonts();
        fonts::safeMode = {};
    }

    static LOGFONTA described(SInt16 size, UInt16 style)
    {
        FontInstance *instance = nullptr;
        EXPECT_EQ(MTBX_GetHFntFromFNum(0, size, style, &instance), kFontNoError);
        LOGFONTA font = {};
        GetObjectA(instance->hFont, sizeof font, &font);
        return font;
    }

    Settings settings;
};

TEST_F(SafeFonts, TheFirstScalableFamilyOfADoubleByteSetIsTaken)
{
    using fonts::Search;
    auto consider = [](const char *face, BYTE charSet, DWORD type) {
        return fonts::considerForSafeMode(family(face, charSet), type);
    };
    EXPECT_EQ(consider("Latin", ANSI_CHARSET, TRUETYPE_FONTTYPE), Search::GoOn);
    EXPECT_EQ(consider("@Upright", SHIFTJIS_CHARSET, TRUETYPE_FONTTYPE), Search::GoOn);
    EXPECT_FALSE(fonts::safeMode.isOn);
    EXPECT_EQ(consider("Raster", GB2312_CHARSET, RASTER_FONTTYPE), Search::GoOn);
    EXPECT_TRUE(fonts::safeMode.isOn);
    EXPECT_EQ(fonts::safeMode.smallSize, 12);
    EXPECT_EQ(consider("Gothic", HANGUL_CHARSET, TRUETYPE_FONTTYPE), Search::Stop);
    EXPECT_EQ(fonts::safeMode.smallSize, 10);
    EXPECT_STREQ(fonts::safeMode.font.lfFaceName, "Gothic");
}

TEST_F(SafeFonts, AllFontsAreThatFaceWithoutStylesInReadableSizes)
{
    FontInstance *held = nullptr;
    HFONT font = nullptr, small = nullptr;
    MTBX_GetHFntFromFNum(0, 12, 1, &held);
    MTBX_LockHFnt(&held, &font);
    MTBX_SetSmallFont(0, 9, 0);
    MTBX_GetSmallHFnt(&small);
    fonts::considerForSafeMode(family("Gothic", SHIFTJIS_CHARSET), TRUETYPE_FONTTYPE);
    settings.write("[Zephant]\r\nLargeInterfaceFontSize=17\r\n");
    fonts::enterSafeMode();
    EXPECT_EQ(settings.value("SmallInterfaceFontSize"), "10");
    EXPECT_EQ(settings.value("LargeInterfaceFontSize"), "17");
    EXPECT_EQ(settings.value("InterfaceFontName"), "Gothic");
    Str255 name;
    GetFontName(1, name);
    EXPECT_EQ(std::string(reinterpret_cast<char *>(name + 1), name[0]), "Gothic");
    EXPECT_FALSE(+held->hFont) << "the old font is gone for its holder";
    EXPECT_EQ(MTBX_UnlockHFnt(&held), kFontNoError);
    for (auto [size, height] : {std::pair(9, 10), {10, 12}, {12, 17}, {11, 11}}) {
        LOGFONTA description = described(static_cast<SInt16>(size), 7);
        EXPECT_EQ(description.lfHeight, -height);
        EXPECT_EQ(description.lfWeight, FW_NORMAL);
        EXPECT_FALSE(description.lfItalic || description.lfUnderline);
        EXPECT_EQ(description.lfCharSet, SHIFTJIS_CHARSET);
        EXPECT_STREQ(description.lfFaceName, "Gothic");
    }
    MTBX_GetSmallHFnt(&small);
    LOGFONTA description = {};
    GetObjectA(small, sizeof description, &description);
    EXPECT_EQ(description.lfHeight, -10) << "fetched anew";
}

TEST_F(SafeFonts, ASettingNamesAnotherFace)
{
    settings.write("[Zephant]\r\nInterfaceFontName=A face of the user's\r\n");
    fonts::considerForSafeMode(family("Gothic", CHINESEBIG5_CHARSET), TRUETYPE_FONTTYPE);
    fonts::enterSafeMode();
    EXPECT_STREQ(described(9, 0).lfFaceName, "A face of the user's");
    EXPECT_EQ(described(9, 0).lfHeight, -12);
}

TEST_F(SafeFonts, WithoutSuchAFamilyNothingChanges)
{
    fonts::enterSafeMode();
    EXPECT_STREQ(described(9, 1).lfFaceName, "OrvZpLg");
    EXPECT_EQ(described(9, 1).lfWeight, FW_BOLD);
    EXPECT_EQ(settings.value("InterfaceFontName"), "(none)");
}

TEST_F(SafeFonts, TheSystemsOwnFamiliesAreSearched)
{
    // With or without such a font on this machine.
    MTBX_SetDBCSSafeModeFonts();
    EXPECT_STREQ(described(9, 0).lfFaceName, fonts::safeMode.isOn ? fonts::safeMode.font.lfFaceName : "OrvZpLg");
}

} // namespace
