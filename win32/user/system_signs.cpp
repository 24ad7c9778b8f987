// The signs of message boxes, drawn with plain calls, and as icons.
#include "system_signs.h"

#include "control_text.h"
#include "cursor_files.h"
#include "kernel/kernel_internal.h"

#include <iterator>

namespace win32::user {

void drawSign(HDC context, int x, int y, UINT type)
{
    COLORREF fill = RGB(0, 0, 255);
    const char *letter = "i";
    switch (type & MB_ICONMASK) {
    case MB_ICONHAND:
        fill = RGB(255, 0, 0);
        letter = "x";
        break;
    case MB_ICONEXCLAMATION:
        fill = RGB(255, 255, 0);
        letter = "!";
        break;
    case MB_ICONQUESTION:
        letter = "?";
        break;
    default:
        break;
    }
    HBRUSH brush = CreateSolidBrush(fill);
    HGDIOBJ oldBrush = SelectObject(context, brush);
    HGDIOBJ oldPen = SelectObject(context, GetStockObject(BLACK_PEN));
    Ellipse(context, x, y, x + signSize, y + signSize);
    SelectObject(context, oldPen);
    SelectObject(context, oldBrush);
    DeleteObject(brush);
    LOGFONTA description{};
    description.lfHeight = -24;
    description.lfWeight = 700;
    HFONT font = CreateFontIndirectA(&description);
    FontScope scope(context, font);
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, fill == RGB(255, 255, 0) ? RGB(0, 0, 0) : RGB(255, 255, 255));
    RECT rect{x, y, x + signSize, y + signSize};
    DrawTextA(context, letter, 1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
    DeleteObject(font);
}

namespace {

constexpr COLORREF clearColor = RGB(1, 2, 3);

void drawWindowSign(HDC context)
{
    RECT frame{3, 4, 29, 28}, caption{5, 6, 27, 11}, content{5, 12, 27, 26};
    FillRect(context, &frame, GetSysColorBrush(COLOR_3DFACE));
    FrameRect(context, &frame, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    FillRect(context, &caption, GetSysColorBrush(COLOR_ACTIVECAPTION));
    FillRect(context, &content, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

struct Sign {
    LPCSTR name;
    UINT flag; // of message boxes; 0: a window
};
const Sign signs[] = {{IDI_APPLICATION, 0},
                      {IDI_HAND, MB_ICONHAND},
                      {IDI_QUESTION, MB_ICONQUESTION},
                      {IDI_EXCLAMATION, MB_ICONEXCLAMATION},
                      {IDI_ASTERISK, MB_ICONASTERISK},
                      {IDI_WINLOGO, 0}};

void drawOn(HDC context, UINT flag)
{
    RECT all{0, 0, signSize, signSize};
    HBRUSH clear = CreateSolidBrush(clearColor);
    FillRect(context, &all, clear);
    DeleteObject(clear);
    if (flag)
        drawSign(context, 0, 0, flag);
    else
        drawWindowSign(context);
}

// Null when memory or objects are short.
std::unique_ptr<Cursor> pictureOf(UINT flag)
{
    auto picture = std::make_unique<Cursor>();
    picture->width = picture->height = signSize;
    picture->hotX = picture->hotY = signSize / 2;
    picture->isShared = true;
    picture->pixels.reserve(size_t{signSize} * signSize);
    HDC context = CreateCompatibleDC(nullptr);
    if (!context)
        return nullptr;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, signSize, -signSize, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void *bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(context, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap) {
        HGDIOBJ former = SelectObject(context, bitmap);
        drawOn(context, flag);
        constexpr uint32_t clear = GetRValue(clearColor) << 16 | GetGValue(clearColor) << 8 | GetBValue(clearColor);
        auto *pixels = static_cast<const uint32_t *>(bits);
        for (int i = 0; i < signSize * signSize; ++i) {
            uint32_t color = pixels[i] & 0xFFFFFF;
            picture->pixels.push_back(color == clear ? uint32_t{Cursor::transparent} : 0xFF000000 | color);
        }
        SelectObject(context, former);
        DeleteObject(bitmap);
    }
    DeleteDC(context);
    return bitmap ? std::move(picture) : nullptr;
}

} // namespace

HICON systemSign(LPCSTR name)
{
    static HICON made[std::size(signs)];
    UserLock lock;
    for (const Sign &sign : signs) {
        if (sign.name != name)
            continue;
        HICON &handle = made[&sign - signs];
        auto picture = handle ? nullptr : pictureOf(sign.flag);
        if (picture)
            handle = enterCursor(std::move(picture));
        return handle;
    }
    return fail(ERROR_RESOURCE_NAME_NOT_FOUND, HICON{});
}

} // namespace win32::user
