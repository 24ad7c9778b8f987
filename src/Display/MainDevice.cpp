// The one device of the Toolbox, and the grey region.
#include "Display_internal.h"
#include "Quickdraw/ColorTables_internal.h"
#include "Quickdraw/Palettes_internal.h"

#include <mtbx/Displays.h>
#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>
#include <mtbx/Script.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr SInt32 mostPaletteEntries = 256;

GDHandle mainDevice = nullptr;
CTabHandle mainColorTable = nullptr;
RgnHandle grayRgn = nullptr;

SInt32 colorCount()
{
    return gbits_per_pixel < 9 ? 1 << std::max<SInt32>(gbits_per_pixel, 0) : 20;
}

void writeEntries(ColorSpec *entries, const PALETTEENTRY *palette, UINT count)
{
    auto wide = [](BYTE level) { return static_cast<UInt16>(level * 257); };
    for (UINT i = 0; i < count; ++i)
        entries[i].rgb = {wide(palette[i].peRed), wide(palette[i].peGreen), wide(palette[i].peBlue)};
    if (count == 0)
        entries[0].rgb = {65535, 65535, 65535};
}

void keepSystemEntries(const PALETTEENTRY *palette, SInt32 count)
{
    std::copy_n(palette, systemEntryCount, firstSystemEntries);
    std::copy_n(palette + count - systemEntryCount, systemEntryCount, lastSystemEntries);
}

// The screen's colours as they are now; the number of entries stands in ctSize.
CTabHandle newMainColorTable()
{
    SInt32 count = colorCount();
    CTabHandle table = newColorTable(count, 0);
    if (!table)
        return nullptr;
    (*table)->ctSize = static_cast<SInt16>(count);
    PALETTEENTRY palette[mostPaletteEntries] = {};
    HWND desktop = GetDesktopWindow();
    HDC context = GetWindowDC(desktop);
    UINT found = GetSystemPaletteEntries(context, 0, static_cast<UINT>(count), palette);
    ReleaseDC(desktop, context);
    writeEntries(entriesOf(table), palette, std::min(found, static_cast<UINT>(count)));
    if (count > 2 * systemEntryCount)
        keepSystemEntries(palette, count);
    return table;
}

PixMapHandle newDevicePixMap()
{
    auto handle = reinterpret_cast<PixMapHandle>(NewHandleClear(sizeof(PixMap)));
    if (!handle)
        return nullptr;
    (*handle)->rowBytes = static_cast<SInt16>(0x8000);
    (*handle)->pixelSize = (*handle)->cmpSize = gbits_per_pixel;
    return handle;
}

void disposeMainDevice()
{
    DisposeHandle(reinterpret_cast<Handle>(std::exchange(mainColorTable, nullptr)));
    GDHandle device = std::exchange(mainDevice, nullptr);
    if (!device)
        return;
    DisposeHandle(reinterpret_cast<Handle>((*device)->gdPMap));
    DisposeHandle(reinterpret_cast<Handle>(device));
}

void makeMainDevice()
{
    mainDevice = reinterpret_cast<GDHandle>(NewHandleClear(sizeof(GDevice)));
    if (!mainDevice)
        return;
    (*mainDevice)->gdPMap = newDevicePixMap();
    mainColorTable = newMainColorTable();
    if (!(*mainDevice)->gdPMap || !mainColorTable) {
        disposeMainDevice();
        return;
    }
    SInt32 mode = GetGlobalMode();
    SetGlobalMode(1);
    GetGrayRgn();
    SetGlobalMode(mode);
}

Rect desktopBelowMenuBar()
{
    Rect desktop = qd.screenBits.bounds;
    desktop.top = static_cast<SInt16>(desktop.top + GetMBarHeight());
    return desktop;
}

} // namespace

GDHandle GetMainDevice()
{
    if (!mainDevice)
        makeMainDevice();
    if (mainDevice)
        (*mainDevice)->gdRect = qd.screenBits.bounds;
    return mainDevice;
}

GDHandle GetGDevice()
{
    return GetMainDevice();
}

GDHandle GetDeviceList()
{
    return GetMainDevice();
}

GDHandle GetMaxDevice(const Rect *)
{
    return GetMainDevice();
}

GDHandle GetNextDevice(GDHandle)
{
    return nullptr;
}

Boolean TestDeviceAttribute(GDHandle device, SInt16 attribute)
{
    switch (attribute) {
    case gdDevType: return device && *device && (*device)->gdPMap && (*(*device)->gdPMap)->pixelSize != 1;
    case screenDevice:
    case screenActive: return device && device == GetMainDevice();
    default: return false;
    }
}

RgnHandle GetGrayRgn()
{
    if (!grayRgn)
        grayRgn = NewRgn();
    Rect area;
    if (GetGlobalMode() == 0)
        area = desktopBelowMenuBar();
    else
        MTBX_GetGrayRect(&area);
    RectRgn(grayRgn, &area);
    return grayRgn;
}

void MTBX_StopDisplays()
{
    disposeMainDevice();
    DisposeRgn(std::exchange(grayRgn, nullptr));
}
