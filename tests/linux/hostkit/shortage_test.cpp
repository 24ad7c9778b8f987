// The host kit when memory and graphics objects are short: every request is refused once.
#include "HostKitTest.h"

#include <win32/control.h>

namespace {

class HostKitShortage : public HostKitTest {
protected:
    ~HostKitShortage() override
    {
        Win32Control_Reset();
        HostKitOptions options = testOptions();
        HostKitStart(&options);
    }

    struct Held {
        UInt64 usage = MEM_GetMemUsage();
        DWORD objects = Win32Control_GdiObjects(), handles = Win32Control_OpenHandles();
        SIZE_T bytes = 0, blocks = 0;

        Held() { Win32Control_HeldMemory(&bytes, &blocks); }
        bool operator==(const Held &) const = default;
    };
    friend void PrintTo(const Held &held, std::ostream *out)
    {
        *out << held.usage << " in heaps, " << held.objects << " objects, " << held.handles << " handles, " << held.blocks
             << " blocks with " << held.bytes;
    }

    // Refuses each request of the kind that the call makes, alone and with all behind it.
    template <class Call> static void sweep(Win32Allocation kind, Call call)
    {
        Win32Control_RefuseAllocations(kind, 0, 0, 0);
        call();
        DWORD count = Win32Control_AllocationsCounted(kind);
        Win32Control_AllowAllocations(kind);
        for (DWORD number = 1; number <= count; ++number) {
            for (DWORD refused : {DWORD{1}, DWORD{WIN32_WITHOUT_END}}) {
                SCOPED_TRACE(testing::Message() << refused << " from " << number << " of " << count << " of kind " << kind);
                Win32Control_RefuseAllocations(kind, number, refused, 0);
                call();
                Win32Control_AllowAllocations(kind);
            }
        }
    }
    static constexpr Win32Allocation kinds[] = {WIN32_ALLOCATION_C_HEAP, WIN32_ALLOCATION_GLOBAL, WIN32_ALLOCATION_HEAP,
                                                WIN32_ALLOCATION_LAYER,  WIN32_ALLOCATION_PEN,    WIN32_ALLOCATION_BRUSH,
                                                WIN32_ALLOCATION_CONTEXT, WIN32_ALLOCATION_FONT,  WIN32_ALLOCATION_BITMAP,
                                                WIN32_ALLOCATION_REGION};
};

TEST_F(HostKitShortage, StartsWholeOrNotAtAll)
{
    HostKitOptions options = testOptions();
    HostKitStop();
    for (int round = 0; round < 2; ++round) {
        HostKitStart(&options);
        HostKitStop();
    }
    Held before;
    for (Win32Allocation kind : kinds) {
        sweep(kind, [&] {
            OSErr result = HostKitStart(&options);
            if (result != noErr) {
                EXPECT_EQ(result, memFullErr);
                EXPECT_EQ(hWndMain, nullptr);
                EXPECT_EQ(gFrontWindow, nullptr);
            }
            HostKitStop();
        });
        EXPECT_EQ(Held(), before) << kind;
    }
    EXPECT_EQ(HostKitStart(&options), noErr);
}

TEST_F(HostKitShortage, GivesAWindowWholeOrNotAtAll)
{
    static WindowRecord storage;
    Rect bounds = ltrb(20, 40, 120, 140);
    auto make = [&](void *own, SInt16 procID) {
        WindowPtr window = HostKitNewWindow(own, &bounds, Pascal("Window"), true, procID, reinterpret_cast<WindowPtr>(-1), true, 0);
        EventRecord event;
        for (int i = 0; i < 20 && HostKitGetNextEvent(everyEvent, &event); ++i)
            serve(event);
        if (window)
            own ? HostKitCloseWindow(window) : DisposeWindow(window);
        EXPECT_EQ(gFrontWindow, gDesktopWindow);
    };
    make(nullptr, documentProc);
    make(&storage, 17);
    Held before;
    for (Win32Allocation kind : kinds) {
        sweep(kind, [&] { make(nullptr, zoomDocProc); });
        sweep(kind, [&] { make(nullptr, 17); });
        EXPECT_EQ(GetWindow(hWndMain, GW_CHILD), nullptr);
        if (kind != WIN32_ALLOCATION_C_HEAP) // which closing needs for such a one
            sweep(kind, [&] { make(&storage, documentProc); });
        drain();
        EXPECT_EQ(Held(), before) << kind;
    }
}

} // namespace
