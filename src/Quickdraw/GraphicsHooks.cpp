// The host's graphics hooks: functions in a port's table that draw in the library's place.
#include "Quickdraw_internal.h"

namespace {

template <class... Parameters, class... Arguments>
bool callHook(void (*CQDProcs::*slot)(Parameters...), Arguments... arguments)
{
    CQDProcsPtr hooks = qd.thePort ? qd.thePort->grafProcs : nullptr;
    if (!hooks || !(hooks->*slot)) [[likely]]
        return false;
    (hooks->*slot)(arguments...);
    return true;
}

} // namespace

bool MTBX_TextHook(SInt16 byteCount, const void *text, Point numerator, Point denominator)
{
    return callHook(&CQDProcs::textProc, byteCount, text, numerator, denominator);
}

bool MTBX_LineHook(Point newPoint)
{
    return callHook(&CQDProcs::lineProc, newPoint);
}

bool MTBX_RectHook(GrafVerb verb, const Rect *rect)
{
    return callHook(&CQDProcs::rectProc, verb, rect);
}

bool MTBX_RoundRectHook(GrafVerb verb, const Rect *rect, SInt16 ovalWidth, SInt16 ovalHeight)
{
    return callHook(&CQDProcs::rRectProc, verb, rect, ovalWidth, ovalHeight);
}

bool MTBX_OvalHook(GrafVerb verb, const Rect *rect)
{
    return callHook(&CQDProcs::ovalProc, verb, rect);
}

bool MTBX_PolyHook(GrafVerb verb, PolyHandle poly)
{
    return callHook(&CQDProcs::polyProc, verb, poly);
}

bool MTBX_RegionHook(GrafVerb verb, RgnHandle rgn)
{
    return callHook(&CQDProcs::rgnProc, verb, rgn);
}

void SetStdCProcs(CQDProcsPtr procs)
{
    *procs = {};
}
