// The control panel's calls on the screen.
#include "control.h"

#include "gdi/bitmap.h"
#include "kernel/kernel_internal.h"
#include "kernel/paths.h"
#include "picture.h"
#include "png_file.h"
#include "screen.h"
#include "user/window.h"

using namespace win32;

namespace {

BOOL saveScreen(LPCSTR path, const RECT *part, screen::WithCursor withCursor)
{
    return guarded(FALSE, [&]() -> BOOL {
        std::string unixName;
        gdi::Box whole = screen::surface().box();
        return unixPath(path, unixName) && screen::savePicture(unixName, part ? gdi::boxOf(*part) : whole, withCursor);
    });
}

} // namespace

BOOL Win32Control_SetScreenMode(LPCSTR mode)
{
    return mode && guarded(false, [&] {
        if (!screen::setMode(mode))
            return false;
        user::screenChanged();
        return true;
    });
}

BOOL Win32Control_SaveScreen(LPCSTR path, const RECT *part)
{
    return saveScreen(path, part, screen::WithCursor::No);
}

BOOL Win32Control_SaveScreenWithCursor(LPCSTR path, const RECT *part)
{
    return saveScreen(path, part, screen::WithCursor::Yes);
}

BOOL Win32Control_SaveBitmap(LPCSTR path, HBITMAP handle)
{
    return guarded(FALSE, [&]() -> BOOL {
        std::string unixName;
        gdi::Bitmap *bitmap = gdi::find<gdi::Bitmap>(handle);
        return bitmap && unixPath(path, unixName) && screen::writePng(unixName, bitmap->surface, bitmap->surface.box());
    });
}
