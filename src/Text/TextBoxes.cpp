// Text at the top of a box.
#include "Text_internal.h"

#include <cstring>

namespace {

SInt16 ascentOf(HDC context)
{
    TEXTMETRICA metrics = {};
    GetTextMetricsA(context, &metrics);
    return static_cast<SInt16>(metrics.tmAscent);
}

SInt16 startOf(const void *text, SInt16 length, const Rect &box, SInt16 justification, SInt16 present)
{
    switch (justification) {
    case teJustRight: return static_cast<SInt16>(box.right - TextWidth(text, 0, length));
    case teJustLeft: return box.left;
    case teJustCenter: return static_cast<SInt16>(box.left + (box.right - box.left - TextWidth(text, 0, length)) / 2);
    default: return present;
    }
}

} // namespace

void TextBox(const void *text, SInt32, const Rect *box, SInt16 justification)
{
    GrafPtr port = qd.thePort;
    if (!port)
        return;
    constexpr size_t longest = 32767;
    auto length = static_cast<SInt16>(strnlen(static_cast<const char *>(text), longest));
    MTBX_SelectFont(port);
    SInt16 start = startOf(text, length, *box, justification, port->pnLoc.h);
    port->pnLoc = {static_cast<SInt16>(box->top + ascentOf(measuringContext())), start};
    MacDrawText(text, 0, length);
    // A hook that made another port current may have closed this one.
    if (qd.thePort == port)
        port->pnLoc.h = start;
}
