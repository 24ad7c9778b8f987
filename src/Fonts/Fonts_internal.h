// What the files of the Font Manager share, and what text needs of it.
#pragma once

#include <mtbx/Fonts.h>

#include <utility>

namespace fonts {

// The face of a family as a C string; empty for a number without one.
const char *faceNameOf(SInt16 familyID);

struct Family {
    char faceName[256];
    FontInstance **instances;
    SInt16 instanceCount;
};

// Null for a number outside of the table or without a family.
Family *familyAt(SInt16 familyID);

// The instance of that size and style; null when it was not made yet.
FontInstance *findInstance(const Family &family, SInt16 size, UInt16 style);
// Makes one at the end of the family's list.
SInt16 newInstance(Family &family, SInt16 size, UInt16 style, FontInstance **instance);
// Ends a native font that the table gave, leaving the list alone.
SInt16 deleteNativeFont(FontInstance &instance);
// All of a family; those that resist are retired, and the first of them gives the result.
SInt16 deleteInstances(Family &family);
// Takes an instance for gone that somebody may still hold. It is freed at the next end or start of the fonts that
// finds it unlocked.
void retire(FontInstance *instance);
void freeRetired();

// Zeroed memory for records; null when there is none.
void *newMemory(size_t size);
SInt16 freeMemory(void *memory);

// Lists of pointers, in a new block for each addition.
template <class Element> Element **newListWith(Element **list, SInt16 count, Element *added)
{
    auto size = static_cast<size_t>(count);
    auto **longer = static_cast<Element **>(newMemory((size + 1) * sizeof *list));
    if (!longer)
        return nullptr;
    for (size_t i = 0; i < size; ++i)
        longer[i] = list[i];
    longer[size] = added;
    return longer;
}

// The fonts of the interface.
void forgetInterfaceFonts();

// Safe mode: one face for all fonts.
struct SafeMode {
    bool isOn = false;
    LOGFONTA font = {};
    SInt16 smallSize = 9, mediumSize = 10, largeSize = 12;
};
extern SafeMode safeMode;
// Whether the family suits safe mode, which is on from then; Stop when no better one can come.
enum class Search { GoOn, Stop };
Search considerForSafeMode(const LOGFONTA &font, DWORD fontType);
// What the settings say, and the interface font anew. Nothing when no family suited.
void enterSafeMode();

void disposeWidthTable();

} // namespace fonts

// The native font of usual texts in controls and text fields.
SInt16 MTBX_GetAppHFnt(HFONT *font);
