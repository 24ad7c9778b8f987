// Strings in exclusive-or mode: drawn in a small world of one bit, which is kept, and copied from there.
#include "Text_internal.h"

#include <mtbx/QDOffscreen.h>

namespace {

constexpr Rect scratchBounds = {0, 0, 20, 200};

GWorldPtr scratch;

bool haveScratch()
{
    if (!scratch && NewGWorld(&scratch, 1, &scratchBounds, nullptr, nullptr, 0) != noErr)
        scratch = nullptr;
    return scratch;
}

// White characters on black: what is black turns nothing over.
void drawInScratch(const GrafPort &like, ConstStr255Param text, SInt16 baseLine)
{
    TextFont(like.txFont);
    TextFace(like.txFace);
    TextSize(like.txSize);
    TextMode(srcCopy);
    EraseRect(&scratchBounds);
    MoveTo(0, baseLine);
    DrawString(text);
    MacInvertRect(&scratchBounds);
}

} // namespace

void MTBX_DrawStringTurnedOver(ConstStr255Param text)
{
    if (!haveScratch())
        return;
    FontInfo info;
    GetFontInfo(&info);
    auto baseLine = static_cast<SInt16>(scratchBounds.bottom - info.descent);
    CGrafPtr port;
    GDHandle device;
    GetGWorld(&port, &device);
    SetGWorld(scratch, nullptr);
    drawInScratch(*port, text, baseLine);
    Rect target = scratchBounds;
    MacOffsetRect(&target, port->pnLoc.h, static_cast<SInt16>(port->pnLoc.v - baseLine));
    SetGWorld(port, device);
    CopyBits(reinterpret_cast<BitMap *>(*GetGWorldPixMap(scratch)), GetPortBitMapForCopyBits(port), &scratchBounds,
             &target, srcXor, nullptr);
}

void MTBX_StopText()
{
    DisposeGWorld(scratch);
    scratch = nullptr;
}
