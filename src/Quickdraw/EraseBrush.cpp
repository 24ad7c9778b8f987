#include "EraseBrush.h"

#include <mtbx/MTBXGdi.h>

namespace {

// A class may name a system colour in place of a brush: its number plus one.
HBRUSH backgroundOfClass(HWND window)
{
    auto brush = GetClassLongPtrA(window, GCLP_HBRBACKGROUND);
    constexpr ULONG_PTR highestColor = 30;
    bool isColor = brush > 0 && brush <= highestColor + 1;
    return isColor ? GetSysColorBrush(static_cast<int>(brush - 1)) : reinterpret_cast<HBRUSH>(brush);
}

} // namespace

EraseBrush::EraseBrush(const GrafPort &port, HDC context) : own_(MTBX_CreateSolidBrush(GetBkColor(context)))
{
    PixMapPtr map = pixMapOf(port);
    if (!own_ && map && map->pmWindow)
        borrowed_ = backgroundOfClass(map->pmWindow);
}
