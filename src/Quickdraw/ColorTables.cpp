// Colour tables as the host gets them.
#include "ColorTableRules.h"
#include "Quickdraw_internal.h"

#include <mtbx/MacMemory.h>
#include <mtbx/Resources.h>

#include <algorithm>
#include <cstring>

namespace {

UInt32 colorTableSeed = 1;

constexpr ResType tableType = 0x636C7574; // 'clut'

constexpr Size resourceHeaderSize = 8;

Size entriesIn(Handle resource)
{
    constexpr Size mostEntries = 32768;
    Size entryCount = (GetHandleSize(resource) - resourceHeaderSize) / Size{sizeof(ColorSpec)};
    return std::clamp(entryCount, Size{0}, mostEntries);
}

CTabHandle tableFromResource(Handle resource, SInt16 tableID)
{
    Size entryCount = entriesIn(resource);
    CTabHandle table = newColorTable(entryCount, tableID);
    if (!table)
        return nullptr;
    // The host may have released or changed the resource when it was asked for memory.
    resource = GetResource(tableType, tableID);
    entryCount = std::min(entryCount, entriesIn(resource));
    for (Size entry = 0; entry < entryCount; ++entry) {
        const char *source = *resource + resourceHeaderSize + entry * Size{sizeof(ColorSpec)};
        memcpy(&entriesOf(table)[entry].rgb, source + sizeof(UInt16), sizeof(RGBColor));
    }
    return table;
}

CTabHandle tableByRule(SInt16 tableID)
{
    SInt32 levels = tableID == 1 ? 6 : tableID;
    if (levels < fewestCubeLevels || levels > mostCubeLevels)
        return nullptr;
    CTabHandle table = newColorCube(levels);
    if (table)
        (*table)->ctSeed = tableID;
    return table;
}

} // namespace

CTabHandle GetCTable(SInt16 tableID)
{
    Handle resource = GetResource(tableType, tableID);
    if (!resource)
        return tableByRule(tableID);
    return tableFromResource(resource, tableID);
}

void DisposeCTable(CTabHandle table)
{
    if (table && *table && (*table)->ctHeader) {
        DisposeHandle((*table)->ctHeader);
        (*table)->ctHeader = nullptr;
    }
    DisposeHandle(reinterpret_cast<Handle>(table));
}

void DisposCTable(CTabHandle table)
{
    DisposeCTable(table);
}

SInt32 GetCTSeed()
{
    colorTableSeed = (colorTableSeed & 0x7FFFFFFF) + 1;
    return static_cast<SInt32>(colorTableSeed);
}

SInt32 Color2Index(const RGBColor *)
{
    return 0;
}

void MakeITable(CTabHandle, ITabHandle, SInt16)
{
    qdErrorValue = 0;
}

void SetEntries(SInt16, SInt16, ColorSpec *)
{
    qdErrorValue = 0;
}

Boolean GetGray(GDHandle, const RGBColor *, RGBColor *)
{
    return false;
}
