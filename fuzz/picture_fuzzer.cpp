// Pictures and cursors as resources may have them: nothing is read behind the handle.
#include "Pictures/CursorResources.h"

#include <mtbx/MTBX.h>

#include <cstring>

namespace {

void start()
{
    MTBX_InitializeMemorySubsystem();
    WNDCLASSA description = {};
    description.lpfnWndProc = DefWindowProcA;
    description.lpszClassName = "Fuzzed";
    RegisterClassA(&description);
    hWndMain = CreateWindowExA(0, "Fuzzed", "", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    InitResources();
    InitGraf(nullptr);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    [[maybe_unused]] static const bool isStarted = (start(), true);
    Handle handle = NewHandle(static_cast<Size>(size));
    memcpy(*handle, data, size);
    constexpr Rect place = {10, 10, 90, 90};
    DrawPicture(reinterpret_cast<PicHandle>(handle), &place);
    if (HCURSOR cursor = MTBX_CreateResourceCursor(handle))
        DestroyCursor(cursor);
    MTBX_ForgetCursorResource(handle);
    DisposeHandle(handle);
    return 0;
}
