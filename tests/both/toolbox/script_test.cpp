// Scripts, character sets, code pages, and the bytes of double-byte text.
#include "Pascal.h"
#include "TemporaryFolder.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

TEST(Script, CharacterSetsHaveCodePagesAndScripts)
{
    struct {
        UInt8 characterSet;
        UInt32 codePage;
        ScriptCode script;
    } const known[] = {
        {128, 932, 1},   {136, 950, 2},  {129, 949, 3},  {178, 1256, 4}, {177, 1255, 5},
        {161, 1253, 6},  {204, 1251, 7}, {222, 874, 21}, {134, 936, 25}, {238, 1250, 29},
        {163, 1258, 30}, {130, 949, 0},  {162, 1254, 0}, {186, 1257, 0},
    };
    std::set<int> seen = {1};
    for (auto &[characterSet, codePage, script] : known) {
        EXPECT_EQ(MTBX_CharsetToCodePage(characterSet), codePage) << +characterSet;
        EXPECT_EQ(MTBX_CharSetToScript(characterSet), script) << +characterSet;
        seen.insert(characterSet);
    }
    EXPECT_EQ(MTBX_CharsetToCodePage(1), GetACP());
    EXPECT_EQ(MTBX_CharSetToScript(1), smRoman);
    for (int other = 0; other < 256; ++other) {
        if (seen.count(other))
            continue;
        EXPECT_EQ(MTBX_CharsetToCodePage(static_cast<UInt8>(other)), 1252u) << other;
        EXPECT_EQ(MTBX_CharSetToScript(static_cast<UInt8>(other)), smRoman) << other;
    }
}

TEST(Script, CharByteFollowsTheCodePageOfTheSystem)
{
    // In Japanese text: "a", a character whose second byte is that of a backslash, one whose second byte
    // could begin another, and "b".
    const char text[] = "a\x83\x5c\x82\xa0"
                        "b";
    const SInt16 japanese[] = {0, -1, 1, -1, 1, 0, 0};
    bool isJapanese = GetACP() == 932;
    for (SInt16 offset = 0; offset < 7; ++offset)
        EXPECT_EQ(CharByte(text, offset), isJapanese ? japanese[offset] : 0) << offset;
    EXPECT_EQ(CharByte(text, -1), smLastByte);
}

TEST(Script, IntlResourcesAreKeptAsTheyWereWhenFirstAskedFor)
{
    TemporaryFolder folder("mtbx-script");
    std::string numbers = "0123456789abcdefghijklmnopqrstuv", path = folder.path("intl.txt");
    WritePrivateProfileStringA("itl0", "128_Size", "32", path.c_str());
    WritePrivateProfileStructA("itl0", "128", numbers.data(), 32, path.c_str());
    InitResources();
    OpenResFile(Pascal(path));
    MTBX_BeginEnableSearchResourcesInTextFiles();
    Handle found = GetIntlResource(7), missing = GetIntlResource(1);
    std::string dates(400, 'd');
    WritePrivateProfileStringA("itl1", "128_Size", "400", path.c_str());
    WritePrivateProfileStructA("itl1", "128", dates.data(), 400, path.c_str());
    MTBX_ShutdownResources();
    ASSERT_NE(found, nullptr);
    ASSERT_NE(*found, nullptr);
    EXPECT_EQ(std::string(*found, 32), numbers);
    EXPECT_EQ(GetIntlResource(0), found);
    ASSERT_NE(missing, nullptr);
    EXPECT_EQ(*missing, nullptr);
    EXPECT_EQ(GetIntlResource(1), missing);
    EXPECT_EQ(*missing, nullptr) << "a missing resource is not looked for again";
    MTBX_EndEnableSearchResourcesInTextFiles();
}

} // namespace
