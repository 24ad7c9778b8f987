// Ports: opening and closing, contexts, origin and clip.
#include "Graphics.h"
#include "PixelSet.h"
#include "Settings.h"

#include <random>

namespace {

const HGDIOBJ nothingSaved = reinterpret_cast<HGDIOBJ>(intptr_t{-1});

Rect boundsOf(RgnHandle rgn)
{
    Rect box;
    GetRegionBounds(rgn, &box);
    return box;
}

POINT originOf(HDC context)
{
    POINT origin;
    GetWindowOrgEx(context, &origin);
    return origin;
}

class Ports : public Graphics {};

TEST_F(Ports, TheFirstPortIsCurrentAndNullStandsForIt)
{
    GrafPtr first = qd.thePort;
    ASSERT_TRUE(first);
    EXPECT_EQ(+pixMapOf(first).pmWindow, hWndMain);
    EXPECT_TRUE(contextOf(first));
    PortInMemory other;
    EXPECT_EQ(+qd.thePort, first) << "opening a port leaves the current one";
    MacSetPort(other.port());
    EXPECT_EQ(GetQDGlobalsThePort(), other.port());
    MacSetPort(nullptr);
    GrafPtr port = nullptr;
    GetPort(&port);
    EXPECT_EQ(port, first);
}

TEST_F(Ports, OpenCPortFillsARecordAndKeepsTheRest)
{
    CGrafPort port;
    memset(&port, 0x5A, sizeof port);
    port.portRect = ltrb(0, 0, 20, 10);
    port.portOffscreen = 1;
    OpenCPort(&port);
    ASSERT_EQ(QDError(), 0);
    EXPECT_EQ(port.device, 0);
    EXPECT_EQ(port.portVersion, 0xC000);
    EXPECT_EQ(boundsOf(port.clipRgn), ltrb(-32767, -32767, 32767, 32767));
    EXPECT_EQ(boundsOf(port.visRgn), port.portRect);
    EXPECT_EQ(port.bkPat, qd.white);
    EXPECT_EQ(port.fillPat, qd.black);
    EXPECT_EQ(port.pnPat, qd.black);
    EXPECT_EQ(port.pnMode, patCopy);
    EXPECT_EQ(port.pnSize, (Point{1, 1}));
    EXPECT_EQ(port.txFont, 0);
    EXPECT_EQ(port.txFace, 0);
    EXPECT_EQ(port.txMode, srcCopy);
    EXPECT_EQ(port.txSize, 12);
    EXPECT_EQ(port.portFontDirty, 1);
    EXPECT_EQ(port.rgbFgColor, (RGBColor{0, 0, 0}));
    EXPECT_EQ(port.rgbBkColor, (RGBColor{65535, 65535, 65535}));
    EXPECT_EQ(+port.fgColor, 0u);
    EXPECT_EQ(+port.bkColor, 0xFFFFFFu);
    EXPECT_TRUE(+port.portBrush);
    EXPECT_EQ(+port.portSavedBrush, nothingSaved);
    EXPECT_EQ(+port.portSavedFont, nothingSaved);
    EXPECT_FALSE(port.picSave || port.rgnSave || port.polySave || port.grafProcs || port.portFont
                 || port.portFontInstance || port.moveInMainClient || port.portColorStamp || port.filler);
    EXPECT_GE(GetHandleSize(port.grafVars), 26);
    // No start value.
    EXPECT_EQ(port.pnLoc, (Point{0x5A5A, 0x5A5A}));
    EXPECT_EQ(port.pnVis, 0x5A5A);
    EXPECT_EQ(+port.spExtra, 0x5A5A5A5A);
    EXPECT_EQ(port.colrBit, 0x5A5A);
    CloseCPort(&port);
    EXPECT_FALSE(port.portPixMap || port.visRgn || port.clipRgn || port.portBrush);
}

TEST_F(Ports, ANewPixMapHasTheScreensDepthAndNoContext)
{
    CGrafPtr port = CreateNewPort();
    ASSERT_TRUE(port);
    EXPECT_EQ(port->portOffscreen, 1);
    PixMapHandle handle = GetPortPixMap(port);
    const PixMap &map = **handle;
    EXPECT_EQ(GetHandleSize(reinterpret_cast<Handle>(handle)), Size{sizeof(PixMap)});
    EXPECT_EQ(static_cast<UInt16>(map.rowBytes), 0x8000);
    EXPECT_EQ(GetPixDepth(handle), gbits_per_pixel);
    EXPECT_EQ(map.cmpSize, gbits_per_pixel);
    EXPECT_EQ(map.cmpCount, 0);
    EXPECT_FALSE(map.pmWindow || map.pmDC || map.pmBitmap || map.pmOldBitmap || map.pmPersistentDC);
    EXPECT_FALSE(GetPixBaseAddr(handle));
    DisposePort(port);
}

TEST_F(Ports, TheNextPixMapTakesTheFormatOfARememberedDeviceOnce)
{
    PixMap deviceMap{};
    deviceMap.rowBytes = static_cast<SInt16>(0x8010);
    deviceMap.bounds = ltrb(1, 2, 3, 4);
    deviceMap.pmVersion = 5;
    deviceMap.packType = 6;
    deviceMap.packSize = 7;
    deviceMap.hRes = 8;
    deviceMap.vRes = 9;
    deviceMap.pixelType = 10;
    deviceMap.pixelSize = 1;
    deviceMap.cmpCount = 11;
    deviceMap.cmpSize = 12;
    deviceMap.planeBytes = 13;
    PixMapPtr mapPointer = &deviceMap;
    GDevice device{};
    GDPtr devicePointer = &device;
    SetGDevice(&devicePointer);
    CGrafPtr without = CreateNewPort();
    EXPECT_EQ(pixMapOf(without).pixelSize, gbits_per_pixel) << "the device has no PixMap";
    device.gdPMap = &mapPointer;
    SetGDevice(&devicePointer);
    CGrafPtr like = CreateNewPort();
    CGrafPtr unlike = CreateNewPort();
    EXPECT_EQ(0, memcmp(&pixMapOf(like), &deviceMap, offsetof(PixMap, pmTable)));
    EXPECT_FALSE(+pixMapOf(like).pmTable) << "none for one bit";
    EXPECT_EQ(pixMapOf(unlike).pixelSize, gbits_per_pixel);
    UseGDevPMap();
    CGrafPtr again = CreateNewPort();
    EXPECT_EQ(pixMapOf(again).pixelSize, 1);
    SetGDevice(nullptr);
    for (CGrafPtr port : {without, like, unlike, again})
        DisposePort(port);
}

TEST_F(Ports, AWindowHasAContextWhileItsPortIsCurrent)
{
    PortWindow a(ltrb(500, 100, 600, 180)), b(ltrb(620, 100, 700, 180));
    MacSetPort(a.port());
    HDC context = a.context();
    ASSERT_TRUE(context);
    EXPECT_FALSE(b.context());
    MacSetPort(b.port());
    EXPECT_FALSE(a.context());
    EXPECT_TRUE(b.context());
    EXPECT_EQ(+a.port()->portSavedBrush, nothingSaved);
}

TEST_F(Ports, AContextIsSetUpFromThePort)
{
    PortWindow window(ltrb(500, 100, 600, 180));
    CGrafPtr port = window.port();
    port->portRect = ltrb(-7, 11, 93, 91);
    port->fgColor = 0x0000FF80;
    port->bkColor = 0x00102030;
    port->txMode = srcOr;
    MacSetPort(port);
    HDC context = window.context();
    EXPECT_EQ(originOf(context).x, -7);
    EXPECT_EQ(originOf(context).y, 11);
    EXPECT_EQ(GetTextColor(context), 0x0000FF80u);
    EXPECT_EQ(GetBkColor(context), 0x00102030u);
    EXPECT_EQ(GetBkMode(context), TRANSPARENT);
    EXPECT_EQ(GetCurrentObject(context, OBJ_BRUSH), +port->portBrush);
    EXPECT_NE(+port->portSavedBrush, nothingSaved);
    EXPECT_EQ(GetROP2(context), R2_COPYPEN);
    PenMode(patXor);
    MacSetPort(nullptr);
    port->txMode = srcXor;
    MacSetPort(port);
    EXPECT_EQ(GetBkMode(window.context()), OPAQUE);
    EXPECT_EQ(port->pnMode, patXor);
    EXPECT_EQ(GetROP2(window.context()), R2_COPYPEN) << "a new context copies until the next PenMode";
}

TEST_F(Ports, APortInMemoryKeepsItsContext)
{
    PortInMemory memory;
    HDC context = memory.context();
    MacSetPort(memory.port());
    RGBColor green = {0, 65535, 0};
    RGBForeColor(&green);
    PenMode(patXor);
    MacSetPort(nullptr);
    EXPECT_EQ(memory.context(), context);
    EXPECT_NE(GetCurrentObject(context, OBJ_BRUSH), +memory.port()->portBrush) << "taken out with the port";
    MacSetPort(memory.port());
    EXPECT_EQ(GetROP2(context), R2_NOTXORPEN);
    PenPat(&stripes);
    PatBlt(context, 0, 0, 64, 64, PATCOPY);
    EXPECT_EQ(memory.pixel(0, 0), 0x00FF00u);
    EXPECT_EQ(memory.pixel(4, 0), 0xFFFFFFu);
}

TEST_F(Ports, AWindowThatIsGoneLeavesItsPortWithoutAContext)
{
    PortWindow window(ltrb(500, 100, 600, 180));
    window.native.close();
    MacSetPort(window.port());
    EXPECT_EQ(+qd.thePort, window.port());
    EXPECT_FALSE(+pixMapOf(window.port()).pmWindow);
    EXPECT_FALSE(window.context());
    PenNormal();
    PenMode(patXor);
    PenPat(&stripes);
    EXPECT_EQ(window.port()->pnPat, stripes);
    MoveTo(3, 4);
    SetOrigin(5, 5);
    ClipRect(&window.port()->portRect);
    EXPECT_EQ(QDError(), 0);
}

TEST_F(Ports, TheCurrentPortIsLeftAsItIs)
{
    PortInMemory memory;
    MacSetPort(memory.port());
    memory.port()->portRect = ltrb(30, 30, 94, 94);
    MacSetPort(memory.port());
    EXPECT_EQ(originOf(memory.context()).x, 0);
}

TEST_F(Ports, VisRgnBecomesPortRectUnlessAnUpdateIsUnderWay)
{
    PortWindow window(ltrb(500, 100, 600, 180));
    CGrafPtr port = window.port();
    Rect part = ltrb(10, 10, 40, 30);
    RectRgn(port->visRgn, &part);
    window.record.windowPic = 1;
    MacSetPort(port);
    EXPECT_EQ(boundsOf(port->visRgn), part);
    EXPECT_EQ(clipBoxOf(window.context()), part);
    MacSetPort(nullptr);
    window.record.windowPic = 0;
    MacSetPort(port);
    EXPECT_EQ(boundsOf(port->visRgn), port->portRect);
    EXPECT_EQ(clipBoxOf(window.context()), part) << "the reset serves the next computation";
    ClipRect(&port->portRect);
    EXPECT_EQ(clipBoxOf(window.context()), port->portRect);
}

TEST_F(Ports, TheClipTakesEffectAtOnceOrWithTheNextComputation)
{
    PortInMemory memory;
    CGrafPtr port = memory.port();
    MacSetPort(port);
    RgnHandle rgn = NewRgn(), clip = NewRgn();
    MacSetRectRgn(rgn, 5, 6, 20, 21);
    SetClip(rgn);
    EXPECT_EQ(clipBoxOf(memory.context()), ltrb(5, 6, 20, 21));
    MacSetRectRgn(rgn, 1, 1, 9, 9);
    SetPortClipRegion(port, rgn);
    GetClip(clip);
    EXPECT_EQ(boundsOf(clip), ltrb(1, 1, 9, 9));
    EXPECT_EQ(clipBoxOf(memory.context()), ltrb(5, 6, 20, 21));
    SetEmptyRgn(rgn);
    SetClip(rgn);
    PatBlt(memory.context(), 0, 0, 64, 64, WHITENESS);
    EXPECT_EQ(memory.pixel(6, 7), 0u);
    Rect rect = ltrb(2, 3, 10, 12);
    ClipRect(&rect);
    EXPECT_EQ(clipBoxOf(memory.context()), rect);
    EXPECT_EQ(GetPortClipRegion(port, clip), clip);
    EXPECT_EQ(boundsOf(clip), rect);
    DisposeRgn(rgn);
    DisposeRgn(clip);
}

TEST_F(Ports, PortSizeAndSetPortBoundsChangePortRectOnly)
{
    PortInMemory memory;
    MacSetPort(memory.port());
    Rect before = clipBoxOf(memory.context());
    PortSize(10, 5);
    EXPECT_EQ(memory.port()->portRect, ltrb(0, 0, 10, 5));
    Rect moved = ltrb(7, 8, 20, 30), bounds;
    SetPortBounds(memory.port(), &moved);
    PortSize(-1, 32767);
    EXPECT_EQ(*GetPortBounds(memory.port(), &bounds), ltrb(7, 8, 6, -32761));
    EXPECT_EQ(clipBoxOf(memory.context()), before);
    EXPECT_EQ(originOf(memory.context()).x, 0);
}

TEST_F(Ports, MovePortToPutsTheCornerAtAGlobalPoint)
{
    PortInMemory memory;
    MacSetPort(memory.port());
    memory.port()->portRect = ltrb(3, 4, 10, 10);
    MovePortTo(20, 30);
    EXPECT_EQ(memory.port()->portRect, ltrb(20, 30, 27, 36)) << "local is global without a window";
    PortWindow window(ltrb(150, 100, 250, 180));
    MacSetPort(window.port());
    MovePortTo(0, 0);
    EXPECT_EQ(window.port()->portRect, ltrb(-50, -40, 50, 40)) << "the main window is at 100, 60";
}

TEST_F(Ports, SetOriginMovesCoordinatesAndTheClipFollowsLate)
{
    PortInMemory memory;
    CGrafPtr port = memory.port();
    MacSetPort(port);
    Rect clip = ltrb(10, 10, 30, 30);
    ClipRect(&clip);
    SetOrigin(8, -4);
    EXPECT_EQ(port->portRect, ltrb(8, -4, 72, 60));
    EXPECT_EQ(boundsOf(port->clipRgn), ltrb(18, 6, 38, 26));
    EXPECT_EQ(boundsOf(port->visRgn), ltrb(8, -4, 72, 60));
    EXPECT_EQ(originOf(memory.context()).x, 8);
    EXPECT_EQ(originOf(memory.context()).y, -4);
    // Computed with the former origin, so it lies off by the move until the next computation.
    EXPECT_EQ(clipBoxOf(memory.context()), ltrb(26, 2, 46, 22));
    SetClip(port->clipRgn);
    EXPECT_EQ(clipBoxOf(memory.context()), ltrb(18, 6, 38, 26));
    SetWindowOrgEx(memory.context(), 99, 99, nullptr);
    SetOrigin(8, -4);
    EXPECT_EQ(originOf(memory.context()).x, 8) << "set in the context even when nothing moves";
}

TEST_F(Ports, AClipOutOfRangeThatWouldHideAllIsDropped)
{
    PortInMemory memory;
    CGrafPtr port = memory.port();
    port->portRect = ltrb(-10000, -10000, -9936, -9936);
    MacSetPort(port);
    Rect distant = ltrb(10000, 10000, 32767, 32767);
    ClipRect(&distant);
    EXPECT_EQ(clipBoxOf(memory.context()), port->portRect) << "moving it would pass the range";
    distant.right = distant.bottom = 20000;
    ClipRect(&distant);
    EXPECT_EQ(clipBoxOf(memory.context()), Rect{}) << "in range and off the port";
}

// Where drawing lands, against the intersection of the regions as sets of pixels.
TEST_F(Ports, DrawingIsLimitedToTheRegionsOfRandomPorts)
{
    std::mt19937 random(20240607);
    auto between = [&](int low, int high) {
        return static_cast<SInt16>(low + static_cast<int>(random() % (high - low + 1)));
    };
    auto randomRegion = [&](RgnHandle rgn, Point origin) {
        RgnHandle part = NewRgn();
        SetEmptyRgn(rgn);
        for (int i = between(0, 5); i > 0; --i) {
            SInt16 left = between(-5, 60), top = between(-5, 60);
            MacSetRectRgn(part, left, top, left + between(1, 30), top + between(1, 30));
            i % 2 ? MacUnionRgn(rgn, part, rgn) : MacXorRgn(rgn, part, rgn);
        }
        MacOffsetRgn(rgn, origin.h, origin.v);
        DisposeRgn(part);
    };
    for (int round = 0; round < 200; ++round) {
        PortInMemory memory;
        CGrafPtr port = memory.port();
        bool isWindow = random() % 2;
        // A window whose context is its own memory.
        pixMapOf(port).pmWindow = isWindow ? static_cast<HWND>(mainWindow) : nullptr;
        Point origin = {between(-50, 50), between(-50, 50)};
        MacOffsetRect(&port->portRect, origin.h, origin.v);
        MacSetPort(port);
        RgnHandle clip = NewRgn();
        randomRegion(clip, origin);
        randomRegion(port->visRgn, origin);
        SetClip(clip);
        memory.clear();
        PatBlt(memory.context(), origin.h, origin.v, 64, 64, WHITENESS);
        PixelSet inClip = PixelSet::of(clip), visible = PixelSet::of(port->visRgn);
        auto drawn = PixelSet::where([&](int x, int y) {
            x -= origin.h;
            y -= origin.v;
            return x >= 0 && x < 64 && y >= 0 && y < 64 && memory.pixel(x, y) != 0;
        });
        auto expected = PixelSet::where([&](int x, int y) {
            return port->portRect.left <= x && x < port->portRect.right && port->portRect.top <= y
                   && y < port->portRect.bottom && inClip.has(x, y) && (!isWindow || visible.has(x, y));
        });
        ASSERT_EQ(drawn, expected) << "round " << round;
        DisposeRgn(clip);
        pixMapOf(port).pmWindow = nullptr;
    }
}

TEST_F(Ports, DisposingTheCurrentPortGoesToTheFirst)
{
    GrafPtr first = qd.thePort;
    CGrafPtr port = CreateNewPort();
    MacSetPort(port);
    DisposePort(port);
    EXPECT_EQ(+qd.thePort, first);
    DisposePort(nullptr);
}

TEST_F(Ports, ClosingLeavesTheCurrentPortAndDrawingQuiet)
{
    CGrafPort port{};
    port.portOffscreen = 1;
    OpenCPort(&port);
    MacSetPort(&port);
    CloseCPort(&port);
    EXPECT_EQ(+qd.thePort, &port);
    PenMode(patXor);
    MoveTo(1, 1);
    SetOrigin(3, 3);
    Rect rect = ltrb(0, 0, 5, 5);
    ClipRect(&rect);
    MacSetPort(nullptr);
    EXPECT_NE(+qd.thePort, &port);
}

TEST_F(Ports, ClosingFreesTheHooksAndTheNativeWindow)
{
    PortWindow window(ltrb(500, 100, 600, 180));
    auto hooks = reinterpret_cast<CQDProcsPtr>(NewPtrClear(sizeof(CQDProcs)));
    UInt64 before = MEM_GetMemUsage();
    SetPortGrafProcs(window.port(), hooks);
    EXPECT_EQ(GetPortGrafProcs(window.port()), hooks);
    HBRUSH brush = window.port()->portBrush;
    CloseCPort(window.port());
    EXPECT_FALSE(IsWindow(window.native));
    EXPECT_EQ(GetObjectType(brush), 0u);
    EXPECT_LE(MEM_GetMemUsage(), before - sizeof(CQDProcs) - sizeof(PixMap));
}

TEST_F(Ports, SetStdCProcsMakesEverySlotNull)
{
    CQDProcs procs, none{};
    memset(&procs, 0x77, sizeof procs);
    SetStdCProcs(&procs);
    EXPECT_EQ(0, memcmp(&procs, &none, sizeof none));
}

TEST_F(Ports, ABasicPortDrawsOnItsOwnContext)
{
    GrafPtr former = qd.thePort;
    GrafPort port;
    memset(&port, 0x5A, sizeof port);
    OpenPort(&port);
    EXPECT_EQ(+qd.thePort, &port);
    EXPECT_EQ(+port.portBits.baseAddr, nullptr);
    EXPECT_EQ(port.portBits.bounds, qd.screenBits.bounds);
    EXPECT_EQ(port.portRect, qd.screenBits.bounds);
    EXPECT_EQ(boundsOf(port.visRgn), qd.screenBits.bounds);
    EXPECT_EQ(boundsOf(port.clipRgn), ltrb(-32768, -32768, 32767, 32767));
    EXPECT_EQ(port.txMode, srcOr);
    EXPECT_EQ(+port.fgColor, blackColor);
    EXPECT_EQ(+port.bkColor, whiteColor);
    EXPECT_EQ(port.pnLoc, (Point{0, 0}));
    EXPECT_EQ(port.portOffscreen, 1);
    ASSERT_TRUE(+port.portDC);
    PenPat(&stripes);
    EXPECT_EQ(GetCurrentObject(port.portDC, OBJ_BRUSH), +port.portBrush);
    SetOrigin(4, 5);
    EXPECT_EQ(originOf(port.portDC).y, 5);
    HBRUSH brush = port.portBrush;
    MacSetPort(former);
    MacSetPort(&port);
    EXPECT_EQ(GetCurrentObject(port.portDC, OBJ_BRUSH), brush);
    MacSetPort(former);
    CloseCPort(&port);
    EXPECT_FALSE(+port.portDC);
    EXPECT_EQ(GetObjectType(brush), 0u);
}

TEST_F(Ports, MinimalModeSharesRegionsThatOutliveThePorts)
{
    MTBX_BeginGdiMinimalisticWindowCreationMode();
    MTBX_BeginGdiMinimalisticWindowCreationMode();
    MTBX_EndGdiMinimalisticWindowCreationMode();
    CGrafPtr a = CreateNewPort(), b = CreateNewPort();
    MTBX_EndGdiMinimalisticWindowCreationMode();
    CGrafPtr own = CreateNewPort();
    EXPECT_EQ(+a->visRgn, +b->visRgn);
    EXPECT_EQ(+a->clipRgn, +b->clipRgn);
    EXPECT_NE(+a->visRgn, +a->clipRgn);
    EXPECT_NE(+own->visRgn, +a->visRgn);
    RgnHandle shared = a->clipRgn;
    DisposePort(a);
    EXPECT_EQ((*shared)->rgnTag, kRegionTag);
    MacSetRectRgn(b->clipRgn, 0, 0, 4, 4);
    EXPECT_EQ(boundsOf(shared), ltrb(0, 0, 4, 4));
    DisposePort(b);
    DisposePort(own);
}

TEST_F(Ports, MinimalModeCanBeTurnedOff)
{
    MTBX_ShutdownGraf();
    {
        Settings settings("MinimalGdiItemCreation=0\r\n");
        InitGraf(nullptr);
    }
    MTBX_BeginGdiMinimalisticWindowCreationMode();
    CGrafPtr a = CreateNewPort(), b = CreateNewPort();
    MTBX_EndGdiMinimalisticWindowCreationMode();
    EXPECT_NE(+a->visRgn, +b->visRgn);
    DisposePort(a);
    DisposePort(b);
}

TEST_F(Ports, TheDesktopPortSharesCoordinatesWithTheMainWindow)
{
    GrafPtr former = qd.thePort;
    GrafPtr desktop = nullptr, same = nullptr;
    GetWMgrPort(&desktop);
    GetCWMgrPort(&same);
    ASSERT_EQ(desktop, gDesktopWindow);
    EXPECT_EQ(same, desktop);
    EXPECT_EQ(+qd.thePort, former);
    EXPECT_EQ(desktop->portRect.left, -100);
    EXPECT_EQ(desktop->portRect.top, -60);
    auto record = reinterpret_cast<WindowPeek>(desktop);
    EXPECT_EQ(boundsOf(record->strucRgn).left, -100);
    EXPECT_EQ(boundsOf(record->contRgn).top, -60);
    MacSetPort(desktop);
    EXPECT_EQ(clipBoxOf(contextOf(desktop)), ltrb(0, 0, 320, 240)) << "drawing stays within the main window";
}

TEST_F(Ports, AccessorsCopyTheFields)
{
    PortInMemory memory;
    CGrafPtr port = memory.port();
    EXPECT_EQ(static_cast<const void *>(GetPortBitMapForCopyBits(port)), &port->portPixMap);
    port->txFont = 3;
    port->txFace = 4;
    port->txMode = 5;
    port->txSize = 6;
    EXPECT_EQ(GetPortTextFont(port), 3);
    EXPECT_EQ(GetPortTextFace(port), 4);
    EXPECT_EQ(GetPortTextMode(port), 5);
    EXPECT_EQ(GetPortTextSize(port), 6);
    Point point;
    SetPortPenSize(port, {7, 8});
    EXPECT_EQ(*GetPortPenSize(port, &point), (Point{7, 8}));
    port->pnLoc = {9, 10};
    EXPECT_EQ(*GetPortPenLocation(port, &point), (Point{9, 10}));
    MacSetPort(port);
    SetPortPenMode(port, patXor);
    EXPECT_EQ(GetPortPenMode(port), patXor);
    EXPECT_EQ(GetROP2(memory.context()), R2_COPYPEN);
    RGBColor color;
    port->rgbFgColor = {1, 2, 3};
    port->rgbBkColor = {4, 5, 6};
    EXPECT_EQ(*GetPortForeColor(port, &color), (RGBColor{1, 2, 3}));
    EXPECT_EQ(*GetPortBackColor(port, &color), (RGBColor{4, 5, 6}));
    RgnHandle rgn = NewRgn();
    MacSetRectRgn(rgn, 1, 2, 3, 4);
    SetPortVisibleRegion(port, rgn);
    SetEmptyRgn(rgn);
    EXPECT_EQ(GetPortVisibleRegion(port, rgn), rgn);
    EXPECT_EQ(boundsOf(rgn), ltrb(1, 2, 3, 4));
    DisposeRgn(rgn);
    pixMapOf(port).bounds = ltrb(5, 6, 7, 8);
    Rect bounds;
    EXPECT_EQ(*GetPixBounds(GetPortPixMap(port), &bounds), ltrb(5, 6, 7, 8));
}

TEST_F(Ports, WhatIsNotThereAnswersInItsFixedWay)
{
    CGrafPtr port = qd.thePort;
    PixPatHandle pattern = NewPixPat();
    ASSERT_TRUE(pattern);
    EXPECT_GE(GetHandleSize(reinterpret_cast<Handle>(pattern)), 32);
    SetPortPenPixPat(port, pattern);
    SetPortBackPixPat(port, pattern);
    EXPECT_EQ(GetPortPenPixPat(port, pattern), pattern);
    EXPECT_EQ(GetPortBackPixPat(port, nullptr), nullptr);
    EXPECT_FALSE(+(*pattern)->patMap);
    DisposePixPat(pattern);
    DisposePixPat(nullptr);
    EXPECT_TRUE(LockPixels(GetPortPixMap(port)));
    EXPECT_FALSE(QDIsPortBuffered(port) || QDIsPortBufferDirty(port));
    EXPECT_EQ(SetA5(5), 0);
    EXPECT_EQ(SetCurrentA5(), 0);
}

} // namespace
