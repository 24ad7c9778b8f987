#include "menu_paint.h"

#include "control_text.h"
#include "frame_glyphs.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "system_painter.h"

#include <optional>

namespace win32::user {
namespace {

// All that painting needs of an item, taken under the lock.
struct ItemPicture {
    MenuItem item;
    RECT rect{}; // in the context
    int textInset = 0;
    DWORD style = 0;
    HBRUSH ground = nullptr;
    bool hasSubMenu = false;

    bool isSelected() const { return (item.state & MFS_HILITE) != 0; }
};

// Throws bad_alloc.
std::optional<ItemPicture> pictureOf(HMENU handle, size_t index, MenuLook look)
{
    UserLock lock;
    const Menu *menu = findMenuQuietly(handle);
    if (!menu || index >= menu->items.size() || IsRectEmpty(&menu->items[index].rect))
        return std::nullopt;
    ItemPicture picture;
    picture.item = menu->items[index];
    picture.rect = picture.item.rect;
    if (look == MenuLook::Popup)
        OffsetRect(&picture.rect, 0, menu->popupShift);
    picture.textInset = menu->textInset;
    picture.style = menu->style;
    picture.ground = menu->background;
    picture.hasSubMenu = findMenuQuietly(picture.item.subMenu) != nullptr;
    return picture;
}

int groundColor(const ItemPicture &picture)
{
    return picture.isSelected() ? COLOR_HIGHLIGHT : COLOR_MENU;
}

int textColor(const ItemPicture &picture)
{
    if (picture.item.isGrayed())
        return COLOR_GRAYTEXT;
    return picture.isSelected() ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT;
}

// Grayed signs and texts are engraved, but not on a dark ground.
bool isEngraved(const ItemPicture &picture)
{
    return picture.item.isGrayed() && !picture.isSelected();
}

void fillGround(HDC context, const ItemPicture &picture)
{
    bool isProgramsOwn = picture.ground && !picture.isSelected();
    FillRect(context, &picture.rect, isProgramsOwn ? picture.ground : GetSysColorBrush(groundColor(picture)));
}

void drawTextAt(HDC context, const ItemPicture &picture, const char *text, int length, RECT rect, UINT format)
{
    if (isEngraved(picture)) {
        RECT light = rect;
        OffsetRect(&light, 1, 1);
        SetTextColor(context, GetSysColor(COLOR_3DHILIGHT));
        DrawTextA(context, text, length, &light, format);
    }
    SetTextColor(context, GetSysColor(isEngraved(picture) ? COLOR_3DSHADOW : textColor(picture)));
    DrawTextA(context, text, length, &rect, format);
}

void drawItemText(HDC context, const ItemPicture &picture, RECT rect, UINT place)
{
    const MenuItem &item = picture.item;
    UINT format = DT_SINGLELINE | DT_VCENTER | DT_NOCLIP | place;
    FontScope font(context, menuFont((item.state & MFS_DEFAULT) != 0));
    SetBkMode(context, TRANSPARENT);
    const char *shortcut = shortcutOf(item);
    size_t length = shortcut ? static_cast<size_t>(shortcut - item.text.c_str()) - 1 : item.text.size();
    drawTextAt(context, picture, item.text.c_str(), static_cast<int>(length), rect, format);
    if (shortcut && place == DT_LEFT) {
        rect.left = item.shortcutLeft;
        drawTextAt(context, picture, shortcut, -1, rect, format);
    }
}

// One-bit bitmaps take the colours of the text.
void drawBitmap(HDC context, const ItemPicture &picture, HBITMAP bitmap, const RECT &rect, DWORD code)
{
    SIZE size = bitmapSize(bitmap);
    HDC memory = size.cx ? CreateCompatibleDC(context) : nullptr;
    if (!memory)
        return;
    SetTextColor(context, GetSysColor(textColor(picture)));
    SetBkColor(context, GetSysColor(groundColor(picture)));
    HGDIOBJ old = SelectObject(memory, bitmap);
    int x = rect.left + (rect.right - rect.left - size.cx) / 2, y = rect.top + (rect.bottom - rect.top - size.cy) / 2;
    BitBlt(context, x, y, size.cx, size.cy, memory, 0, 0, code);
    SelectObject(memory, old);
    DeleteDC(memory);
}

void drawGlyph(HDC context, const ItemPicture &picture, Glyph glyph)
{
    SystemPainter painter(context);
    if (!painter)
        return;
    if (isEngraved(picture)) {
        Glyph light = glyph;
        for (gdi::Box &box : light)
            box = gdi::translated(box, 1, 1);
        painter.fill(light, COLOR_3DHILIGHT);
    }
    painter.fill(glyph, isEngraved(picture) ? COLOR_3DSHADOW : textColor(picture));
}

gdi::Box boxOn(HDC context, const RECT &rect)
{
    SystemPainter painter(context);
    return painter ? painter.boxOf(rect) : gdi::Box{};
}

// The mark that tells whether the item is checked; true when it took the room.
bool drawMark(HDC context, const ItemPicture &picture, const RECT &room)
{
    const MenuItem &item = picture.item;
    bool isChecked = (item.state & MFS_CHECKED) != 0;
    HBITMAP own = isChecked ? item.checkedBitmap : item.uncheckedBitmap;
    if (own)
        drawBitmap(context, picture, own, room, SRCCOPY);
    else if (!isChecked)
        return false;
    else if (item.type & MFT_RADIOCHECK)
        drawGlyph(context, picture, discGlyph(boxOn(context, room), 6));
    else
        drawGlyph(context, picture, checkGlyph(boxOn(context, room)));
    return true;
}

RECT markRoom(const RECT &rect, int left, int width)
{
    int height = GetSystemMetrics(SM_CYMENUCHECK);
    int top = rect.top + (rect.bottom - rect.top - height) / 2;
    return {left, top, left + width, top + height};
}

// What stands before the text: the mark, the item's picture, or one of the two.
void drawBeforeText(HDC context, const ItemPicture &picture)
{
    constexpr int margin = 2;
    const RECT &rect = picture.rect;
    bool hasMarks = !(picture.style & MNS_NOCHECK), isShared = (picture.style & MNS_CHECKORBMP) != 0;
    int markWidth = GetSystemMetrics(SM_CXMENUCHECK), left = rect.left + margin;
    bool isTaken = (hasMarks || isShared) && drawMark(context, picture, markRoom(rect, left, markWidth));
    if (!picture.item.bitmap || picture.item.text.empty() || (isShared && isTaken))
        return;
    if (hasMarks && !isShared)
        left += markWidth;
    drawBitmap(context, picture, picture.item.bitmap,
               {left, rect.top, rect.left + picture.textInset - margin, rect.bottom}, SRCCOPY);
}

void drawArrow(HDC context, const ItemPicture &picture)
{
    constexpr int side = 15;
    const RECT &rect = picture.rect;
    int top = rect.top + (rect.bottom - rect.top - side) / 2;
    drawGlyph(context, picture,
              arrowGlyph(boxOn(context, {rect.right - side, top, rect.right, top + side}), Direction::Right));
}

void drawSeparator(HDC context, const RECT &rect)
{
    int y = (rect.top + rect.bottom) / 2 - 1;
    RECT line{rect.left + 1, y, rect.right - 1, y + 2};
    DrawEdge(context, &line, EDGE_ETCHED, BF_TOP);
}

void drawInPopup(HDC context, const ItemPicture &picture)
{
    fillGround(context, picture);
    if (picture.item.isSeparator()) {
        drawSeparator(context, picture.rect);
        return;
    }
    drawBeforeText(context, picture);
    RECT rest = picture.rect;
    rest.left += picture.textInset;
    if (picture.item.bitmap && picture.item.text.empty()) {
        rest.right = rest.left + bitmapSize(picture.item.bitmap).cx;
        drawBitmap(context, picture, picture.item.bitmap, rest, picture.isSelected() ? NOTSRCCOPY : SRCCOPY);
    } else {
        drawItemText(context, picture, rest, DT_LEFT);
    }
}

void drawInBar(HDC context, const ItemPicture &picture)
{
    fillGround(context, picture);
    RECT rect = picture.rect;
    if (picture.item.bitmap) {
        bool isAlone = picture.item.text.empty();
        constexpr int margin = 6;
        RECT room = rect;
        room.left += margin;
        room.right = room.left + bitmapSize(picture.item.bitmap).cx;
        drawBitmap(context, picture, picture.item.bitmap, room, picture.isSelected() ? NOTSRCCOPY : SRCCOPY);
        if (isAlone)
            return;
        rect.left = room.right;
    }
    drawItemText(context, picture, rect, DT_CENTER);
}

UINT ownerState(const MenuItem &item)
{
    UINT state = item.state & MFS_HILITE ? UINT{ODS_SELECTED} : 0u;
    if (item.isGrayed())
        state |= ODS_GRAYED;
    if (item.isDisabled())
        state |= ODS_DISABLED;
    if (item.state & MFS_CHECKED)
        state |= ODS_CHECKED;
    if (item.state & MFS_DEFAULT)
        state |= ODS_DEFAULT;
    return state;
}

// The owner finds the colours of the item set, and what it changes in the context does not stay.
void letOwnerDraw(HDC context, HWND owner, HMENU menu, const ItemPicture &picture, UINT action)
{
    int saved = SaveDC(context);
    SelectObject(context, menuFont(false));
    SetTextColor(context, GetSysColor(textColor(picture)));
    SetBkColor(context, GetSysColor(groundColor(picture)));
    DRAWITEMSTRUCT request{ODT_MENU,
                           0,
                           picture.item.id,
                           action,
                           ownerState(picture.item),
                           reinterpret_cast<HWND>(menu),
                           context,
                           picture.rect,
                           picture.item.data};
    sendMessage(owner, WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&request));
    RestoreDC(context, saved);
}

void paintItem(HDC context, HWND owner, HMENU menu, const ItemPicture &picture, MenuLook look, UINT action)
{
    if (picture.item.isOwnerDrawn())
        letOwnerDraw(context, owner, menu, picture, action);
    else if (look == MenuLook::Bar)
        drawInBar(context, picture);
    else
        drawInPopup(context, picture);
    if (look == MenuLook::Popup && picture.hasSubMenu)
        drawArrow(context, picture);
}

// The first item from an index on that an area of the context shows; false for none.
bool nextShown(HMENU handle, MenuLook look, const RECT &area, size_t &index)
{
    UserLock lock;
    const Menu *menu = findMenuQuietly(handle);
    int shift = menu && look == MenuLook::Popup ? menu->popupShift : 0;
    for (; menu && index < menu->items.size(); ++index) {
        const MenuItem &item = menu->items[index];
        bool isShown = item.rect.top + shift < area.bottom && item.rect.bottom + shift > area.top;
        isShown |= look == MenuLook::Popup && (item.type & MFT_MENUBARBREAK); // its line may go on into the area
        if (isShown)
            return true;
    }
    return false;
}

HBRUSH groundOf(HMENU handle)
{
    UserLock lock;
    const Menu *menu = findMenuQuietly(handle);
    return menu && menu->background ? menu->background : GetSysColorBrush(COLOR_MENU);
}

// The line before a column that asked for one.
void paintColumnLine(HDC context, HMENU menu, size_t index, const RECT &ground)
{
    constexpr int before = 5;
    std::optional<ItemPicture> picture = pictureOf(menu, index, MenuLook::Popup);
    if (!picture || index == 0 || !(picture->item.type & MFT_MENUBARBREAK))
        return;
    RECT line{picture->rect.left - before, ground.top + 1, picture->rect.left, ground.bottom - 1};
    DrawEdge(context, &line, EDGE_ETCHED, BF_LEFT);
}

} // namespace

