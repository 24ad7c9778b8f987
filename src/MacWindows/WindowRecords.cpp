// Making, closing and disposing of window records.
#include "MacWindows_internal.h"
#include "Quickdraw/RowBytes_internal.h"

#include <mtbx/Controls.h>
#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>
#include <mtbx/Resources.h>
#include <mtbx/TextUtils.h>

#include <algorithm>
#include <cstring>

namespace {

bool takeFrameRegions(WindowRecord &record)
{
    bool shared = minimalCreationDepth > 0;
    record.strucRgn = shared ? sharedRegions.struc : NewRgn();
    record.contRgn = shared ? sharedRegions.cont : NewRgn();
    return record.strucRgn && record.contRgn;
}

bool takeHandles(WindowRecord &record)
{
    record.dataHandle = NewHandleClear(2 * sizeof(Rect));
    record.titleHandle = reinterpret_cast<StringHandle>(NewHandleClear(sizeof(Str255)));
    record.updateRgn = minimalCreationDepth > 0 ? sharedRegions.update : NewRgn();
    return record.dataHandle && record.titleHandle && record.updateRgn;
}

// The bounds put the origin of global coordinates where it lies in the window's own.
bool placePort(GrafPort &port, const Rect &bounds)
{
    PixMap &map = **port.portPixMap;
    map.pmWindow = nullptr;
    map.rowBytes = static_cast<SInt16>(0xC000);
    map.pixelSize = map.cmpSize = gbits_per_pixel;
    map.bounds = bounds;
    MacOffsetRect(&map.bounds, static_cast<SInt16>(-2 * bounds.left), static_cast<SInt16>(-2 * bounds.top));
    port.portRect = bounds;
    SInt32 width = std::max(bounds.right - bounds.left, 0);
    if (!MTBX_SetRowBytes(port.portPixMap, (width * gbits_per_pixel + 31) / 32 * 4))
        return false;
    RectRgn(port.visRgn, &bounds);
    return true;
}

bool openWindowPort(WindowRecord &record, const Rect &bounds)
{
    OpenCPort(&record.port);
    return qdErrorValue == noErr && placePort(record.port, bounds);
}

void disposeRegions(WindowRecord &record)
{
    disposeUnlessShared(record.updateRgn, sharedRegions.update);
    disposeUnlessShared(record.strucRgn, sharedRegions.struc);
    disposeUnlessShared(record.contRgn, sharedRegions.cont);
    record.updateRgn = record.strucRgn = record.contRgn = nullptr;
}

void disposeHandles(WindowRecord &record)
{
    DisposeHandle(record.dataHandle);
    DisposeHandle(reinterpret_cast<Handle>(record.titleHandle));
    DisposeHandle(record.windowExtra);
    record.dataHandle = record.windowExtra = nullptr;
    record.titleHandle = nullptr;
}

// The native children go with their parent.
void disposeControls(WindowRecord &record)
{
    while (ControlHandle control = record.controlList) {
        record.controlList = (*control)->nextControl;
        DisposeHandle(reinterpret_cast<Handle>(control));
    }
}

// A pointer to a record that goes must not stay current.
void leavePort(WindowPtr window)
{
    if (window == qd.thePort)
        MacSetPort(nullptr);
}

void closePort(WindowPtr window)
{
    leavePort(window);
    CloseCPort(window);
    // There may be no other port to make current.
    if (window == qd.thePort)
        qd.thePort = nullptr;
}

// The host's procedure destroys its window, and no longer finds the record then.
void closeNativeWindow(WindowPtr window)
{
    HWND native = nativeWindowOf(window);
    if (!native || native == hWndMain || native == GetDesktopWindow())
        return;
    SetHwndMacWindowPtr(native, nullptr);
    SendMessageA(native, WM_CLOSE, 0, 0);
}

bool complete(WindowRecord &record, const Rect &bounds, ConstStr255Param title)
{
    if (!takeFrameRegions(record))
        return false;
    RectRgn(record.strucRgn, &bounds);
    RectRgn(record.contRgn, &bounds);
    if (!openWindowPort(record, bounds) || !takeHandles(record))
        return false;
    pstrcpy(*record.titleHandle, title);
    return true;
}

void undo(WindowRecord &record)
{
    disposeRegions(record);
    if (record.port.portPixMap)
        closePort(&record.port);
    disposeHandles(record);
}

// A record that is still in the list must not be linked a second time.
WindowPeek takeStorage(void *wStorage)
{
    if (!wStorage)
        return reinterpret_cast<WindowPeek>(NewPtrClear(sizeof(WindowRecord)));
    MTBX_UnlinkWindow(static_cast<WindowPtr>(wStorage));
    return static_cast<WindowPeek>(memset(wStorage, 0, sizeof(WindowRecord)));
}

// A WIND resource, up to the title's first character.
struct WindowTemplate {
    Rect bounds;
    SInt16 procID;
    bool visible;
    bool goAwayFlag;
    SInt32 refCon;
    Str255 title;
};
constexpr ResType windowTemplates = 0x57494E44; // 'WIND'
constexpr Size titleOffset = 18;

template <typename T> T fieldAt(const char *data, Size offset)
{
    T field;
    memcpy(&field, data + offset, sizeof field);
    return field;
}

// False when the resource is too short.
bool readTemplate(Handle resource, WindowTemplate &window)
{
    Size size = GetHandleSize(resource);
    if (size < titleOffset)
        return false;
    const char *data = *resource;
    window.bounds = fieldAt<Rect>(data, 0);
    window.procID = fieldAt<SInt16>(data, 8);
    window.visible = fieldAt<SInt16>(data, 10) != 0;
    window.goAwayFlag = fieldAt<SInt16>(data, 12) != 0;
    window.refCon = fieldAt<SInt32>(data, 14);
    constexpr size_t longestTitle = 254;
    size_t length = strnlen(data + titleOffset, std::min<size_t>(size - titleOffset, longestTitle));
    window.title[0] = static_cast<UInt8>(length);
    memcpy(window.title + 1, data + titleOffset, length);
    return true;
}

} // namespace

