// Making fonts.
#include "font.h"

#include "kernel/kernel_internal.h"

#include <atomic>
#include <cstring>

uint32_t win32::gdi::Font::nextStamp()
{
    static std::atomic<uint32_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

using namespace win32;
using namespace win32::gdi;

HFONT CreateFontIndirectA(const LOGFONTA *font)
{
    return font ? static_cast<HFONT>(create<Font>(*font)) : nullptr;
}

HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic, DWORD underline,
                  DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision, DWORD quality,
                  DWORD pitchAndFamily, LPCSTR faceName)
{
    LOGFONTA font{height,
                  width,
                  escapement,
                  orientation,
                  weight,
                  static_cast<BYTE>(italic),
                  static_cast<BYTE>(underline),
                  static_cast<BYTE>(strikeOut),
                  static_cast<BYTE>(charSet),
                  static_cast<BYTE>(outPrecision),
                  static_cast<BYTE>(clipPrecision),
                  static_cast<BYTE>(quality),
                  static_cast<BYTE>(pitchAndFamily),
                  {}};
    if (faceName)
        strncpy(font.lfFaceName, faceName, LF_FACESIZE - 1);
    return CreateFontIndirectA(&font);
}
