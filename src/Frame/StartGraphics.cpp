// Start and end of the graphics layer, which reach into all its managers.
#include "Display/Display_internal.h"
#include "MacWindows/MacWindows_internal.h"
#include "Pictures/Pictures_internal.h"
#include "QDOffscreen/CopySettings_internal.h"
#include "Quickdraw/ColorTables_internal.h"
#include "Quickdraw/GdiGuard_internal.h"
#include "Quickdraw/Quickdraw_internal.h"
#include "Scrap/ClipboardFormats_internal.h"
#include "Text/Text_internal.h"

#include <mtbx/Displays.h>
#include <mtbx/Files.h>
#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>

#include <algorithm>
#include <cstring>

namespace {

bool isStarted;

// The last entry of the window list: a record of zeros, of the length that hosts know.
constexpr Size listEndSize = std::max<Size>(224, sizeof(WindowRecord));
WindowPtr listEnd;

// The context of the first port until it has one of its window, while the desktop port is made.
HDC startContext;

void measureScreen()
{
    gscreen_planes = 1;
    gbits_per_plane = 32;
    HDC screen = GetDC(nullptr);
    if (HBITMAP sample = MTBX_CreateCompatibleBitmap(screen, 16, 16)) {
        BITMAP description = {};
        if (GetObjectA(sample, sizeof description, &description)) {
            gscreen_planes = static_cast<SInt16>(description.bmPlanes);
            gbits_per_plane = static_cast<SInt16>(description.bmBitsPixel);
        }
        DeleteObject(sample);
    }
    auto bits = static_cast<SInt16>(gscreen_planes * gbits_per_plane);
    gbits_per_pixel = bits >= 16 ? SInt16{32} : bits;
    ReleaseDC(nullptr, screen);
}

// Opening the very first port makes it current.
void openFirstPort()
{
    HDC desktop = GetDC(GetDesktopWindow());
    constexpr Rect bounds = {0, 0, 100, 100};
    firstPort = NewCWindow(nullptr, &bounds, nullptr, false, documentProc, nullptr, false, 0);
    if (firstPort) {
        PixMap &map = **firstPort->portPixMap;
        map.pmWindow = hWndMain;
        map.pmDC = startContext = MTBX_CreateCompatibleDC(desktop);
    }
    ReleaseDC(GetDesktopWindow(), desktop);
}

void openDesktopPort()
{
    SetGlobalMode(1);
    gDesktopWindow = NewCWindow(nullptr, &qd.screenBits.bounds, nullptr, true, documentProc, nullptr, false, 0);
    if (gDesktopWindow)
        (*gDesktopWindow->portPixMap)->pmWindow = GetDesktopWindow();
}

// Not before the first port has another one, or none.
void deleteStartContext()
{
    if (!startContext || contextOf(*firstPort) == startContext)
        return;
    DeleteDC(startContext);
    startContext = nullptr;
}

void readGraphicsSettings()
{
    MTBX_ReadXorSetting();
    MTBX_ReadMinimalModeSetting();
    gdiPurgeBytes = static_cast<UInt32>(MTBX_GetRequiredProfileInt("PurgeBytesForExhaustedGDIObjects", 4000000));
}

// A cursor's handle has 32 significant bits on every system.
void storeArrow()
{
    HCURSOR arrow = LoadCursorA(nullptr, IDC_ARROW);
    memcpy(&qd.arrow, &arrow, sizeof(UInt32));
}

void makeFallbackContext()
{
    HDC context = currentContext();
    fallbackDC = context ? MTBX_CreateCompatibleDC(context) : MTBX_CreateDC("DISPLAY", "ScratchDC", nullptr, nullptr);
}

void startEnvironment()
{
    SInt32 globalMode = GetGlobalMode();
    readGraphicsSettings();
    MTBX_StartPatterns();
    gFrontWindow = listEnd = reinterpret_cast<WindowPtr>(NewPtrClear(listEndSize));
    GetMainDevice();
    MTBX_StartColors();
    openDesktopPort();
    deleteStartContext();
    storeArrow();
    makeFallbackContext();
    MTBX_RegisterClipboardFormats();
    SetGlobalMode(globalMode);
}

// The main window is the host's and outlives the port.
void closeFirstPort()
{
    if (!firstPort)
        return;
    MacSetPort(firstPort);
    MTBX_GiveBackContext(*firstPort);
    (*firstPort->portPixMap)->pmDC = nullptr;
    (*firstPort->portPixMap)->pmWindow = nullptr;
    deleteStartContext();
    DisposeWindow(firstPort);
    firstPort = nullptr;
}

void closeDesktopPort()
{
    DisposeWindow(gDesktopWindow);
    gDesktopWindow = nullptr;
    if (listEnd)
        DisposePtr(reinterpret_cast<Ptr>(listEnd));
    gFrontWindow = listEnd = nullptr;
}

} // namespace

void InitGraf(void *)
{
    if (isStarted)
        MTBX_ShutdownGraf();
    isStarted = true;
    MTBX_StartText();
    measureScreen();
    MTBX_StartClipping();
    MTBX_StartSharedRegions();
    openFirstPort();
    startEnvironment();
    MTBX_ReadCopySettings();
    MTBX_StartCursors();
}

void MTBX_ShutdownGraf()
{
    isStarted = false;
    MTBX_StopCursors();
    MTBX_StopText();
    closeFirstPort();
    MTBX_ClearIndexedFileNameCache();
    closeDesktopPort();
    if (fallbackDC)
        DeleteDC(fallbackDC);
    fallbackDC = nullptr;
    MTBX_StopColors();
    MTBX_ForgetDevice();
    MTBX_StopDisplays();
    MTBX_StopPatterns();
    MTBX_StopClipping();
    MTBX_StopSharedRegions();
}
