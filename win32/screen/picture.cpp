#include "picture.h"

#include "gdi/convert.h"
#include "kernel/kernel_internal.h"
#include "png_file.h"
#include "screen.h"
#include "user/cursor.h"
#include "user/input.h"

#include <memory>

namespace win32::screen {
namespace {

struct Copy {
    std::unique_ptr<uint32_t[]> pixels;
    gdi::Surface surface;
};

Copy copyOf(const gdi::Surface &screen, const gdi::Box &part)
{
    Copy copy;
    int width = part.x2 - part.x1, height = part.y2 - part.y1;
    copy.pixels.reset(new uint32_t[static_cast<size_t>(width) * static_cast<size_t>(height)]);
    copy.surface.bits = reinterpret_cast<uint8_t *>(copy.pixels.get());
    copy.surface.stride = ptrdiff_t{width} * 4;
    copy.surface.width = width;
    copy.surface.height = height;
    copy.surface.format = gdi::rgbFormat(32);
    gdi::PixelConverter converter(copy.surface, screen, {0, 0xffffff, 0});
    for (int y = 0; y < height; ++y)
        converter.convert(screen.row(part.y1 + y), part.x1, width, copy.pixels.get() + ptrdiff_t{y} * width);
    return copy;
}

void drawCursor(Copy &copy, const gdi::Box &part)
{
    user::UserLock lock;
    const user::Cursor *cursor = user::shownCursor();
    if (!cursor)
        return;
    POINT corner = user::cursorPosition();
    corner.x -= cursor->hotX + part.x1;
    corner.y -= cursor->hotY + part.y1;
    for (int y = 0; y < cursor->height; ++y) {
        for (int x = 0; x < cursor->width; ++x) {
            uint32_t pixel = cursor->pixels[static_cast<size_t>(y * cursor->width + x)];
            int left = corner.x + x, top = corner.y + y;
            bool isInside = left >= 0 && top >= 0 && left < copy.surface.width && top < copy.surface.height;
            if (pixel == user::Cursor::transparent || !isInside)
                continue;
            uint32_t &place = copy.pixels[static_cast<size_t>(top) * static_cast<size_t>(copy.surface.width)
                                          + static_cast<size_t>(left)];
            place = user::laidOn(place, pixel);
        }
    }
}

} // namespace

bool savePicture(const std::string &path, const gdi::Box &wanted, WithCursor withCursor)
{
    return guarded(false, [&] {
        gdi::Surface screen = surfaceNow();
        gdi::Box part = gdi::intersected(wanted, screen.box());
        if (gdi::isEmpty(part))
            return fail(ERROR_INVALID_PARAMETER, false);
        Copy copy = copyOf(screen, part);
        if (withCursor == WithCursor::Yes)
            drawCursor(copy, part);
        return writePng(path, copy.surface, copy.surface.box());
    });
}

} // namespace win32::screen
