// The family names of Windows and Macintosh programs.
#include "font_catalog.h"

#include "kernel/kernel_internal.h"

#include <algorithm>

namespace win32::gdi {
namespace {

#define SANS "Liberation Sans", "Arimo", "Nimbus Sans", "DejaVu Sans"
#define WIDE_SANS "DejaVu Sans", "Bitstream Vera Sans", "Noto Sans", "Liberation Sans"
#define SERIF "Liberation Serif", "Tinos", "Nimbus Roman", "DejaVu Serif"
#define MONO "Liberation Mono", "Cousine", "Nimbus Mono PS", "DejaVu Sans Mono"
#define GOTHIC "IPAGothic", "Noto Sans CJK JP", "TakaoGothic", "VL Gothic"
#define MINCHO "IPAMincho", "Noto Serif CJK JP", "TakaoMincho"

} // namespace

// Metrically equal families come first. The raster fonts of fixed pitch are the built-in font.
const std::vector<FamilyName> &familyNames()
{
    static const auto *names = new std::vector<FamilyName>{
        {"Arial", true, {SANS}},
        {"Arial Narrow", false, {"Liberation Sans Narrow", "DejaVu Sans Condensed"}},
        {"Batang", false, {"Noto Serif CJK KR", "NanumMyeongjo", "UnBatang"}},
        {"Charcoal", false, {WIDE_SANS}},
        {"Chicago", false, {WIDE_SANS}},
        {"Consolas", false, {MONO}},
        {"Courier", true, {MONO}},
        {"Courier New", true, {MONO}},
        {"Fixedsys", true, {}},
        {"Geneva", false, {WIDE_SANS}},
        {"Georgia", false, {SERIF}},
        {"Gulim", false, {"Noto Sans CJK KR", "NanumGothic", "UnDotum"}},
        {"Helv", false, {SANS}},
        {"Helvetica", false, {SANS}},
        {"Lucida Console", false, {"DejaVu Sans Mono", "Liberation Mono"}},
        {"MS Gothic", false, {GOTHIC}},
        {"MS Mincho", false, {MINCHO}},
        {"MS PGothic", false, {GOTHIC}},
        {"MS PMincho", false, {MINCHO}},
        {"MS Sans Serif", true, {SANS}},
        {"MS Serif", true, {SERIF}},
        {"MS Shell Dlg", false, {SANS}},
        {"MS Shell Dlg 2", false, {WIDE_SANS}},
        {"Microsoft Sans Serif", true, {SANS}},
        {"MingLiU", false, {"Noto Serif CJK TC", "AR PL UMing TW", "Noto Sans CJK TC"}},
        {"Monaco", false, {"DejaVu Sans Mono", "Liberation Mono"}},
        {"New York", false, {SERIF}},
        {"Palatino", false, {"TeX Gyre Pagella", "P052", "Liberation Serif", "DejaVu Serif"}},
        {"SimSun", false, {"Noto Serif CJK SC", "AR PL UMing CN", "WenQuanYi Zen Hei", "Noto Sans CJK SC"}},
        {"Small Fonts", false, {SANS}},
        {"Symbol", false, {"Symbol", "Standard Symbols PS", "OpenSymbol"}},
        {"System", true, {SANS}},
        {"Tahoma", true, {WIDE_SANS}},
        {"Terminal", true, {}},
        {"Times", false, {SERIF}},
        {"Times New Roman", true, {SERIF}},
        {"Tms Rmn", false, {SERIF}},
        {"Verdana", true, {WIDE_SANS}},
        {"Wingdings", false, {"Wingdings", "D050000L", "OpenSymbol"}},
    };
    return *names;
}

const FamilyName *findFamilyName(std::string_view name)
{
    for (const FamilyName &entry : familyNames()) {
        if (equalsIgnoringCase(entry.name, name))
            return &entry;
    }
    return nullptr;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
}

} // namespace win32::gdi
