// Errors, strings, settings, and the questions on the environment.
#include "DebugOutput.h"
#include "Journal.h"
#include "Settings.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(Errors, Win32ErrorsBecomeResultCodes)
{
    struct {
        UInt32 win32;
        SInt32 result;
    } const cases[] = {
        {0, -32000}, {0x10000, -32000}, {2, -43},     {3, -43},    {0x10002, -43}, {8, -108},  {14, -108},
        {19, -44},   {32, -47},         {33, -54},    {38, -39},   {39, -34},      {112, -34}, {52, -48},
        {80, -48},   {183, -48},        {1001, -149}, {1117, -36}, {1002, 1002},   {5, 5},     {0xFFFF, 0xFFFF}};
    for (auto &[win32, result] : cases)
        EXPECT_EQ(MTBX_ConvertError(win32), result) << win32;
    SetLastError(ERROR_SHARING_VIOLATION);
    EXPECT_EQ(MTBX_GetLastError(), -47);
}

TEST(Strings, BirthKeepsAndDeathRestoresTheTable)
{
    Journal journal;
    EXPECT_EQ(MTBX_StringDeath(), -50) << "nothing is kept yet";
    EXPECT_EQ(MTBX_StringBirth(), 0);
    EXPECT_EQ(MTBX_StringBirth(), -50);
    EXPECT_EQ(MTBX_SetStringConstant(2, "Fehler"), 0);
    EXPECT_EQ(MTBX_StringDeath(), 0);
    EXPECT_EQ(MTBX_StringBirth(), -50) << "what was kept stays kept";
    std::vector<Journal::Record> expected = {{10, "MTBX", "Death", "MTBX String Death"},
                                             {10, "MTBX", "Birth", "MTBX String Birth"},
                                             {10, "MTBX", "Birth", "MTBX String Birth"},
                                             {10, "MTBX", "Death", "MTBX String Death"},
                                             {10, "MTBX", "Birth", "MTBX String Birth"}};
    EXPECT_EQ(journal.records, expected);
}

TEST(Strings, OnlyTheTwentyFiveIndicesAreTaken)
{
    EXPECT_EQ(MTBX_SetStringConstant(25, "x"), -50);
    EXPECT_EQ(MTBX_SetStringConstant(-1, "x"), -50);
    EXPECT_EQ(MTBX_SetStringConstant(24, "File path '%s' is too long."), 0);
}

TEST(Strings, StringResourcesOfTheHostOrTheDefault)
{
    char buffer[64];
    MTBX_LoadWinString(17, buffer, sizeof buffer, "default");
    EXPECT_STREQ(buffer, "A string of the host");
    MTBX_LoadWinString(17, buffer, 9, "default");
    EXPECT_STREQ(buffer, "A string");
    MTBX_LoadWinString(4000, buffer, sizeof buffer, "default");
    EXPECT_STREQ(buffer, "default");
    MTBX_LoadWinString(4000, buffer, 2, "copied whole");
    EXPECT_STREQ(buffer, "copied whole");
}

TEST(DebugOutputCalls, DebugStrWritesTextAndLineEndApart)
{
    DebugOutput output;
    DebugStr(reinterpret_cast<ConstStr255Param>("\5Hello"));
    DebugStr(reinterpret_cast<ConstStr255Param>("\0"));
    StubError("File", "Function");
    PartialStubError("File", "Function", "message");
    std::vector<std::string> expected = {"Hello", "\n", "", "\n"};
    EXPECT_EQ(output.texts(), expected);
}

TEST(Settings, RequiredSettingIsWrittenWhenMissingOrEmpty)
{
    Settings settings("Empty=\r\nZero=0\r\nWord=abc\r\nNegative=-3\r\n");
    EXPECT_EQ(MTBX_GetRequiredProfileInt("Absent", 9), 9);
    EXPECT_EQ(settings.value("Absent"), "9");
    EXPECT_EQ(MTBX_GetRequiredProfileInt("Empty", -7), -7);
    EXPECT_EQ(settings.value("Empty"), "-7");
    EXPECT_EQ(MTBX_GetRequiredProfileInt("Zero", 5), 0);
    EXPECT_EQ(MTBX_GetRequiredProfileInt("Word", 5), 0);
    EXPECT_EQ(MTBX_GetRequiredProfileInt("Negative", 5), -3);
    EXPECT_EQ(MTBX_SetProfileInt("Written", INT32_MIN), 0);
    EXPECT_EQ(settings.value("Written"), "-2147483648");
}

TEST(Settings, UnwritableFileGivesDefaultsAndAnError)
{
    std::string previous = MTBX_GetZPPrefsFile();
    MTBX_SetZPPrefsFile("Z:\\no such folder\\deeper\\settings.ini");
    EXPECT_EQ(MTBX_GetRequiredProfileInt("Absent", 3), 3);
    EXPECT_NE(MTBX_SetProfileInt("Absent", 3), 0);
    MTBX_SetZPPrefsFile(previous.c_str());
}

TEST(Settings, LongPathIsCut)
{
    std::string previous = MTBX_GetZPPrefsFile();
    MTBX_SetZPPrefsFile(std::string(5000, 'x').c_str());
    EXPECT_EQ(std::string(MTBX_GetZPPrefsFile()), std::string(259, 'x'));
    MTBX_SetZPPrefsFile(previous.c_str());
}