WindowPtr NewCWindow(void *wStorage, const Rect *boundsRect, ConstStr255Param title, Boolean visible, SInt16 procID,
                     WindowPtr, Boolean goAwayFlag, SRefCon refCon)
{
    constexpr UInt16 lastListedProcID = 16;
    WindowPeek record = takeStorage(wStorage);
    if (!record)
        return nullptr;
    record->windowKind = userKind;
    record->windowDefProc = procID;
    record->visible = visible;
    record->goAwayFlag = goAwayFlag;
    record->refCon = refCon;
    WindowPtr window = &record->port;
    if (!complete(*record, *boundsRect, title)) {
        undo(*record);
        if (!wStorage)
            DisposePtr(reinterpret_cast<Ptr>(record));
        return nullptr;
    }
    record->port.portLayerFlag = static_cast<UInt16>(procID) > lastListedProcID;
    if (!record->port.portLayerFlag)
        MTBX_LinkWindow(window);
    return window;
}

WindowPtr NewWindow(void *wStorage, const Rect *boundsRect, ConstStr255Param title, Boolean visible, SInt16 procID,
                    WindowPtr behind, Boolean goAwayFlag, SRefCon refCon)
{
    return NewCWindow(wStorage, boundsRect, title, visible, procID, behind, goAwayFlag, refCon);
}

WindowPtr GetNewCWindow(SInt16 windowID, void *wStorage, WindowPtr behind)
{
    Handle resource = GetResource(windowTemplates, windowID);
    if (!resource)
        return nullptr;
    WindowTemplate window = {};
    bool isWhole = *resource && readTemplate(resource, window);
    ReleaseResource(resource);
    if (!isWhole)
        return nullptr;
    return NewCWindow(wStorage, &window.bounds, window.title, window.visible, window.procID, behind, window.goAwayFlag,
                      window.refCon);
}

WindowPtr GetNewWindow(SInt16 windowID, void *wStorage, WindowPtr behind)
{
    return GetNewCWindow(windowID, wStorage, behind);
}

void MTBX_CloseWindow(WindowPtr window)
{
    WindowRecord &record = recordOf(window);
    MTBX_UnlinkWindow(window);
    disposeRegions(record);
    closeNativeWindow(window);
    closePort(window);
    disposeHandles(record);
    disposeControls(record);
}

void DisposeWindow(WindowPtr window)
{
    if (!window)
        return;
    leavePort(window);
    MTBX_CloseWindow(window);
    DisposePtr(reinterpret_cast<Ptr>(window));
}
