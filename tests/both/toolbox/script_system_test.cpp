// Scripts by way of the system's font and figures.
#include <mtbx/Script.h>

#include <gtest/gtest.h>

namespace {

UInt8 systemCharacterSet()
{
    LOGFONTA description;
    GetObjectA(GetStockObject(SYSTEM_FONT), sizeof description, &description);
    return description.lfCharSet;
}

TEST(ScriptSystem, ScriptsHaveCharacterSetsAndCodePages)
{
    const int sets[] = {0, 128, 136, 129, 178, 177, 161, 204, 0, 0,   0, 0, 0, 0,   0,  0,
                        0, 0,   0,   0,   0,   222, 0,   0,   0, 134, 0, 0, 0, 238, 163};
    const UInt32 pages[] = {1252, 932, 950, 949, 1256, 1255, 1253, 1251};
    for (ScriptCode script = 0; script <= 30; ++script)
        EXPECT_EQ(MTBX_MacScriptToCharSet(script), sets[script]) << script;
    for (ScriptCode script = 0; script < 8; ++script)
        EXPECT_EQ(MTBX_MacScriptToCodePage(script), pages[script]) << script;
    EXPECT_EQ(MTBX_MacScriptToCodePage(8), 1252u);
    EXPECT_EQ(MTBX_MacScriptToCodePage(21), 874u);
    for (ScriptCode none : {-3, -32768, 31, 32767})
        EXPECT_EQ(MTBX_MacScriptToCharSet(none), 0) << none;
    EXPECT_EQ(MTBX_MacScriptToCharSet(smSystemScript), systemCharacterSet());
    EXPECT_EQ(MTBX_MacScriptToCodePage(smSystemScript), MTBX_CharsetToCodePage(systemCharacterSet()));
}

TEST(ScriptSystem, BytesAreOfTheScriptThatIsNamed)
{
    const char text[] = "a\x83\x5c\x82\xa0"
                        "b";
    const SInt16 japanese[] = {0, -1, 1, -1, 1, 0, 0};
    for (SInt16 offset = 0; offset < 7; ++offset) {
        EXPECT_EQ(CharacterByteType(text, offset, smJapanese), japanese[offset]) << offset;
        EXPECT_EQ(CharacterByteType(text, offset, smRoman), smSingleByte) << offset;
    }
    EXPECT_EQ(CharacterByteType("\xe0\xa0", 0, smJapanese), smFirstByte);
    EXPECT_EQ(CharacterByteType("\xa1\xa1\xa1", 1, smKorean), smLastByte);
    EXPECT_EQ(CharacterByteType("\xa1\xa1\xa1", 2, smKorean), smFirstByte);
    EXPECT_EQ(CharacterByteType(text, -1, smRoman), smLastByte);
}

TEST(ScriptSystem, VariablesAreTheSystemsFigures)
{
    EXPECT_EQ(GetScriptManagerVariable(smKeyScript), smRoman);
    EXPECT_EQ(GetScriptManagerVariable(smDoubleByte), GetSystemMetrics(SM_DBCSENABLED));
    EXPECT_EQ(GetScriptManagerVariable(38), 0);
    EXPECT_EQ(GetScriptVariable(smSystemScript, 0), 0);
    EXPECT_EQ(GetMBarHeight(), GetSystemMetrics(SM_CYMENU));
    EXPECT_GT(GetMBarHeight(), 0);
}

} // namespace
