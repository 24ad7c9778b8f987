// What the files of text share.
#pragma once

#include <mtbx/QuickdrawText.h>

#include "Quickdraw/Quickdraw_internal.h"

// The extent and what the font hangs over behind it.
struct TextExtent {
    SInt32 width, height;
};
TextExtent MTBX_MeasureText(HDC context, const char *text, SInt32 length);

inline void MTBX_AdvancePen(GrafPort &port, SInt32 width)
{
    port.pnLoc.h = static_cast<SInt16>(port.pnLoc.h + width);
}

// A string in exclusive-or mode, by way of a small world.
void MTBX_DrawStringTurnedOver(ConstStr255Param text);

// Start and end of text, for InitGraf and MTBX_ShutdownGraf.
void MTBX_StartText();
void MTBX_StopText();
