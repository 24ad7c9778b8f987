// Offscreen worlds: a window's record without a window, which owns its pixels.
#include "WorldBitmaps_internal.h"
#include "WorldSizes_internal.h"

#include "MacWindows/MacWindows_internal.h"
#include "Quickdraw/Regions_internal.h"
#include "Quickdraw/RowBytes_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacErrors.h>

namespace {

// A new port has the depth of the screen: what that is for the time of making a world.
class ScreenDepth {
public:
    explicit ScreenDepth(SInt16 depth) : former_(gbits_per_pixel) { gbits_per_pixel = depth; }
    ~ScreenDepth() { gbits_per_pixel = former_; }
    ScreenDepth(const ScreenDepth &) = delete;
    ScreenDepth &operator=(const ScreenDepth &) = delete;

private:
    SInt16 former_;
};

// A window's record that is in no list.
GWorldPtr newWorldRecord(SInt16 depth, const Rect &rect)
{
    ScreenDepth scope(depth);
    GWorldPtr world = NewCWindow(nullptr, &rect, nullptr, false, 0, nullptr, false, 0);
    if (!world)
        return nullptr;
    MTBX_UnlinkWindow(world);
    recordOf(world).nextWindow = nullptr;
    constexpr SInt16 withoutPortMark = static_cast<SInt16>(0xBFFF);
    (*world->portPixMap)->rowBytes &= withoutPortMark;
    world->portOffscreen = 1;
    return world;
}

void openClip(GrafPort &port)
{
    MacSetRectRgn(port.clipRgn, -32767, -32767, 32767, 32767);
    SelectClipRgn(contextOf(port), nativeRegion(port.clipRgn));
}

} // namespace

OSErr NewGWorld(GWorldPtr *world, SInt16 depth, const Rect *bounds, CTabHandle, GDHandle, GWorldFlags)
{
    *world = nullptr;
    Rect rect = *bounds;
    MacOffsetRect(&rect, static_cast<SInt16>(-bounds->left), static_cast<SInt16>(-bounds->top));
    if (depth == 0)
        depth = gbits_per_pixel;
    if (!isWorldDepth(depth))
        return memFullErr;
    GWorldPtr made = newWorldRecord(depth, rect);
    if (!made)
        return memFullErr;
    if (!sizeWorld(made, depth, rect)) {
        DisposeGWorld(made);
        return memFullErr;
    }
    *world = made;
    return noErr;
}

GWorldFlags UpdateGWorld(GWorldPtr *world, SInt16 depth, const Rect *bounds, CTabHandle, GDHandle, GWorldFlags)
{
    GrafPtr former = qd.thePort, port = *world;
    Rect rect = *bounds;
    MacSetPort(port);
    port->portRect = rect;
    RectRgn(port->visRgn, &rect);
    bool isSized = sizeWorld(port, depth, rect);
    if (isSized)
        openClip(*port);
    MacSetPort(former);
    return isSized ? GWorldFlags{noErr} : static_cast<GWorldFlags>(memFullErr);
}

void DisposeGWorld(GWorldPtr world)
{
    if (!world)
        return;
    if (world == qd.thePort)
        MacSetPort(nullptr);
    if (PixMapPtr map = pixMapOf(*world))
        disposeWorldPixels(*map);
    DisposeWindow(world);
}

void GetGWorld(CGrafPtr *port, GDHandle *device)
{
    GetPort(port);
    *device = GetGDevice();
}

void SetGWorld(CGrafPtr port, GDHandle device)
{
    MacSetPort(port);
    SetGDevice(device);
}

void SaveGWorld()
{
}

GDHandle GetGWorldDevice(GWorldPtr)
{
    return GetGDevice();
}

PixMapHandle GetGWorldPixMap(GWorldPtr world)
{
    return world->portPixMap;
}

SInt32 GetPixRowBytes(PixMapHandle pixMap)
{
    return rowBytesOf(**pixMap);
}

GWorldFlags GetPixelsState(PixMapHandle)
{
    constexpr GWorldFlags lockedAndKept = 0xC0;
    return lockedAndKept;
}

void SetPixelsState(PixMapHandle, GWorldFlags)
{
    StubError("QDOffscreen", "SetPixelsState");
}
