// What ports, bevels and the start of graphics need of colour tables.
#pragma once

#include <mtbx/Quickdraw.h>

// The table that stands in pmTable at a depth, null where none does. It belongs to the library.
CTabHandle MTBX_StandardTable(SInt16 pixelSize);
// A new table of the colour cube of 6 levels and the greys behind it, owned by the caller.
CTabHandle MTBX_NewSixLevelTable();

// The palette and the standard tables, for InitGraf and MTBX_ShutdownGraf.
void MTBX_StartColors();
void MTBX_StopColors();
