// The control panel's calls on the screen.
#include "control.h"

#include "gdi/bitmap.h"
#include "kernel/kernel_internal.h"
#include "kernel/paths.h"
#include "png_file.h"
#include "screen.h"
#include "user/window.h"

using namespace win32;

namespace {

BOOL savePicture(LPCSTR path, const gdi::Surface &surface, const gdi::Box &part)
{
    return guarded(FALSE, [&]() -> BOOL {
        std::string unixName;
        return unixPath(path, unixName) && screen::writePng(unixName, surface, part);
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
    const gdi::Surface &surface = screen::surface();
    return savePicture(path, surface, part ? gdi::boxOf(*part) : surface.box());
}

BOOL Win32Control_SaveBitmap(LPCSTR path, HBITMAP handle)
{
    gdi::Bitmap *bitmap = gdi::find<gdi::Bitmap>(handle);
    return bitmap && savePicture(path, bitmap->surface, bitmap->surface.box());
}
