// Safe mode: on systems with double-byte text one of their fonts serves for all.
#include "Fonts_internal.h"

#include "Frame/Settings_internal.h"
#include "Quickdraw/GdiGuard_internal.h"

#include <cstring>

fonts::SafeMode fonts::safeMode;

namespace {

struct SafeSizes {
    BYTE charSet;
    SInt16 small, medium, large;
};
constexpr SafeSizes safeSizes[] = {
    {SHIFTJIS_CHARSET, 10, 12, 14},
    {HANGUL_CHARSET, 10, 12, 14},
    {GB2312_CHARSET, 12, 12, 14},
    {CHINESEBIG5_CHARSET, 12, 12, 14},
};

const SafeSizes *sizesFor(BYTE charSet)
{
    for (const SafeSizes &sizes : safeSizes)
        if (sizes.charSet == charSet)
            return &sizes;
    return nullptr;
}

int CALLBACK consider(const LOGFONTA *font, const TEXTMETRICA *, DWORD fontType, LPARAM)
{
    return fonts::considerForSafeMode(*font, fontType) == fonts::Search::GoOn;
}

void searchFonts()
{
    HDC screen = MTBX_CreateDC("DISPLAY", nullptr, nullptr, nullptr);
    if (!screen)
        return;
    EnumFontFamiliesA(screen, nullptr, consider, 0);
    DeleteDC(screen);
}

void readSizes()
{
    auto read = [](const char *key, SInt16 &size) {
        size = static_cast<SInt16>(MTBX_GetRequiredProfileInt(key, size));
    };
    read("SmallInterfaceFontSize", fonts::safeMode.smallSize);
    read("MediumInterfaceFontSize", fonts::safeMode.mediumSize);
    read("LargeInterfaceFontSize", fonts::safeMode.largeSize);
}

void readFaceName()
{
    constexpr char key[] = "InterfaceFontName";
    char name[LF_FACESIZE] = {};
    if (MTBX_GetProfileString(key, "", name, sizeof name) > 0)
        memcpy(fonts::safeMode.font.lfFaceName, name, sizeof name);
    else
        MTBX_SetProfileString(key, fonts::safeMode.font.lfFaceName);
}

// Each instance is made anew in the present face. Whoever holds an old one sees it without a native font.
void renewInstances(fonts::Family &family)
{
    FontInstance **old = std::exchange(family.instances, nullptr);
    SInt16 count = std::exchange(family.instanceCount, SInt16{0});
    bool isWell = true;
    for (SInt16 i = 0; i < count; ++i) {
        FontInstance *made = nullptr;
        isWell = isWell && fonts::deleteNativeFont(*old[i]) == kFontNoError
                 && fonts::newInstance(family, old[i]->size, old[i]->style, &made) == kFontNoError;
        if (old[i]->hFont)
            fonts::deleteNativeFont(*old[i]);
        fonts::retire(old[i]);
    }
    if (old)
        fonts::freeMemory(old);
}

} // namespace

fonts::Search fonts::considerForSafeMode(const LOGFONTA &font, DWORD fontType)
{
    const SafeSizes *sizes = font.lfFaceName[0] == '@' ? nullptr : sizesFor(font.lfCharSet);
    if (!sizes)
        return Search::GoOn;
    safeMode = {true, font, sizes->small, sizes->medium, sizes->large};
    return fontType == TRUETYPE_FONTTYPE ? Search::Stop : Search::GoOn;
}

void fonts::enterSafeMode()
{
    if (!safeMode.isOn)
        return;
    readSizes();
    readFaceName();
    Family *family = familyAt(0);
    if (!family)
        return;
    memset(family->faceName, 0, sizeof family->faceName);
    memcpy(family->faceName, safeMode.font.lfFaceName, strnlen(safeMode.font.lfFaceName, LF_FACESIZE));
    renewInstances(*family);
}

void MTBX_SetDBCSSafeModeFonts()
{
    searchFonts();
    fonts::enterSafeMode();
}