void paintMenuItem(HDC context, HWND owner, HMENU menu, size_t index, MenuLook look, UINT action)
{
    guarded(false, [&] {
        if (std::optional<ItemPicture> picture = pictureOf(menu, index, look))
            paintItem(context, owner, menu, *picture, look, action);
        return true;
    });
}

void paintMenuItems(HDC context, HWND owner, HMENU menu, MenuLook look, const RECT &ground)
{
    FillRect(context, &ground, groundOf(menu));
    RECT area;
    GetClipBox(context, &area);
    // The owner may change the menu meanwhile.
    for (size_t index = 0; nextShown(menu, look, area, index); ++index) {
        paintMenuItem(context, owner, menu, index, look, ODA_DRAWENTIRE);
        if (look == MenuLook::Popup)
            guarded(false, [&] {
                paintColumnLine(context, menu, index, ground);
                return true;
            });
    }
}

void paintScrollSign(HDC context, const RECT &rect, bool isUp, bool isEnabled)
{
    guarded(false, [&] {
        FillRect(context, &rect, GetSysColorBrush(COLOR_MENU));
        SystemPainter painter(context);
        if (painter)
            painter.fill(arrowGlyph(painter.boxOf(rect), isUp ? Direction::Up : Direction::Down),
                         isEnabled ? COLOR_MENUTEXT : COLOR_3DSHADOW);
        return true;
    });
}

} // namespace win32::user
