// Making contexts, keeping their state, asking for the device's figures.
#include "device_context.h"

#include "kernel/kernel_internal.h"
#include "screen/screen.h"

#include <cstring>

namespace win32::gdi {

HDC createScreenContext(HWND window, ScreenPlace *place)
{
    if (refusesCreation(ObjectType::Context))
        return nullptr;
    DeviceContext *dc = new (std::nothrow) DeviceContext;
    if (!dc)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HDC{});
    dc->surface = screen::surface();
    dc->window = window;
    dc->place = place;
    Box bounds = dc->surface.box();
    pixman_region32_reset(&dc->visible.pixels, &bounds);
    return static_cast<HDC>(enter(dc));
}

namespace {

// A display of the usual 96 pixels an inch.
int millimetres(int pixels)
{
    return static_cast<int>(pixels * 25.4 / 96 + 0.5);
}

int rasterCapabilities(const Surface &display)
{
    int capabilities = RC_BITBLT | RC_BITMAP64 | RC_DI_BITMAP | RC_DIBTODEV | RC_BIGFONT | RC_STRETCHBLT | RC_STRETCHDIB;
    return display.format.layout == PixelLayout::Index8 ? capabilities | RC_PALETTE : capabilities;
}

int deviceCapability(const Surface &display, int index)
{
    constexpr int allCurves = 0x1ff, allLines = 0xfe, allPolygons = 0xff, allText = 0x7807, clipsToRectangles = 1;
    const Box &primary = screen::monitors().front().bounds;
    int bits = display.format.bitsPerPixel;
    bool hasPalette = display.format.layout == PixelLayout::Index8;
    switch (index) {
    case DRIVERVERSION:
        return 0x5000;
    case TECHNOLOGY:
        return DT_RASDISPLAY;
    case HORZSIZE:
        return millimetres(primary.x2 - primary.x1);
    case VERTSIZE:
        return millimetres(primary.y2 - primary.y1);
    case HORZRES:
    case DESKTOPHORZRES:
        return primary.x2 - primary.x1;
    case VERTRES:
    case DESKTOPVERTRES:
        return primary.y2 - primary.y1;
    case BITSPIXEL:
        return bits;
    case PLANES:
    case CLIPCAPS:
        return index == PLANES ? 1 : clipsToRectangles;
    case NUMBRUSHES:
    case NUMPENS:
        return -1; // as many as are wanted
    case NUMCOLORS:
        return bits == 1 ? 2 : hasPalette ? 20 : -1;
    case CURVECAPS:
        return allCurves;
    case LINECAPS:
        return allLines;
    case POLYGONALCAPS:
        return allPolygons;
    case TEXTCAPS:
        return allText;
    case RASTERCAPS:
        return rasterCapabilities(display);
    case ASPECTX:
    case ASPECTY:
        return 36;
    case ASPECTXY:
        return 51;
    case LOGPIXELSX:
    case LOGPIXELSY:
        return 96;
    case SIZEPALETTE:
        return hasPalette ? 256 : 0;
    case NUMRESERVED:
        return hasPalette ? 20 : 0;
    case COLORRES:
        return hasPalette ? 18 : 0;
    case VREFRESH:
        return 60;
    default:
        return 0;
    }
}

} // namespace
} // namespace win32::gdi

using namespace win32;
using namespace win32::gdi;

HDC CreateCompatibleDC(HDC model)
{
    if ((model && !findContext(model)) || refusesCreation(ObjectType::Context))
        return nullptr;
    DeviceContext *dc = new (std::nothrow) DeviceContext;
    if (!dc)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HDC{});
    dc->isMemory = true;
    dc->setBitmap(*defaultBitmap());
    return static_cast<HDC>(enter(dc));
}

HDC CreateDCA(LPCSTR driver, LPCSTR, LPCSTR, const DEVMODEA *)
{
    if (!driver || _stricmp(driver, "DISPLAY") != 0)
        return fail(ERROR_INVALID_PARAMETER, HDC{});
    return createScreenContext(nullptr, nullptr);
}

BOOL DeleteDC(HDC context)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    if (dc->place)
        dc->place->release(*dc);
    else
        destroy(dc);
    return TRUE;
}

int SaveDC(HDC context)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return 0;
    return guarded(0, [&] {
        dc->saved.push_back(std::make_unique<ContextState>(dc->state));
        return static_cast<int>(dc->saved.size());
    });
}

// A negative number counts from the state saved last.
BOOL RestoreDC(HDC context, int number)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    auto count = static_cast<int>(dc->saved.size());
    int wanted = number < 0 ? count + number + 1 : number;
    if (number == 0 || wanted < 1 || wanted > count)
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    std::swap(dc->state, *dc->saved[static_cast<size_t>(wanted - 1)]);
    dc->saved.resize(static_cast<size_t>(wanted - 1));
    dc->mappingChanged();
    dc->clipChanged();
    return TRUE;
}

int GetDeviceCaps(HDC context, int index)
{
    DeviceContext *dc = findContext(context);
    return dc ? deviceCapability(screen::surface(), index) : 0;
}

BOOL GetDCOrgEx(HDC context, LPPOINT origin)
{
    DeviceContext *dc = findContext(context);
    if (!dc || !origin)
        return FALSE;
    *origin = dc->origin;
    return TRUE;
}

// Nothing is kept back: every call has drawn when it returns.
BOOL GdiFlush()
{
    return TRUE;
}

int Escape(HDC context, int, int, LPCSTR, LPVOID)
{
    findContext(context);
    return 0;
}
