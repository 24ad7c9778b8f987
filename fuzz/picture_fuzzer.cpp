// Pictures and cursors as resources may have them: nothing is read behind the handle.
#include "Pictures/CursorResources.h"

#include <mtbx/MTBX.h>

#include <sanitizer/lsan_interface.h>

#include <cstring>

namespace {

// What lives as long as the process. Its pointers lie in packed records, where the leak check does not see them.
void start()
{
    __lsan_disable();
    MTBX_InitializeMemorySubsystem();
    WNDCLASSA description = {};
    description.lpfnWndProc = DefWindowProcA;
    description.lpszClassName = "Fuzzed";
    RegisterClassA(&description);
    hWndMain = CreateWindowExA(0, "Fuzzed", "", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    InitResources();
    InitGraf(nullptr);
    __lsan_enable();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    [[maybe_unused]] static const bool isStarted = (start(), true);
    Handle handle = NewHandle(static_cast<Size>(size));
    if (size > 0)
        memcpy(*handle, data, size);
    constexpr Rect place = {10, 10, 90, 90};
    DrawPicture(reinterpret_cast<PicHandle>(handle), &place);
    if (HCURSOR cursor = MTBX_CreateResourceCursor(handle))
        DestroyCursor(cursor);
    MTBX_ForgetCursorResource(handle);
    DisposeHandle(handle);
    return 0;
}
