#include "vertical_text.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace win32::gdi {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range fullWidths[] = {{0x1100, 0x115f}, {0x2e80, 0x303e}, {0x3041, 0xa4cf}, {0xac00, 0xd7a3},
                                {0xf900, 0xfaff}, {0xfe30, 0xfe6f}, {0xff01, 0xff60}, {0xffe0, 0xffe6}};

constexpr Range signsOfLines[] = {
    {0x2010, 0x2016}, // hyphens, dashes
    {0x2018, 0x201f}, // quotation marks
    {0x2025, 0x2026}, // dots in a row
    {0x2190, 0x2199}, // arrows
    {0x2500, 0x257f}, // frames
    {0x3008, 0x3011}, // brackets
    {0x3014, 0x301f}, // more of these, the wave
    {0x3030, 0x3030}, // the wavy dash
    {0x30a0, 0x30a0}, // the double hyphen
    {0x30fc, 0x30fc}, // the mark of long vowels
    {0xff08, 0xff09}, {0xff0d, 0xff0d}, {0xff1a, 0xff1e}, {0xff3b, 0xff3b},
    {0xff3d, 0xff3d}, {0xff3f, 0xff3f}, {0xff5b, 0xff60}, {0xffe3, 0xffe3},
};

bool isIn(std::span<const Range> ranges, char32_t character)
{
    return std::any_of(ranges.begin(), ranges.end(),
                       [character](const Range &range) { return character >= range.first && character <= range.last; });
}

} // namespace

bool isVerticalFace(const LOGFONTA &description)
{
    return description.lfFaceName[0] == '@';
}

bool isFullWidth(char32_t character)
{
    return isIn(fullWidths, character);
}

bool followsItsLine(char32_t character)
{
    return isIn(signsOfLines, character);
}

} // namespace win32::gdi
