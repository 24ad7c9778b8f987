// The two fonts of the interface, fetched once and kept locked.
#include "Fonts_internal.h"

namespace {

struct InterfaceFont {
    SInt16 familyID, size;
    UInt16 style;
    HFONT font;
    FontInstance *instance;

    SInt16 get(HFONT *result)
    {
        // Safe mode may have ended the font that was fetched before.
        if (instance && !instance->hFont)
            forget();
        SInt16 code = instance ? SInt16{kFontNoError} : fetch();
        *result = font;
        return code;
    }
    void forget()
    {
        if (instance)
            MTBX_UnlockHFnt(&instance);
        instance = nullptr;
        font = nullptr;
    }

private:
    SInt16 fetch()
    {
        FontInstance *found = nullptr;
        SInt16 code = MTBX_GetHFntFromFNum(familyID, size, style, &found);
        if (code == kFontNoError) {
            instance = found;
            code = MTBX_LockHFnt(&instance, &font);
        }
        return code;
    }
};

InterfaceFont smallFont, appFont;

void set(InterfaceFont &font, SInt16 familyID, SInt16 size, UInt16 style)
{
    font.familyID = familyID;
    font.size = size;
    font.style = style;
}

} // namespace

void fonts::forgetInterfaceFonts()
{
    smallFont.forget();
    appFont.forget();
}

void MTBX_SetSmallFont(SInt16 familyID, SInt16 size, UInt16 style)
{
    set(smallFont, familyID, size, style);
}

void MTBX_SetAppFont(SInt16 familyID, SInt16 size, UInt16 style)
{
    set(appFont, familyID, size, style);
}

SInt16 MTBX_GetSmallHFnt(HFONT *font)
{
    return smallFont.get(font);
}

SInt16 MTBX_GetAppHFnt(HFONT *font)
{
    return appFont.get(font);
}
