// The table of font families by number.
#include "Fonts_internal.h"

#include "Quickdraw/Quickdraw_internal.h"

#include <cstring>

namespace {

using fonts::Family;

constexpr SInt16 growthStep = 25;
constexpr char interfaceFace[] = "OrvZpLg";

Family **table;
SInt16 tableSize;

Family *newFamily(const char *faceName)
{
    auto *family = static_cast<Family *>(fonts::newMemory(sizeof(Family)));
    if (family)
        strncpy(family->faceName, faceName, sizeof family->faceName - 1);
    return family;
}

Family **newTable(SInt16 size)
{
    return static_cast<Family **>(fonts::newMemory(static_cast<size_t>(size) * sizeof(Family *)));
}

bool grow()
{
    if (tableSize > 32767 - growthStep)
        return false;
    Family **larger = newTable(static_cast<SInt16>(tableSize + growthStep));
    if (!larger)
        return false;
    memcpy(larger, table, static_cast<size_t>(tableSize) * sizeof(Family *));
    fonts::freeMemory(std::exchange(table, larger));
    tableSize = static_cast<SInt16>(tableSize + growthStep);
    return true;
}

SInt16 findFreeNumber()
{
    SInt16 number = 0;
    while (number < tableSize && table[number])
        ++number;
    return number;
}

SInt16 addFamily(const char *faceName, SInt16 *number)
{
    *number = 0;
    SInt16 free = findFreeNumber();
    if (!table || (free == tableSize && !grow()))
        return kFontNoMemory;
    Family *family = newFamily(faceName);
    if (!family)
        return kFontNoMemory;
    table[free] = family;
    *number = free;
    return kFontNoError;
}

SInt16 findOrAddFamily(const char *faceName, SInt16 *number)
{
    for (SInt16 i = 0; i < tableSize; ++i)
        if (table[i] && strcmp(table[i]->faceName, faceName) == 0) {
            *number = i;
            return kFontNoError;
        }
    return addFamily(faceName, number);
}

// 10 and 13 to 19 stay free, for the first names that come.
constexpr bool isClassicNumber(SInt16 number)
{
    return (number >= 2 && number <= 9) || number == 11 || number == 12 || number >= 20;
}

bool fillTable()
{
    table = newTable(growthStep);
    if (!table)
        return false;
    tableSize = growthStep;
    Family *interfaceFamily = newFamily(interfaceFace);
    table[0] = table[1] = interfaceFamily;
    Family *faceless = newFamily("");
    for (SInt16 i = 0; i < tableSize; ++i)
        if (isClassicNumber(i))
            table[i] = faceless;
    return interfaceFamily && faceless;
}

SInt16 deleteFamily(Family *family)
{
    SInt16 code = fonts::deleteInstances(*family);
    for (SInt16 i = 0; i < tableSize; ++i)
        if (table[i] == family)
            table[i] = nullptr;
    SInt16 memoryCode = fonts::freeMemory(family);
    return code ? code : memoryCode;
}

// The first error is the result, and the others go all the same: nobody could reach them any more.
SInt16 deleteFamilies()
{
    SInt16 firstError = kFontNoError;
    for (SInt16 i = 0; i < tableSize; ++i)
        if (table[i]) {
            SInt16 code = deleteFamily(table[i]);
            firstError = firstError ? firstError : code;
        }
    return firstError;
}

SInt16 instanceOf(SInt16 familyID, SInt16 size, UInt16 style, FontInstance **instance)
{
    Family *family = fonts::familyAt(familyID);
    if (!family || !family->faceName[0])
        return kFontBadNumber;
    if (FontInstance *known = fonts::findInstance(*family, size, style)) {
        *instance = known;
        return kFontNoError;
    }
    return fonts::newInstance(*family, size, style, instance);
}

} // namespace

Family *fonts::familyAt(SInt16 familyID)
{
    return familyID >= 0 && familyID < tableSize ? table[familyID] : nullptr;
}

const char *fonts::faceNameOf(SInt16 familyID)
{
    const Family *family = familyAt(familyID);
    return family ? family->faceName : "";
}

void InitFonts()
{
    fonts::freeRetired();
    if (!table && !fillTable())
        MTBX_ShutdownFonts();
}

SInt16 MTBX_ShutdownFonts()
{
    if (!table)
        return kFontNoError;
    if (qd.thePort)
        unselectPortFont(*qd.thePort);
    fonts::forgetInterfaceFonts();
    fonts::disposeWidthTable();
    fonts::freeRetired();
    SInt16 code = deleteFamilies();
    SInt16 memoryCode = fonts::freeMemory(std::exchange(table, nullptr));
    tableSize = 0;
    return code ? code : memoryCode;
}

void GetFNum(ConstStr255Param name, SInt16 *familyID)
{
    if (name[0] == 0)
        return;
    char faceName[256] = {};
    memcpy(faceName, name + 1, name[0]);
    findOrAddFamily(faceName, familyID);
}

FMFontFamily FMGetFontFamilyFromName(ConstStr255Param name)
{
    FMFontFamily family = 0;
    GetFNum(name, &family);
    return family;
}

void GetFontName(SInt16 familyID, unsigned char *name)
{
    const char *faceName = fonts::faceNameOf(familyID);
    size_t length = strlen(faceName);
    name[0] = static_cast<unsigned char>(length);
    memcpy(name + 1, faceName, length);
}

SInt16 MTBX_GetHFntFromFNum(SInt16 familyID, SInt16 size, UInt16 style, FontInstance **instance)
{
    return instanceOf(familyID, size, style, instance);
}

SInt16 MTBX_GetHFntFromFacename(const char *faceName, SInt16 size, UInt16 style, FontInstance ***instance)
{
    if (!faceName || !*faceName)
        return kFontBadNumber;
    char known[256] = {};
    strncpy(known, faceName, sizeof known - 1);
    SInt16 number = 0;
    SInt16 code = findOrAddFamily(known, &number);
    return code == kFontNoError ? instanceOf(number, size, style, *instance) : code;
}

SInt16 GetSysFont()
{
    return qd.thePort ? qd.thePort->txFont : SInt16{0};
}

SInt16 GetDefFontSize()
{
    return qd.thePort ? qd.thePort->txSize : SInt16{0};
}

void SetFractEnable(Boolean)
{
}
