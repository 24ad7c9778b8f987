// The cursor cache when it is full.
#include "Graphics.h"
#include "Resources/Resources_internal.h"

namespace {

TEST(CursorCache, TheOldestCursorEndsWhenAllPlacesAreTaken)
{
    NativeWindow mainWindow(100, 60, 320, 240);
    hWndMain = mainWindow;
    InitResources();
    InitGraf(nullptr);
    constexpr SInt16 firstID = 2000, places = 256;
    CursHandle first = nullptr, second = nullptr;
    for (SInt16 id = firstID; id <= firstID + places; ++id) {
        Handle resource = NewHandleClear(sizeof(Cursor));
        ASSERT_EQ(MTBX_AddAppResourceEntry(0x43555253, static_cast<SInt16>(id + 1), resource), noErr);
        CursHandle cursor = MacGetCursor(id);
        ASSERT_TRUE(cursor) << id;
        EXPECT_EQ(MacGetCursor(id), cursor);
        if (!first)
            first = cursor;
        else if (!second)
            second = cursor;
    }
    SInt32 value;
    memcpy(&value, *first, sizeof value);
    EXPECT_EQ(value, 0) << "and its handle shows nothing from then on";
    CursHandle again = MacGetCursor(firstID);
    EXPECT_TRUE(again && again != first);
    // Handles of cursors that ended are the host's.
    for (CursHandle ended : {first, second})
        DisposeHandle(reinterpret_cast<Handle>(ended));
    MTBX_ShutdownGraf();
    MTBX_ShutdownResources();
    InitResources();
    hWndMain = nullptr;
}

} // namespace
