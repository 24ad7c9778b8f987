// Families in single sizes and styles: native fonts, with counts of those who hold them.
#include "Fonts_internal.h"

#include "Quickdraw/GdiGuard_internal.h"

#include <cstring>

namespace {

enum { boldStyle = 1, italicStyle = 2, underlineStyle = 4 };

// The part of the record that the library keeps to itself.
struct KeptInstance {
    FontInstance instance;
    KeptInstance *nextRetired;
};

KeptInstance *retired;

void setStyle(LOGFONTA &font, UInt16 style)
{
    font.lfWeight = style & boldStyle ? FW_BOLD : FW_NORMAL;
    font.lfItalic = (style & italicStyle) != 0;
    font.lfUnderline = (style & underlineStyle) != 0;
}

SInt16 describeFace(const char *faceName, UInt16 style, LOGFONTA &font)
{
    size_t length = strlen(faceName);
    if (length >= sizeof font.lfFaceName)
        return kFontNameTooLong;
    memcpy(font.lfFaceName, faceName, length + 1);
    bool isHelvetica = strcmp(faceName, "Helvetica") == 0;
    font.lfCharSet = isHelvetica ? ANSI_CHARSET : DEFAULT_CHARSET;
    font.lfPitchAndFamily = isHelvetica ? FF_SWISS : 0;
    setStyle(font, style);
    return kFontNoError;
}

SInt16 safeSize(SInt16 size)
{
    switch (size) {
    case 9: return fonts::safeMode.smallSize;
    case 10: return fonts::safeMode.mediumSize;
    case 12: return fonts::safeMode.largeSize;
    default: return size;
    }
}

LOGFONTA describeSafeFace()
{
    LOGFONTA font = {};
    const LOGFONTA &safe = fonts::safeMode.font;
    memcpy(font.lfFaceName, safe.lfFaceName, sizeof font.lfFaceName);
    font.lfCharSet = safe.lfCharSet;
    font.lfPitchAndFamily = safe.lfPitchAndFamily;
    setStyle(font, 0);
    return font;
}

SInt16 describe(const char *faceName, SInt16 size, UInt16 style, LOGFONTA &font)
{
    SInt16 code = kFontNoError;
    if (fonts::safeMode.isOn)
        font = describeSafeFace();
    else
        code = describeFace(faceName, style, font);
    font.lfQuality = PROOF_QUALITY;
    font.lfHeight = -(fonts::safeMode.isOn ? safeSize(size) : size);
    return code;
}

// Creating the font may have run the host's grow-zone function, so the list is looked at only now.
bool append(fonts::Family &family, FontInstance *instance)
{
    FontInstance **longer = fonts::newListWith(family.instances, family.instanceCount, instance);
    if (!longer)
        return false;
    if (family.instances)
        fonts::freeMemory(family.instances);
    family.instances = longer;
    ++family.instanceCount;
    return true;
}

} // namespace

void *fonts::newMemory(size_t size)
{
    return GlobalAlloc(GPTR, size);
}

SInt16 fonts::freeMemory(void *memory)
{
    return GlobalFree(memory) ? SInt16{kFontBadMemory} : SInt16{kFontNoError};
}

FontInstance *fonts::findInstance(const Family &family, SInt16 size, UInt16 style)
{
    for (SInt16 i = 0; i < family.instanceCount; ++i) {
        FontInstance *instance = family.instances[i];
        if (instance->size == size && instance->style == style)
            return instance;
    }
    return nullptr;
}

SInt16 fonts::newInstance(Family &family, SInt16 size, UInt16 style, FontInstance **instance)
{
    LOGFONTA description = {};
    SInt16 code = describe(family.faceName, size, style, description);
    if (code != kFontNoError)
        return code;
    HFONT font = MTBX_CreateFontIndirect(&description);
    if (!font)
        return kFontNotCreated;
    auto *made = static_cast<KeptInstance *>(newMemory(sizeof(KeptInstance)));
    if (!made || !append(family, &made->instance)) {
        if (made)
            freeMemory(made);
        DeleteObject(font);
        return kFontNoMemory;
    }
    made->instance = {font, size, style, 0};
    *instance = &made->instance;
    return kFontNoError;
}

SInt16 fonts::deleteNativeFont(FontInstance &instance)
{
    if (!DeleteObject(instance.hFont))
        return kFontSelected;
    instance.hFont = nullptr;
    return kFontNoError;
}

SInt16 fonts::deleteInstances(Family &family)
{
    SInt16 firstError = kFontNoError;
    for (SInt16 i = 0; i < family.instanceCount; ++i) {
        FontInstance *instance = family.instances[i];
        SInt16 code = instance->lockCount > 0 ? SInt16{kFontLocked} : deleteNativeFont(*instance);
        if (code == kFontNoError)
            code = freeMemory(instance);
        else
            retire(instance);
        firstError = firstError ? firstError : code;
    }
    family.instanceCount = 0;
    SInt16 code = family.instances ? freeMemory(std::exchange(family.instances, nullptr)) : SInt16{kFontNoError};
    return firstError ? firstError : code;
}

void fonts::retire(FontInstance *instance)
{
    auto *kept = reinterpret_cast<KeptInstance *>(instance);
    kept->nextRetired = std::exchange(retired, kept);
}

// Those still held stay for their holders.
void fonts::freeRetired()
{
    KeptInstance *instance = std::exchange(retired, nullptr);
    while (instance) {
        KeptInstance *next = instance->nextRetired;
        FontInstance &record = instance->instance;
        bool isFree = record.lockCount <= 0 && (!record.hFont || deleteNativeFont(record) == kFontNoError);
        if (isFree)
            freeMemory(instance);
        else
            retire(&record);
        instance = next;
    }
}

SInt16 MTBX_LockHFnt(FontInstance **instance, HFONT *font)
{
    if (!instance || !*instance)
        return kFontBadParameter;
    ++(*instance)->lockCount;
    *font = (*instance)->hFont;
    return kFontNoError;
}

SInt16 MTBX_UnlockHFnt(FontInstance **instance)
{
    if (!instance || !*instance)
        return kFontBadParameter;
    --(*instance)->lockCount;
    return (*instance)->lockCount < 0 ? SInt16{kFontNotLocked} : SInt16{kFontNoError};
}
