// The colour tables that the library keeps, and the colour set-up of a screen.
#include "ColorTableHeaders.h"
#include "ColorTableRules.h"
#include "ColorTables_internal.h"
#include "Palettes_internal.h"

#include <mtbx/Palettes.h>

#include <algorithm>
#include <utility>

namespace {

CTabHandle stdTable1;
CTabHandle stdTable2;
CTabHandle stdTable4;
CTabHandle stdTable8;
CTabHandle stdTable16;
CTabHandle stdTable256;

CTabHandle withUsage(CTabHandle table, UInt16 usage)
{
    setColorTableUsage(table, usage);
    return table;
}

// What is left of 256 colours without the system's.
void makePaletteOf256()
{
    CTabHandle cube = newSystemColorCube();
    if (!cube)
        return;
    makeWorldPalette(entriesOf(cube) + systemEntryCount, 256 - 2 * systemEntryCount);
    DisposeCTable(cube);
}

void makePaletteOf16()
{
    CTabHandle table = GetCTable(2);
    if (!table)
        return;
    makeWorldPalette(entriesOf(table), std::min(entryCountOf(table), SInt32{16}));
    DisposeCTable(table);
}

void makePalette()
{
    if (gbits_per_pixel == 8)
        makePaletteOf256();
    else if (gbits_per_pixel == 4)
        makePaletteOf16();
    else
        takeStockPalette();
    MTBX_AssertZPPalette();
}

void makeStandardTables()
{
    stdTable1 = withUsage(newGrayRamp(2, Ramp::WhiteFirst), kSystemUsage);
    stdTable256 = withUsage(newGrayRamp(256, Ramp::BlackFirst), kNoHeaderUsage);
    stdTable16 = withUsage(newGrayRamp(16, Ramp::BlackFirst), kNoHeaderUsage);
    stdTable2 = withUsage(newGrayRamp(4, Ramp::BlackFirst), kNoHeaderUsage);
    stdTable8 = GetCTable(8);
    stdTable4 = withUsage(newRedFirstCube(2), kSystemUsage);
}

} // namespace

CTabHandle MTBX_StandardTable(SInt16 pixelSize)
{
    if (pixelSize > 8)
        return stdTable1;
    switch (pixelSize) {
    case 8: return stdTable8;
    case 4: return stdTable4;
    case 2: return stdTable2;
    default: return nullptr;
    }
}

CTabHandle MTBX_NewSixLevelTable()
{
    return newColorCube(6);
}

void MTBX_StartColors()
{
    makePalette();
    makeStandardTables();
}

void MTBX_StopColors()
{
    for (CTabHandle *table : {&stdTable1, &stdTable2, &stdTable4, &stdTable8, &stdTable16, &stdTable256})
        DisposeCTable(std::exchange(*table, nullptr));
    releaseWorldPalette();
}
