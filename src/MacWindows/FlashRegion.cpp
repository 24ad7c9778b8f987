// A debugging aid: shows a region by inverting it for a moment.
#include <mtbx/Events.h>
#include <mtbx/MacWindows.h>

namespace {

// Set in a debugger only.
volatile bool isFlashing = false;

} // namespace

void MTBX_FlashRgn(RgnHandle rgn)
{
    constexpr UInt32 shownTicks = 6;
    if (!isFlashing || !qd.thePort)
        return;
    RgnHandle formerClip = NewRgn();
    if (!formerClip)
        return;
    UInt32 end;
    GetClip(formerClip);
    ClipRect(&qd.thePort->portRect);
    MacInvertRgn(rgn);
    Delay(shownTicks, &end);
    MacInvertRgn(rgn);
    SetClip(formerClip);
    DisposeRgn(formerClip);
}
