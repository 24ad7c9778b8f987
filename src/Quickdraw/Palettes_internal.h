// The screen's palette, for colour tables and displays.
#pragma once

#include <mtbx/MTBXGlobals.h>

constexpr SInt32 systemEntryCount = 10;

// The system's own colours at both ends of its palette, as the display had them when the main device was
// made.
extern PALETTEENTRY firstSystemEntries[systemEntryCount];
extern PALETTEENTRY lastSystemEntries[systemEntryCount];

// 2 when the palette in force has only greys, 1 when not.
extern SInt16 paletteIsGray;

// Makes gworld_palette of the high bytes of the colours, at most 256. At 8 bits per pixel it has 256
// entries with the system's at its ends, if the colours leave room for these.
void makeWorldPalette(const ColorSpec *colors, SInt32 count);
// For screens that need no palette.
void takeStockPalette();
// Deletes the palette unless it is the stock one. None is in force then.
void releaseWorldPalette();
