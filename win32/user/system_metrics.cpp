// Sizes of the system's own parts: those of a plain classic desktop at 96 pixels an inch.
#include "screen/screen.h"

#include <windows.h>

namespace {

int screenMetric(int index)
{
    const win32::gdi::Box &primary = win32::screen::monitors().front().bounds;
    const win32::gdi::Surface &all = win32::screen::surface();
    int width = primary.x2 - primary.x1, height = primary.y2 - primary.y1;
    int frame = GetSystemMetrics(SM_CXFRAME);
    switch (index) {
    case SM_CXSCREEN:
    case SM_CXFULLSCREEN:
        return width;
    case SM_CYSCREEN:
        return height;
    case SM_CYFULLSCREEN:
        return height - GetSystemMetrics(SM_CYCAPTION);
    case SM_CXMAXIMIZED:
        return width + 2 * frame;
    case SM_CYMAXIMIZED:
        return height + 2 * frame;
    case SM_CXMAXTRACK:
        return all.width + 2 * (frame + 2);
    case SM_CYMAXTRACK:
        return all.height + 2 * (frame + 2);
    case SM_CXVIRTUALSCREEN:
        return all.width;
    case SM_CYVIRTUALSCREEN:
        return all.height;
    case SM_CMONITORS:
        return static_cast<int>(win32::screen::monitors().size());
    default:
        return 0;
    }
}

} // namespace

int GetSystemMetrics(int index)
{
    switch (index) {
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CYVTHUMB:
    case SM_CXHTHUMB:
    case SM_CYVSCROLL:
    case SM_CXHSCROLL:
    case SM_CYSMCAPTION:
    case SM_CXSMICON:
    case SM_CYSMICON:
        return 16;
    case SM_CYCAPTION:
    case SM_CYMENU:
        return 19;
    case SM_CXBORDER:
    case SM_CYBORDER:
        return 1;
    case SM_CXDLGFRAME:
    case SM_CYDLGFRAME:
        return 3;
    case SM_CXFRAME:
    case SM_CYFRAME:
    case SM_CXDOUBLECLK:
    case SM_CYDOUBLECLK:
    case SM_CXDRAG:
    case SM_CYDRAG:
        return 4;
    case SM_CXICON:
    case SM_CYICON:
    case SM_CXCURSOR:
    case SM_CYCURSOR:
        return 32;
    case SM_MOUSEPRESENT:
    case SM_MOUSEWHEELPRESENT:
    case SM_SAMEDISPLAYFORMAT:
        return 1;
    case SM_CMOUSEBUTTONS:
        return 3;
    case SM_CXSIZE:
    case SM_CYSIZE:
    case SM_CXMENUSIZE:
    case SM_CYMENUSIZE:
        return 18;
    case SM_CXSMSIZE:
    case SM_CYSMSIZE:
        return 15;
    case SM_CXMIN:
    case SM_CXMINTRACK:
        return 112;
    case SM_CYMIN:
    case SM_CYMINTRACK:
        return 27;
    case SM_CXICONSPACING:
    case SM_CYICONSPACING:
        return 75;
    case SM_CXEDGE:
    case SM_CYEDGE:
        return 2;
    case SM_CXMINSPACING:
    case SM_CXMINIMIZED:
        return 160;
    case SM_CYMINSPACING:
    case SM_CYMINIMIZED:
        return 25;
    case SM_CXMENUCHECK:
    case SM_CYMENUCHECK:
        return 13;
    case SM_DBCSENABLED:
        return GetACP() == 932 || GetACP() == 936 || GetACP() == 949 || GetACP() == 950;
    case SM_SWAPBUTTON:
        return win32::screen::areButtonsSwapped() ? 1 : 0;
    default:
        return screenMetric(index);
    }
}
