#include "display_cursor.h"

#include "user/cursor.h"

namespace win32::screen {
namespace {

using user::Cursor;

uint32_t pixelAt(const Cursor &cursor, int x, int y)
{
    bool isInside = x >= 0 && y >= 0 && x < cursor.width && y < cursor.height;
    return isInside ? cursor.pixels[static_cast<size_t>(y * cursor.width + x)] : Cursor::transparent;
}

bool isBesideInverted(const Cursor &cursor, int x, int y)
{
    return pixelAt(cursor, x - 1, y) == Cursor::inverted || pixelAt(cursor, x + 1, y) == Cursor::inverted
           || pixelAt(cursor, x, y - 1) == Cursor::inverted || pixelAt(cursor, x, y + 1) == Cursor::inverted;
}

uint32_t shownPixel(const Cursor &cursor, int x, int y)
{
    constexpr uint32_t black = 0xff000000, light = 0xffffffff, clear = 0;
    uint32_t pixel = pixelAt(cursor, x, y);
    if (pixel == Cursor::inverted)
        return black;
    if (pixel == Cursor::transparent)
        return isBesideInverted(cursor, x, y) ? light : clear;
    return pixel;
}

} // namespace

uint32_t shownCursorSerial()
{
    user::UserLock lock;
    const Cursor *cursor = user::shownCursor();
    return cursor ? cursor->serial : 0;
}

int shownCursorStays()
{
    DWORD milliseconds = user::shownCursorStays();
    return milliseconds == INFINITE ? -1 : static_cast<int>(milliseconds);
}

CursorPicture shownCursorPicture(int factor)
{
    user::UserLock lock;
    const Cursor *cursor = user::shownCursor();
    if (!cursor)
        return {};
    CursorPicture picture{cursor->serial, cursor->width * factor, cursor->height * factor, cursor->hotX * factor,
                          cursor->hotY * factor};
    picture.pixels.reserve(static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height));
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x)
            picture.pixels.push_back(shownPixel(*cursor, x / factor, y / factor));
    }
    return picture;
}

} // namespace win32::screen
