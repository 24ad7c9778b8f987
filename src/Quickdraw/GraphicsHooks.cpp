// The host's graphics hooks: functions in a port's table that draw in the library's place.
#include "Quickdraw_internal.h"

namespace {

CQDProcsPtr currentHooks()
{
    return qd.thePort ? qd.thePort->grafProcs : nullptr;
}

template <class Hook, class... Arguments> bool call(Hook hook, Arguments... arguments)
{
    if (!hook)
        return false;
    hook(arguments...);
    return true;
}

} // namespace

bool MTBX_TextHook(SInt16 byteCount, const void *text, Point numerator, Point denominator)
{
    CQDProcsPtr hooks = currentHooks();
    return hooks && call(hooks->textProc, byteCount, text, numerator, denominator);
}

bool MTBX_LineHook(Point newPoint)
{
    CQDProcsPtr hooks = currentHooks();
    return hooks && call(hooks->lineProc, newPoint);
}

bool MTBX_RectHook(GrafVerb verb, const Rect *rect)
{
    CQDProcsPtr hooks = currentHooks();
    return hooks && call(hooks->rectProc, verb, rect);
}

bool MTBX_RoundRectHook(GrafVerb verb, const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight)
{
    CQDProcsPtr hooks = currentHooks();
    return hooks && call(hooks->rRectProc, verb, rect, ovalWidth, ovalHeight);
}

bool MTBX_OvalHook(GrafVerb verb, const Rect *rect)
{
    CQDProcsPtr hooks = currentHooks();
    return hooks && call(hooks->ovalProc, verb, rect);
}

bool MTBX_PolyHook(GrafVerb verb, PolyHandle poly)
{
    CQDProcsPtr hooks = currentHooks();
    return hooks && call(hooks->polyProc, verb, poly);
}

bool MTBX_RegionHook(GrafVerb verb, RgnHandle rgn)
{
    CQDProcsPtr hooks = currentHooks();
    return hooks && call(hooks->rgnProc, verb, rgn);
}

bool MTBX_BitsHook(const BitMap *source, const BitMap *destination, const Rect *sourceRect,
                   const Rect *destinationRect, SInt16 mode, RgnHandle mask)
{
    CQDProcsPtr hooks = currentHooks();
    bool isToPort = hooks && destination == GetPortBitMapForCopyBits(qd.thePort);
    return isToPort && call(hooks->bitsProc, source, sourceRect, destinationRect, mode, mask);
}

void SetStdCProcs(CQDProcsPtr procs)
{
    *procs = {};
}