TEST(Environment, GestaltAnswersZeroAndTellsOnce)
{
    DebugOutput output;
    for (OSType selector : {0x73797376u, 0u}) {
        SInt32 response = 1;
        EXPECT_EQ(Gestalt(selector, &response), 0);
        EXPECT_EQ(response, 0);
    }
    EXPECT_EQ(output.texts(), std::vector<std::string>{"NA Gestalt(), GestaltEqu.c\r\n"});
}

TEST(Environment, SysEnvironsKnowsVersionsZeroToTwo)
{
    SysEnvRec untouched;
    memset(&untouched, 0x55, sizeof untouched);
    SysEnvRec record = untouched;
    EXPECT_EQ(SysEnvirons(-1, &record), -5501);
    EXPECT_EQ(SysEnvirons(3, &record), -5502);
    EXPECT_EQ(memcmp(&record, &untouched, sizeof record), 0);
    EXPECT_EQ(SysEnvirons(2, &record), 0);
    EXPECT_EQ(record.environsVersion, 2);
    EXPECT_EQ(record.systemVersion, 0x750);
    EXPECT_EQ(record.hasFPU, 1);
    EXPECT_EQ(record.hasColorQD, 1);
    EXPECT_EQ(record.machineType, 0);
    EXPECT_EQ(record.atDrvrVersNum, 0x5555) << "not written";
    char folder[MAX_PATH];
    GetSystemDirectoryA(folder, sizeof folder);
    EXPECT_EQ(record.sysVRefNum, static_cast<SInt16>(GetDirectoryID(folder)));
}

TEST(Environment, DirectoryIDsAreStableAndIgnoreCase)
{
    SInt32 first = GetDirectoryID("C:\\Foo");
    char withSeparator[] = "C:\\FOO\\";
    EXPECT_EQ(GetDirectoryID("c:\\foo"), first);
    EXPECT_EQ(GetDirectoryID(withSeparator), first);
    EXPECT_STREQ(withSeparator, "C:\\FOO\\");
    EXPECT_GE(first, 3);
    EXPECT_EQ(GetDirectoryID(""), 3);
    EXPECT_EQ(GetDirectoryID(nullptr), 3);
    SInt32 previous = GetDirectoryID("C:\\first of many");
    for (int number = 1; number < 1000; ++number) {
        std::string path = "C:\\many\\" + std::to_string(number);
        SInt32 id = GetDirectoryID(path.c_str());
        ASSERT_EQ(id, previous + 1);
        previous = id;
    }
    EXPECT_EQ(GetDirectoryID("C:\\MANY\\500"), previous - 499);
    EXPECT_EQ(GetDirectoryID("C:\\Foo"), first);
    std::string tooLong = "C:\\" + std::string(1000, 'x');
    EXPECT_EQ(GetDirectoryID(tooLong.c_str()), previous + 1);
}

TEST(Environment, LowMemoryAccessorsKnowTheHostsResourceFile)
{
    EXPECT_EQ(InitResources(), 0);
    EXPECT_EQ(LMGetCurApRefNum(), 1000);
    EXPECT_EQ(CurResFile(), 1000);
    EXPECT_EQ(GetResFileInst(1000), hResInst);
    EXPECT_EQ(GetResFileInst(999), nullptr);
    UseResFile(1005);
    EXPECT_EQ(ResError(), 0);
    UseResFile(1010);
    EXPECT_EQ(ResError(), -51);
    EXPECT_EQ(CurResFile(), 1005);
    MTBX_ShutdownResources();
    EXPECT_EQ(GetResFileInst(1000), reinterpret_cast<HMODULE>(static_cast<INT_PTR>(-1)));
    EXPECT_EQ(LMGetWindowList(), gFrontWindow);
}

TEST(Globals, BeginWithTheirDocumentedValues)
{
    EXPECT_EQ(gAnimCursor, 1);
    EXPECT_EQ(gCreate_DIB_B, 1);
    EXPECT_EQ(G_useSecondButton, 0);
    EXPECT_EQ(gTheEvent.what, 0);
    GrafPtr port = qd.thePort; // by value: packed records misalign their pointers
    EXPECT_EQ(port, nullptr);
    EXPECT_EQ(hWndMain, nullptr);
    InitWindows();
    TEInit();
    InitDialogs();
    MTBX_ShutdownDialogs();
    EXPECT_EQ(gFrontWindow, nullptr);
}

TEST(PascalStrings, ConvertInPlaceBothWays)
{
    char text[300] = "Text";
    EXPECT_EQ(c2pstr(text), reinterpret_cast<StringPtr>(text));
    EXPECT_EQ(std::string(text, 5), "\4Text");
    EXPECT_STREQ(p2cstr(reinterpret_cast<StringPtr>(text)), "Text");
    memset(text, 'x', 299);
    text[299] = 0;
    c2pstr(text);
    EXPECT_EQ(static_cast<unsigned char>(text[0]), 255);
    p2cstr(reinterpret_cast<StringPtr>(text));
    EXPECT_EQ(strlen(text), 255u);
    char empty[2] = "";
    EXPECT_EQ(c2pstr(empty)[0], 0);
}

TEST(PascalStrings, CopyTakesNullsAndOverlap)
{
    unsigned char text[16] = "\5Hello";
    EXPECT_EQ(pstrcpy(text + 1, text), text + 1);
    EXPECT_EQ(std::string(reinterpret_cast<char *>(text + 1), 6), "\5Hello");
    EXPECT_EQ(pstrcpy(text, nullptr), text);
    EXPECT_EQ(text[0], 0);
    EXPECT_EQ(pstrcpy(nullptr, text), nullptr);
}

} // namespace
