// Colour tables as the host gets them.
#include "ColorTableRules.h"
#include "Quickdraw_internal.h"

#include <mtbx/MacMemory.h>

namespace {

UInt32 colorTableSeed = 1;

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
    return tableByRule(tableID);
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
