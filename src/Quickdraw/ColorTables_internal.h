// What ports, displays, bevels and the start of graphics need of colour tables.
#pragma once

#include <mtbx/Quickdraw.h>

inline ColorSpec *entriesOf(CTabHandle table)
{
    return (*table)->ctTable;
}
inline SInt32 entryCountOf(CTabHandle table)
{
    return (*table)->ctSize + 1;
}

// A new table of black entries that have their index as value, owned by the caller; null when memory is
// short.
CTabHandle newColorTable(SInt32 entryCount, SInt32 seed);

// The table that stands in pmTable at a depth, null where none does. It belongs to the library.
CTabHandle MTBX_StandardTable(SInt16 pixelSize);
// A new table of the colour cube of 6 levels and the greys behind it, owned by the caller.
CTabHandle MTBX_NewSixLevelTable();

// The palette and the standard tables, for InitGraf and MTBX_ShutdownGraf.
void MTBX_StartColors();
void MTBX_StopColors();
