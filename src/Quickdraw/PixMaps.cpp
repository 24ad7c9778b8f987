// The PixMaps of ports, and the device whose PixMap the next port takes after.
#include "ColorTables_internal.h"
#include "Ports_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>
#include <mtbx/QDOffscreen.h>

namespace {

GDHandle rememberedDevice;
bool nextPixMapIsDevices;

PixMapHandle devicePixMap()
{
    return rememberedDevice && *rememberedDevice ? (*rememberedDevice)->gdPMap : nullptr;
}

void copyFormat(const PixMap &source, PixMap &pixMap)
{
    pixMap.rowBytes = source.rowBytes;
    pixMap.bounds = source.bounds;
    pixMap.pmVersion = source.pmVersion;
    pixMap.packType = source.packType;
    pixMap.packSize = source.packSize;
    pixMap.hRes = source.hRes;
    pixMap.vRes = source.vRes;
    pixMap.pixelType = source.pixelType;
    pixMap.pixelSize = source.pixelSize;
    pixMap.cmpCount = source.cmpCount;
    pixMap.cmpSize = source.cmpSize;
    pixMap.planeBytes = source.planeBytes;
}

void disposeContext(PixMap &pixMap)
{
    if (pixMap.pmOldBitmap)
        SelectObject(pixMap.pmDC, pixMap.pmOldBitmap);
    if (pixMap.pmBitmap)
        DeleteObject(pixMap.pmBitmap);
    bool isWindows = pixMap.pmWindow && !pixMap.pmPersistentDC;
    if (!isWindows || !ReleaseDC(pixMap.pmWindow, pixMap.pmDC))
        DeleteDC(pixMap.pmDC);
    pixMap.pmDC = nullptr;
}

} // namespace

PixMapHandle newPixMap()
{
    auto handle = reinterpret_cast<PixMapHandle>(NewHandleClear(sizeof(PixMap)));
    if (!handle)
        return nullptr;
    PixMap &pixMap = **handle;
    pixMap.rowBytes = static_cast<SInt16>(0x8000);
    if (nextPixMapIsDevices && devicePixMap())
        copyFormat(**devicePixMap(), pixMap);
    else
        pixMap.pixelSize = pixMap.cmpSize = gbits_per_pixel;
    nextPixMapIsDevices = false;
    pixMap.pmTable = MTBX_StandardTable(pixMap.pixelSize);
    return handle;
}

void disposePixMap(PixMapHandle handle)
{
    PixMap &pixMap = **handle;
    if (pixMap.pmDC)
        disposeContext(pixMap);
    if (pixMap.pmWindow) {
        DestroyWindow(pixMap.pmWindow);
        pixMap.pmWindow = nullptr;
    }
    if (pixMap.pmReserved)
        DisposeHandle(pixMap.pmReserved);
    DisposeHandle(reinterpret_cast<Handle>(handle));
}

void MTBX_ForgetDevice()
{
    rememberedDevice = nullptr;
    nextPixMapIsDevices = false;
}

void SetGDevice(GDHandle device)
{
    rememberedDevice = device;
    UseGDevPMap();
}

void UseGDevPMap()
{
    nextPixMapIsDevices = devicePixMap() != nullptr;
}

Rect *GetPixBounds(PixMapHandle pixMap, Rect *bounds)
{
    *bounds = (*pixMap)->bounds;
    return bounds;
}

SInt16 GetPixDepth(PixMapHandle pixMap)
{
    return (*pixMap)->pixelSize;
}

Ptr GetPixBaseAddr(PixMapHandle pixMap)
{
    return (*pixMap)->baseAddr;
}

Boolean LockPixels(PixMapHandle)
{
    return true;
}

void UnlockPixels(PixMapHandle)
{
}
