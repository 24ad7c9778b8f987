// Conversion between code pages and UTF-16, and steps through double-byte text.
#include <windows.h>

#include <mbstring.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

std::vector<unsigned> decode(UINT page, const std::string &text)
{
    WCHAR wide[64];
    int count = MultiByteToWideChar(page, 0, text.data(), static_cast<int>(text.size()), wide, 64);
    return std::vector<unsigned>(wide, wide + count);
}

std::string encode(UINT page, const std::vector<unsigned> &units, BOOL *replaced = nullptr)
{
    std::vector<WCHAR> wide(units.begin(), units.end());
    char text[64];
    int count = WideCharToMultiByte(page, page == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS, wide.data(),
                                    static_cast<int>(wide.size()), text, 64, nullptr, replaced);
    return std::string(text, static_cast<size_t>(count));
}

TEST(CodePages, OneTextOfEachPageBothWays)
{
    struct {
        UINT page;
        std::string text;
        std::vector<unsigned> units;
    } const cases[] = {
        {874, "\xa1\xdf", {0x0e01, 0x0e3f}},
        {932, "A\x82\xa0\xb1\x81\x5c\xf0\x40", {'A', 0x3042, 0xff71, 0x2015, 0xe000}},
        {936, "\xd6\xd0\x80\xaa\xa1\xa1\x40", {0x4e2d, 0x20ac, 0xe000, 0xe4c6}},
        {949, "\xb0\xa1\x81\x41\xc9\xa1", {0xac00, 0xac02, 0xe000}},
        {950, "\xa4\xa4\xfa\x40\x8e\x40", {0x4e2d, 0xe000, 0xe311}},
        {1250, "\x8a\xec\x81", {0x0160, 0x011b, 0x0081}},
        {1251, "\xc6\xff\x98", {0x0416, 0x044f, 0x0098}},
        {1252, "\x80\xe9\x81\x9d", {0x20ac, 0x00e9, 0x0081, 0x009d}},
        {1253, "\xe1\xaa", {0x03b1, 0xf8f9}},
        {1254, "\xfd\xdd", {0x0131, 0x0130}},
        {1255, "\xe0\xc0\xca\xd9", {0x05d0, 0x05b0, 0x05ba, 0xf88d}},
        {1256, "\xc7\xff", {0x0627, 0x06d2}},
        {1257, "\xe0\xa1", {0x0105, 0xf8fc}},
        {1258,
         "\xd0\xd2"
         "a\xec",
         {0x0110, 0x0309, 'a', 0x0301}},
        {CP_UTF8, "A\xc3\xa9\xe4\xb8\xad\xf0\x9f\x98\x80", {'A', 0xe9, 0x4e2d, 0xd83d, 0xde00}},
    };
    for (auto &[page, text, units] : cases) {
        EXPECT_EQ(decode(page, text), units) << page;
        EXPECT_EQ(encode(page, units), text) << page;
    }
}

TEST(CodePages, EveryByteOfAOneBytePageSurvivesTheWayToUtf16AndBack)
{
    for (UINT page : {874u, 1250u, 1251u, 1252u, 1253u, 1254u, 1255u, 1256u, 1257u, 1258u}) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string text(1, static_cast<char>(byte));
            ASSERT_EQ(encode(page, decode(page, text)), text) << page << ' ' << byte;
        }
    }
}

TEST(CodePages, WhatAPageLacksIsReplacedAndReported)
{
    BOOL replaced = FALSE;
    EXPECT_EQ(encode(1252, {'a', 0x4e2d, 'b'}, &replaced), "a?b");
    EXPECT_TRUE(replaced);
    EXPECT_EQ(encode(1252, {'a', 'b'}, &replaced), "ab");
    EXPECT_FALSE(replaced);
    WCHAR wide = 0x4e2d;
    char text[8];
    EXPECT_EQ(WideCharToMultiByte(1252, WC_NO_BEST_FIT_CHARS, &wide, 1, text, 8, "_", nullptr), 1);
    EXPECT_EQ(text[0], '_');
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, "a\xff", 2, nullptr, 0), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION));
    for (const char *malformed : {"\x80", "\xc0\x80", "\xe0\x80\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe4\xb8"})
        EXPECT_EQ(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, malformed, -1, nullptr, 0), 0) << malformed;
}

TEST(CodePages, SizesAreCountedAndChecked)
{
    WCHAR wide[4];
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", -1, wide, 4), 4);
    EXPECT_EQ(wide[3], 0);
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", -1, wide, 3), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(MultiByteToWideChar(1252, 0, "abc", 0, wide, 4), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(MultiByteToWideChar(12345, 0, "abc", -1, wide, 4), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    wide[0] = 0x4e2d;
    EXPECT_EQ(WideCharToMultiByte(932, 0, wide, 1, nullptr, 0, nullptr, nullptr), 2);
    char one;
    EXPECT_EQ(WideCharToMultiByte(932, 0, wide, 1, &one, 1, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
}

TEST(CodePages, StepsKeepDoubleByteCharactersWhole)
{
    const char text[] = "a\x83\x5c\\b";
    const char *ends[] = {text, text + 1, text + 3, text + 4, text + 5};
    for (int step = 0; step < 4; ++step) {
        EXPECT_EQ(CharNextExA(932, ends[step], 0), ends[step + 1]);
        EXPECT_EQ(CharPrevExA(932, text, ends[step + 1], 0), ends[step]);
    }
    EXPECT_EQ(CharNextExA(932, text + 5, 0), text + 5);
    EXPECT_EQ(CharPrevExA(932, text, text, 0), text);
    EXPECT_EQ(CharPrevExA(1252, text, text + 3, 0), text + 2);
}

TEST(CodePages, SearchesNeverTakeATrailByteForACharacter)
{
    if (GetACP() != 932)
        GTEST_SKIP() << "runs with the active code page 932 only";
    auto text = reinterpret_cast<const unsigned char *>("\x83\x5c\\x\x83\x5c");
    EXPECT_EQ(_mbschr(text, '\\'), text + 2);
    EXPECT_EQ(_mbsrchr(text, '\\'), text + 2);
    EXPECT_EQ(_mbschr(text, 0x835c), text);
    EXPECT_EQ(_mbsrchr(text, 0x835c), text + 4);
}

} // namespace
