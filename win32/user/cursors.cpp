// Making, choosing and showing cursors.
#include "cursor.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "screen/display.h"
#include "system_cursors.h"
#include "visibility.h"

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

HCURSOR enter(std::unique_ptr<Cursor> cursor)
{
    if (!enterObject(cursor.get()))
        return nullptr;
    return static_cast<HCURSOR>(cursor.release()->handle());
}

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
    handle = enter(std::move(cursor));
    return handle;
}

} // namespace

Cursor *findCursor(HCURSOR handle)
{
    return static_cast<Cursor *>(findUserObject(handle, UserObjectType::Cursor));
}

// The thread in front says what shows, but over the desktop, which belongs to none.
Cursor *shownCursor()
{
    UserLock lock;
    MessageQueue *queue = MessageQueue::foreground;
    bool isOverDesktop = queue && !queue->capture && windowAt(cursorPosition())->isDesktop();
    if (!queue || isOverDesktop)
        return findCursor(LoadCursorA(nullptr, IDC_ARROW));
    return queue->cursorLevel >= 0 ? findCursor(queue->cursor) : nullptr;
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
        return enter(std::move(cursor));
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
    auto number = reinterpret_cast<uintptr_t>(name);
    for (const SystemCursor &shape : systemCursors) {
        if (!module && number == shape.number)
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
