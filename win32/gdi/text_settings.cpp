// How a context lays out text, and the fonts that programs add.
#include "device_context.h"
#include "font_catalog.h"

#include "kernel/kernel_internal.h"
#include "kernel/paths.h"

#include <utility>

using namespace win32;
using namespace win32::gdi;

UINT SetTextAlign(HDC context, UINT mode)
{
    DeviceContext *dc = findContext(context);
    return dc ? std::exchange(dc->state.textAlign, mode) : GDI_ERROR;
}

UINT GetTextAlign(HDC context)
{
    DeviceContext *dc = findContext(context);
    return dc ? dc->state.textAlign : GDI_ERROR;
}

constexpr int noExtra = static_cast<int>(0x80000000u);

int SetTextCharacterExtra(HDC context, int extra)
{
    DeviceContext *dc = findContext(context);
    return dc ? std::exchange(dc->state.characterExtra, extra) : noExtra;
}

int GetTextCharacterExtra(HDC context)
{
    DeviceContext *dc = findContext(context);
    return dc ? dc->state.characterExtra : noExtra;
}

BOOL SetTextJustification(HDC context, int extra, int count)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return FALSE;
    dc->state.breakExtra = extra;
    dc->state.breakCount = count;
    return TRUE;
}

int AddFontResourceA(LPCSTR path)
{
    return guarded(0, [&] {
        std::string file;
        if (!path || !unixPath(path, file))
            return 0;
        std::lock_guard lock(fontMutex());
        int fonts = addFontFile(file);
        return fonts ? fonts : fail(ERROR_FILE_NOT_FOUND, 0);
    });
}

BOOL RemoveFontResourceA(LPCSTR path)
{
    return guarded(BOOL{FALSE}, [&]() -> BOOL {
        std::string file;
        if (!path || !unixPath(path, file))
            return FALSE;
        std::lock_guard lock(fontMutex());
        return removeFontFile(file) ? TRUE : fail(ERROR_FILE_NOT_FOUND, FALSE);
    });
}
