#include "menu_layout.h"

#include "control_text.h"
#include "gdi/font.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"

#include <cstring>

namespace win32::user {
namespace {

constexpr int barItemPadding = 12, barRowHeight = 18, leastItemHeight = 17, separatorHeight = 9;
constexpr int checkMargin = 3, bitmapGap = 4, shortcutGap = 16, arrowRoom = 17, columnLineRoom = 8;
// What programs say of owner-drawn items is kept below this, so that sums of many cannot overflow.
constexpr int mostOwnSize = 1 << 14, mostExtent = 1 << 28;

// A context to measure texts with; without one, when memory is short, sizes are guessed.
class TextRuler {
public:
    TextRuler() : context_(GetDC(nullptr)) {}
    ~TextRuler()
    {
        if (context_)
            ReleaseDC(nullptr, context_);
    }
    TextRuler(const TextRuler &) = delete;
    TextRuler &operator=(const TextRuler &) = delete;

    SIZE measure(const char *text, size_t length, bool isBold) const
    {
        constexpr int guessedWidth = 7, guessedHeight = 13;
        RECT rect{};
        if (context_) {
            FontScope font(context_, menuFont(isBold));
            DrawTextA(context_, text, static_cast<int>(length), &rect, DT_CALCRECT | DT_SINGLELINE);
        }
        if (rect.right == 0)
            return {guessedWidth * static_cast<LONG>(length), guessedHeight};
        return {rect.right, rect.bottom};
    }

private:
    HDC context_;
};

struct ItemSize {
    SIZE text{};
    int shortcutWidth = 0;
    SIZE bitmap{};
};

ItemSize measureItem(const TextRuler &ruler, const MenuItem &item)
{
    ItemSize size;
    size.bitmap = bitmapSize(item.bitmap);
    const char *shortcut = shortcutOf(item);
    size_t length = shortcut ? static_cast<size_t>(shortcut - item.text.c_str()) - 1 : item.text.size();
    bool isBold = (item.state & MFS_DEFAULT) != 0;
    size.text = ruler.measure(item.text.c_str(), length, isBold);
    if (shortcut)
        size.shortcutWidth = ruler.measure(shortcut, strlen(shortcut), isBold).cx;
    return size;
}

bool beginsColumn(const MenuItem &item)
{
    return (item.type & (MFT_MENUBREAK | MFT_MENUBARBREAK)) != 0;
}

// An owner-drawn item that is not measured yet, and the question to its owner.
bool nextToMeasure(HMENU handle, size_t &index, MEASUREITEMSTRUCT &question)
{
    constexpr UINT proposedHeight = 16;
    UserLock lock;
    const Menu *menu = findMenuQuietly(handle);
    for (; menu && index < menu->items.size(); ++index) {
        const MenuItem &item = menu->items[index];
        if (item.isOwnerDrawn() && !item.isMeasured) {
            question = {ODT_MENU, 0, item.id, 0, proposedHeight, item.data};
            return true;
        }
    }
    return false;
}

void askOwner(HWND owner, HMENU handle)
{
    MEASUREITEMSTRUCT question;
    for (size_t index = 0; nextToMeasure(handle, index, question); ++index) {
        sendMessage(owner, WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&question));
        UserLock lock;
        Menu *menu = findMenuQuietly(handle);
        if (!menu || index >= menu->items.size())
            return;
        MenuItem &item = menu->items[index];
        item.isMeasured = true;
        item.ownSize = {static_cast<LONG>(std::min<UINT>(question.itemWidth, mostOwnSize)),
                        static_cast<LONG>(std::min<UINT>(question.itemHeight, mostOwnSize))};
    }
}

SIZE barItemSize(const TextRuler &ruler, const MenuItem &item)
{
    if (item.isOwnerDrawn())
        return {item.ownSize.cx + barItemPadding, std::max<LONG>(item.ownSize.cy, barRowHeight)};
    ItemSize size = measureItem(ruler, item);
    LONG width = size.text.cx + size.bitmap.cx + (size.text.cx && size.bitmap.cx ? bitmapGap : 0);
    return {width + barItemPadding, std::max<LONG>(barRowHeight, size.bitmap.cy)};
}

// Items of a row stand as high as the highest of them.
void finishRow(Menu &menu, size_t first, size_t end, int bottom)
{
    for (size_t i = first; i < end; ++i)
        menu.items[i].rect.bottom = bottom;
}

// From the first one that asks for it on, the items of the last row go to its end.
void justifyRight(Menu &menu, size_t first, int right)
{
    while (first < menu.items.size() && !(menu.items[first].type & MFT_RIGHTJUSTIFY))
        ++first;
    if (first == menu.items.size())
        return;
    int by = right - menu.items.back().rect.right;
    for (; by > 0 && first < menu.items.size(); ++first)
        OffsetRect(&menu.items[first].rect, by, 0);
}

// The bottom of the last row.
int layRows(Menu &menu, const RECT &space)
{
    TextRuler ruler;
    LONG x = space.left, y = space.top, bottom = space.top;
    size_t rowStart = 0;
    for (size_t i = 0; i < menu.items.size(); ++i) {
        MenuItem &item = menu.items[i];
        SIZE size = barItemSize(ruler, item);
        bool isNextRow = i > rowStart && (beginsColumn(item) || x + size.cx > space.right);
        if (isNextRow) {
            finishRow(menu, rowStart, i, bottom);
            rowStart = i;
            x = space.left;
            y = bottom;
        }
        item.rect = {x, y, x + size.cx, y + size.cy};
        x = std::min<LONG>(item.rect.right, mostExtent);
        bottom = std::min<LONG>(std::max(bottom, item.rect.bottom), mostExtent);
    }
    finishRow(menu, rowStart, menu.items.size(), bottom);
    justifyRight(menu, rowStart, space.right);
    return bottom;
}

// One column of a pop-up, as wide as its widest item.
class Column {
public:
    Column(Menu &menu, size_t first, LONG left) : menu_(menu), first_(first), left_(left) {}

