// Scripts, character sets and code pages, each found by the others.
#include "Script_internal.h"

namespace {

struct Encoding {
    ScriptCode script;
    UInt8 characterSet;
    UInt16 codePage;
};

constexpr Encoding roman = {smRoman, 0, 1252};

constexpr Encoding encodings[] = {
    {smJapanese, 128, 932},          {smTradChinese, 136, 950}, {smKorean, 129, 949},
    {smArabic, 178, 1256},           {smHebrew, 177, 1255},     {smGreek, 161, 1253},
    {smCyrillic, 204, 1251},         {smThai, 222, 874},        {smSimpChinese, 134, 936},
    {smCentralEuroRoman, 238, 1250}, {smVietnamese, 163, 1258},
};

// Sets with a code page but no script of their own: Johab, Turkish and Baltic.
constexpr Encoding withoutScript[] = {{smRoman, 130, 949}, {smRoman, 162, 1254}, {smRoman, 186, 1257}};

constexpr UInt8 defaultCharacterSet = 1;

template <class Table> const Encoding *findCharacterSet(const Table &table, UInt8 characterSet)
{
    for (const Encoding &encoding : table) {
        if (encoding.characterSet == characterSet)
            return &encoding;
    }
    return nullptr;
}

} // namespace

UInt8 script::characterSetOf(ScriptCode script)
{
    for (const Encoding &encoding : encodings) {
        if (encoding.script == script)
            return encoding.characterSet;
    }
    return roman.characterSet;
}

UInt32 MTBX_CharsetToCodePage(UInt8 characterSet)
{
    if (characterSet == defaultCharacterSet)
        return GetACP();
    const Encoding *found = findCharacterSet(encodings, characterSet);
    if (!found)
        found = findCharacterSet(withoutScript, characterSet);
    return found ? found->codePage : roman.codePage;
}

ScriptCode MTBX_CharSetToScript(UInt8 characterSet)
{
    const Encoding *found = findCharacterSet(encodings, characterSet);
    return found ? found->script : roman.script;
}
