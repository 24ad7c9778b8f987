// A code page as two tables, made once from the C library's iconv.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace win32 {

struct ByteRange {
    BYTE first;
    BYTE last;
};

struct CodePage {
    UINT number;
    const char *iconvName; // null for UTF-8, which needs no table
    ByteRange leadBytes[2];

    bool isLeadByte(unsigned byte) const
    {
        for (const ByteRange &range : leadBytes) {
            if (byte >= range.first && byte <= range.last)
                return true;
        }
        return false;
    }
    bool isDoubleByte() const { return leadBytes[0].first <= leadBytes[0].last; }
};

// The page with the number, or null when the layer has none. CP_ACP, CP_OEMCP and CP_THREAD_ACP are the
// active page.
const CodePage *findCodePage(UINT number);

// The page that ANSI calls use.
const CodePage &activeCodePage();

// Codes are one byte, or a lead byte in the high and a trail byte in the low half. 0 stands for what has
// no counterpart, but for the code 0 itself.
struct CodePageTable {
    char16_t fromCode[65536];
    uint16_t toCode[65536];
};

// Throws std::bad_alloc; later calls are quick. The page must not be UTF-8.
const CodePageTable &codePageTable(const CodePage &page);

} // namespace win32