    void lay(const TextRuler &ruler, size_t &index)
    {
        LONG y = popupEdge;
        do {
            MenuItem &item = menu_.items[index];
            LONG height = measure(ruler, item);
            item.rect = {left_, y, left_, y + height};
            y = std::min<LONG>(item.rect.bottom, mostExtent);
            ++index;
        } while (index < menu_.items.size() && !beginsColumn(menu_.items[index]));
        bottom_ = y;
        LONG shortcutLeft = left_ + menu_.textInset + textWidth_ + shortcutGap;
        LONG texts = menu_.textInset + textWidth_ + (shortcutWidth_ ? shortcutGap + shortcutWidth_ : 0) + arrowRoom;
        right_ = left_ + std::max(texts, ownWidth_);
        for (size_t i = first_; i < index; ++i) {
            menu_.items[i].rect.right = right_;
            menu_.items[i].shortcutLeft = shortcutLeft;
        }
    }

    LONG right() const { return right_; }
    LONG bottom() const { return bottom_; }

private:
    // Widens the column for an item; gives the item's height.
    LONG measure(const TextRuler &ruler, const MenuItem &item)
    {
        if (item.isOwnerDrawn()) {
            ownWidth_ = std::max<LONG>(ownWidth_, item.ownSize.cx + GetSystemMetrics(SM_CXMENUCHECK) + 1);
            return item.ownSize.cy;
        }
        if (item.isSeparator())
            return separatorHeight;
        ItemSize size = measureItem(ruler, item);
        bool isPicture = item.text.empty() && item.bitmap;
        textWidth_ = std::max<LONG>(textWidth_, isPicture ? size.bitmap.cx : size.text.cx);
        shortcutWidth_ = std::max<LONG>(shortcutWidth_, size.shortcutWidth);
        return std::max<LONG>({leastItemHeight, size.text.cy + 4, size.bitmap.cy + 2});
    }

    Menu &menu_;
    size_t first_;
    LONG left_;
    LONG right_ = 0, bottom_ = 0;
    LONG textWidth_ = 0, shortcutWidth_ = 0, ownWidth_ = 0;
};

// Marks and pictures stand before the texts, and so far to the right do all texts begin.
int textInsetOf(const Menu &menu)
{
    int marks = menu.style & MNS_NOCHECK ? 0 : GetSystemMetrics(SM_CXMENUCHECK);
    int pictures = 0;
    for (const MenuItem &item : menu.items) {
        if (item.bitmap && !item.text.empty() && !item.isOwnerDrawn())
            pictures = std::max<int>(pictures, bitmapSize(item.bitmap).cx);
    }
    int before =
        menu.style & MNS_CHECKORBMP ? std::max(marks, pictures) : marks + (pictures ? pictures + bitmapGap : 0);
    return before + 2 * checkMargin;
}

SIZE layColumns(Menu &menu)
{
    TextRuler ruler;
    menu.textInset = textInsetOf(menu);
    LONG left = popupEdge, right = popupEdge, bottom = popupEdge;
    for (size_t i = 0; i < menu.items.size();) {
        if (i > 0 && (menu.items[i].type & MFT_MENUBARBREAK))
            left += columnLineRoom;
        Column column(menu, i, left);
        column.lay(ruler, i);
        left = right = std::min<LONG>(column.right(), mostExtent);
        bottom = std::max(bottom, column.bottom());
    }
    return {right + popupEdge, bottom + popupEdge};
}

} // namespace

HFONT menuFont(bool isBold)
{
    static HFONT bold = nullptr;
    auto plain = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    if (!isBold)
        return plain;
    UserLock lock;
    if (!bold) {
        LOGFONTA description{};
        GetObjectA(plain, sizeof description, &description);
        description.lfWeight = FW_BOLD;
        bold = static_cast<HFONT>(gdi::enterStock(new (std::nothrow) gdi::Font(description)));
    }
    return bold ? bold : plain;
}

const char *shortcutOf(const MenuItem &item)
{
    const char *tab = strchr(item.text.c_str(), '\t');
    return tab ? tab + 1 : nullptr;
}

SIZE bitmapSize(HBITMAP bitmap)
{
    BITMAP description;
    if (!bitmap || !GetObjectA(bitmap, sizeof description, &description))
        return {0, 0};
    return {std::min<LONG>(description.bmWidth, mostOwnSize), std::min<LONG>(description.bmHeight, mostOwnSize)};
}

int layOutBar(HWND owner, HMENU handle, const RECT &space)
{
    askOwner(owner, handle);
    UserLock lock;
    Menu *menu = findMenuQuietly(handle);
    if (!menu || menu->items.empty())
        return 0;
    constexpr int lineBelow = 1;
    return layRows(*menu, space) - space.top + lineBelow;
}

SIZE layOutPopup(HWND owner, HMENU handle)
{
    askOwner(owner, handle);
    UserLock lock;
    Menu *menu = findMenuQuietly(handle);
    return menu ? layColumns(*menu) : SIZE{0, 0};
}

} // namespace win32::user
