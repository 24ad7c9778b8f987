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

// The resource's entries follow a header of 8 bytes.
CTabHandle tableFromResource(Handle resource, SInt16 tableID)
{
    constexpr Size headerSize = 8, mostEntries = 32768;
    Size entryCount = (GetHandleSize(resource) - headerSize) / Size{sizeof(ColorSpec)};
    entryCount = std::clamp(entryCount, Size{0}, mostEntries);
    CTabHandle table = newColorTable(entryCount, tableID);
    if (!table)
        return nullptr;
    const char *source = *resource + headerSize;
    for (Size i = 0; i < entryCount; ++i)
        memcpy(&entriesOf(table)[i].rgb, source + i * Size{sizeof(ColorSpec)} + sizeof(UInt16), sizeof(RGBColor));
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
    HNoPurge(resource);
    CTabHandle table = tableFromResource(resource, tableID);
    HPurge(resource);
    return table;
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
