// Making, choosing and showing cursors.
#include "cursor.h"
#include "cursor_files.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "screen/display.h"
#include "system_cursors.h"
#include "visibility.h"

#include <atomic>
#include <memory>

namespace win32::user {
namespace {

bool bitAt(const uint8_t *mask, int stride, int x, int y)
{
    return (mask[y * stride + x / 8] >> (7 - x % 8) & 1) != 0;
}

// Where both masks are set the screen shows inverted; with the first alone it shows through.
uint32_t pixelOf(bool isAnd, bool isXor)
{
    constexpr uint32_t black = 0xff000000, white = 0xffffffff;
    if (isAnd)
        return isXor ? Cursor::inverted : Cursor::transparent;
    return isXor ? white : black;
}

constexpr int largestSize = 256;

// The system's cursors are made when they are asked for first, and stay.
HCURSOR systemCursor(const SystemCursor &shape)
{
    static HCURSOR made[mostSystemCursors];
    UserLock lock;
    HCURSOR &handle = made[&shape - systemCursors];
    if (handle)
        return handle;
    auto cursor = std::make_unique<Cursor>();
    cursor->isShared = true;
    cursor->width = cursor->height = 32;
    cursor->hotX = shape.hotX;
    cursor->hotY = shape.hotY;
    cursor->pixels.assign(32 * 32, Cursor::transparent);
    for (int y = 0; y < shape.height; ++y) {
        for (int x = 0; shape.rows[y][x]; ++x) {
            char sign = shape.rows[y][x];
            uint32_t pixel = sign == 'X' ? 0xff000000 : sign == '.' ? 0xffffffff : sign == '#' ? Cursor::inverted : Cursor::transparent;
            cursor->pixels[static_cast<size_t>(y * 32 + x)] = pixel;
        }
    }
    handle = enterCursor(std::move(cursor));
    return handle;
}

} // namespace

Cursor *findCursor(HCURSOR handle)
{
    return static_cast<Cursor *>(findUserObject(handle, UserObjectType::Cursor));
}

HCURSOR enterCursor(std::unique_ptr<Cursor> cursor)
{
    if (!enterObject(cursor.get()))
        return nullptr;
    return static_cast<HCURSOR>(cursor.release()->handle());
}

uint32_t Cursor::nextSerial()
{
    static std::atomic<uint32_t> last;
    return ++last;
}

namespace {

// The step of an animation that is due at a time, and how long it still lasts.
struct Due {
    size_t step;
    uint64_t left;
};
Due dueAt(const Cursor &cursor, uint64_t milliseconds)
{
    uint64_t rest = milliseconds % cursor.duration;
    size_t step = 0;
    while (rest >= cursor.steps[step].milliseconds)
        rest -= cursor.steps[step++].milliseconds;
    return {step, cursor.steps[step].milliseconds - rest};
}

// The thread in front says what shows, but over the desktop, which belongs to none. Null for none.
const Cursor *chosenCursor()
{
    MessageQueue *queue = MessageQueue::foreground;
    bool isOverDesktop = queue && !queue->capture && windowAt(cursorPosition())->isDesktop();
    if (!queue || isOverDesktop)
        return findCursor(LoadCursorA(nullptr, IDC_ARROW));
    return queue->cursorLevel >= 0 ? findCursor(queue->cursor) : nullptr;
}

} // namespace

uint32_t laidOn(uint32_t screen, uint32_t pixel)
{
    uint32_t alpha = pixel >> 24;
    if (pixel == Cursor::transparent)
        return screen;
    if (pixel == Cursor::inverted)
        return screen ^ 0xFFFFFF;
    uint32_t result = 0;
    for (unsigned shift : {0u, 8u, 16u}) {
        uint32_t below = screen >> shift & 0xFF, above = pixel >> shift & 0xFF;
        result |= (above * alpha + below * (255 - alpha) + 127) / 255 << shift;
    }
    return result;
}

const Cursor *shownCursor()
{
    UserLock lock;
    const Cursor *chosen = chosenCursor();
    if (!chosen || !chosen->duration)
        return chosen;
    return chosen->pictures[chosen->steps[dueAt(*chosen, ticks()).step].picture].get();
}

DWORD shownCursorStays()
{
    UserLock lock;
    const Cursor *chosen = chosenCursor();
    return chosen && chosen->duration ? static_cast<DWORD>(dueAt(*chosen, ticks()).left) : DWORD{INFINITE};
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

HCURSOR CreateCursor(HINSTANCE, int hotX, int hotY, int width, int height, const void *andMask, const void *xorMask)
{
    if (width <= 0 || height <= 0 || width > largestSize || height > largestSize || !andMask || !xorMask)
        return fail(ERROR_INVALID_PARAMETER, HCURSOR{});
    return guarded(HCURSOR{}, [&] {
        auto cursor = std::make_unique<Cursor>();
        cursor->width = width;
        cursor->height = height;
        cursor->hotX = hotX;
        cursor->hotY = hotY;
        cursor->pixels.reserve(static_cast<size_t>(width) * static_cast<size_t>(height));
        int stride = (width + 15) / 16 * 2;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                cursor->pixels.push_back(pixelOf(bitAt(static_cast<const uint8_t *>(andMask), stride, x, y),
                                                 bitAt(static_cast<const uint8_t *>(xorMask), stride, x, y)));
        }
        return enterCursor(std::move(cursor));
    });
}

BOOL DestroyCursor(HCURSOR handle)
{
    UserLock lock;
    Cursor *cursor = findCursor(handle);
    if (!cursor)
        return fail(ERROR_INVALID_CURSOR_HANDLE, FALSE);
    if (cursor->isShared)
        return TRUE;
    removeObject(cursor);
    delete cursor;
    return TRUE;
}

HCURSOR LoadCursorA(HINSTANCE module, LPCSTR name)
{
    if (module)
        return guarded(HCURSOR{}, [&] { return loadShared(module, name, PictureKind::Cursor); });
    auto number = reinterpret_cast<uintptr_t>(name);
    for (const SystemCursor &shape : systemCursors) {
        if (number == shape.number)
            return guarded(HCURSOR{}, [&] { return systemCursor(shape); });
    }
    return fail(ERROR_RESOURCE_NAME_NOT_FOUND, HCURSOR{});
}

HCURSOR SetCursor(HCURSOR handle)
{
    HCURSOR old;
    {
        UserLock lock;
        old = std::exchange(MessageQueue::current().cursor, handle);
    }
    if (old != handle)
        screen::cursorChanged();
    return old;
}

HCURSOR GetCursor()
{
    return MessageQueue::current().cursor;
}

int ShowCursor(BOOL show)
{
    int level;
    {
        UserLock lock;
        level = MessageQueue::current().cursorLevel += show ? 1 : -1;
    }
    screen::cursorChanged();
    return level;
}
