// Making and disposing window records.
#include "WindowRecords_internal.h"

#include "Quickdraw/Quickdraw_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>

namespace {

enum { userKind = 8 };

bool takeParts(WindowRecord &record)
{
    bool shared = minimalCreationDepth > 0;
    record.strucRgn = shared ? sharedRegions.struc : NewRgn();
    record.contRgn = shared ? sharedRegions.cont : NewRgn();
    record.updateRgn = shared ? sharedRegions.update : NewRgn();
    record.dataHandle = NewHandleClear(2 * sizeof(Rect));
    record.titleHandle = reinterpret_cast<StringHandle>(NewHandleClear(sizeof(Str255)));
    return record.strucRgn && record.contRgn && record.updateRgn && record.dataHandle && record.titleHandle;
}

void disposeParts(WindowRecord &record)
{
    disposeUnlessShared(record.updateRgn, sharedRegions.update);
    disposeUnlessShared(record.strucRgn, sharedRegions.struc);
    disposeUnlessShared(record.contRgn, sharedRegions.cont);
    DisposeHandle(record.dataHandle);
    DisposeHandle(reinterpret_cast<Handle>(record.titleHandle));
}

// Rows are padded to four bytes.
SInt16 rowBytesOf(const Rect &bounds)
{
    SInt32 bits = (bounds.right - bounds.left) * gbits_per_pixel;
    return static_cast<SInt16>((bits + 31) / 32 * 4 | 0xC000);
}

// The bounds put the origin of global coordinates where it lies in the window's own.
void placePort(GrafPort &port, const Rect &bounds)
{
    PixMap &map = **port.portPixMap;
    map.rowBytes = rowBytesOf(bounds);
    map.bounds = bounds;
    MacOffsetRect(&map.bounds, static_cast<SInt16>(-2 * bounds.left), static_cast<SInt16>(-2 * bounds.top));
    port.portRect = bounds;
    RectRgn(port.visRgn, &bounds);
}

} // namespace

WindowPtr MTBX_NewWindowRecord(const Rect &bounds, bool isVisible)
{
    auto *record = reinterpret_cast<WindowPeek>(NewPtrClear(sizeof(WindowRecord)));
    if (!record)
        return nullptr;
    bool complete = takeParts(*record);
    if (complete) {
        OpenCPort(&record->port);
        complete = qdErrorValue == noErr;
    }
    if (!complete) {
        MTBX_DisposeWindowRecord(&record->port);
        return nullptr;
    }
    record->windowKind = userKind;
    record->visible = isVisible;
    RectRgn(record->strucRgn, &bounds);
    RectRgn(record->contRgn, &bounds);
    placePort(record->port, bounds);
    return &record->port;
}

void MTBX_DisposeWindowRecord(WindowPtr window)
{
    if (!window)
        return;
    if (window == qd.thePort)
        MacSetPort(nullptr);
    disposeParts(reinterpret_cast<WindowRecord &>(*window));
    CloseCPort(window);
    // There may be no other port to make current.
    if (window == qd.thePort)
        qd.thePort = nullptr;
    DisposePtr(reinterpret_cast<Ptr>(window));
}
