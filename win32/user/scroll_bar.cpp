// The scroll bars in a window's frame: their figures, their look, their press.
#include "scroll_bar.h"

#include "kernel/kernel_internal.h"
#include "message_queue.h"
#include "placement.h"
#include "timers.h"

#include <algorithm>
#include <cstring>

namespace win32::user {
namespace {

enum class Part { None, Back, BackPage, Thumb, ForwardPage, Forward };

// The parts of a bar along its length, from its start.
struct BarLayout {
    int length;
    int arrow;
    int thumbStart;
    int thumbLength; // 0: no thumb
};

bool isUseless(const ScrollBar &bar)
{
    return int64_t{bar.maximum} - bar.minimum + 1 <= std::max<int64_t>(bar.page, 1);
}

int lastPosition(const ScrollBar &bar)
{
    return bar.maximum - std::max(static_cast<int>(bar.page) - 1, 0);
}

BarLayout layBar(const ScrollBar &bar, int length, int position)
{
    int arrow = std::min(GetSystemMetrics(SM_CYVSCROLL), length / 2);
    int track = length - 2 * arrow;
    BarLayout layout{length, arrow, arrow, 0};
    if (isUseless(bar) || track < 8)
        return layout;
    int64_t span = int64_t{bar.maximum} - bar.minimum + 1;
    int thumb = bar.page ? std::max(static_cast<int>(track * int64_t{bar.page} / span), 8) : GetSystemMetrics(SM_CYVTHUMB);
    if (thumb > track)
        return layout;
    int64_t range = int64_t{lastPosition(bar)} - bar.minimum;
    int64_t offset = int64_t{position} - bar.minimum;
    layout.thumbLength = thumb;
    layout.thumbStart = arrow + (range > 0 ? static_cast<int>((track - thumb) * offset / range) : 0);
    return layout;
}

Part partAt(const BarLayout &layout, int place)
{
    if (place < 0 || place >= layout.length)
        return Part::None;
    if (place < layout.arrow)
        return Part::Back;
    if (place >= layout.length - layout.arrow)
        return Part::Forward;
    if (!layout.thumbLength)
        return Part::None;
    if (place < layout.thumbStart)
        return Part::BackPage;
    return place < layout.thumbStart + layout.thumbLength ? Part::Thumb : Part::ForwardPage;
}

// A part of a bar as a rectangle.
RECT along(const RECT &bar, bool isVertical, int start, int end)
{
    return isVertical ? RECT{bar.left, bar.top + start, bar.right, bar.top + end}
                      : RECT{bar.left + start, bar.top, bar.left + end, bar.bottom};
}

HBRUSH trackBrush()
{
    static const HBRUSH brush = [] {
        const WORD rows[8] = {0x5555, 0xaaaa, 0x5555, 0xaaaa, 0x5555, 0xaaaa, 0x5555, 0xaaaa};
        HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, rows);
        HBRUSH made = CreatePatternBrush(bitmap);
        DeleteObject(bitmap);
        return made;
    }();
    return brush;
}

void paintArrow(HDC context, RECT rect, UINT shape, bool isDown, bool isDisabled)
{
    DrawFrameControl(context, &rect, DFC_SCROLL,
                     shape | (isDown ? UINT{DFCS_PUSHED | DFCS_FLAT} : 0u) | (isDisabled ? UINT{DFCS_INACTIVE} : 0u));
}

void paintBar(HDC context, const RECT &rect, bool isVertical, const ScrollBar &bar, int position, Part down)
{
    if (IsRectEmpty(&rect))
        return;
    int length = isVertical ? rect.bottom - rect.top : rect.right - rect.left;
    BarLayout layout = layBar(bar, length, position);
    bool isDisabled = isUseless(bar);
    paintArrow(context, along(rect, isVertical, 0, layout.arrow), isVertical ? UINT{DFCS_SCROLLUP} : UINT{DFCS_SCROLLLEFT},
               down == Part::Back, isDisabled || bar.isDisabledUp);
    paintArrow(context, along(rect, isVertical, length - layout.arrow, length),
               isVertical ? UINT{DFCS_SCROLLDOWN} : UINT{DFCS_SCROLLRIGHT}, down == Part::Forward,
               isDisabled || bar.isDisabledDown);
    RECT track = along(rect, isVertical, layout.arrow, length - layout.arrow);
    COLORREF oldText = SetTextColor(context, GetSysColor(COLOR_3DFACE));
    COLORREF oldBack = SetBkColor(context, GetSysColor(COLOR_3DHILIGHT));
    HBRUSH brush = trackBrush();
    FillRect(context, &track, brush ? brush : GetSysColorBrush(COLOR_SCROLLBAR));
    SetTextColor(context, oldText);
    SetBkColor(context, oldBack);
    if (layout.thumbLength) {
        RECT thumb = along(rect, isVertical, layout.thumbStart, layout.thumbStart + layout.thumbLength);
        FillRect(context, &thumb, GetSysColorBrush(COLOR_3DFACE));
        DrawEdge(context, &thumb, EDGE_RAISED, BF_RECT);
    }
}

bool takeBar(HWND handle, int which, ScrollBar &bar, RECT &rect, POINT &corner)
{
    UserLock lock;
    Window *window = findWindowQuietly(handle);
    if (!window)
        return false;
    bar = window->scrollBars[which];
    FrameLayout layout = layoutOf(*window);
    rect = which == SB_VERT ? layout.verticalScrollBar : layout.horizontalScrollBar;
    corner = {window->windowRect.left, window->windowRect.top};
    return !IsRectEmpty(&rect);
}

void repaintBar(HWND handle, int which, int position, Part down)
{
    ScrollBar bar;
    RECT rect;
    POINT corner;
    if (!IsWindowVisible(handle) || !takeBar(handle, which, bar, rect, corner))
        return;
    if (HDC context = GetWindowDC(handle)) {
        paintBar(context, rect, which == SB_VERT, bar, position, down);
        ReleaseDC(handle, context);
    }
}

// A press in a bar, from button down to button up.
class Press {
public:
    Press(HWND window, int which, POINT point) : window_(window), which_(which), start_(point) {}

    void run()
    {
        if (!find() || isUseless(bar_))
            return;
        part_ = partAt(layBar(bar_, length_, bar_.position), placeOf(start_));
        if (part_ == Part::None)
            return;
        tracked_ = bar_.position;
        SetCapture(window_);
        act();
        constexpr UINT firstDelay = 250;
        if (part_ != Part::Thumb)
            setSystemTimer(window_, timer, firstDelay);
        MSG message;
        while (GetCapture() == window_ && GetMessageA(&message, nullptr, 0, 0) > 0) {
            if (message.message == WM_LBUTTONUP)
                break;
            take(message);
        }
        killSystemTimer(window_, timer);
        if (GetCapture() == window_)
            ReleaseCapture();
        end();
    }

private:
    static constexpr UINT_PTR timer = 0xfffe;

    bool find()
    {
        if (!takeBar(window_, which_, bar_, rect_, corner_))
            return false;
        length_ = which_ == SB_VERT ? rect_.bottom - rect_.top : rect_.right - rect_.left;
        return true;
    }

    int placeOf(POINT point) const
    {
        return which_ == SB_VERT ? point.y - corner_.y - rect_.top : point.x - corner_.x - rect_.left;
    }

    void send(UINT code, int position = 0)
    {
        UINT message = which_ == SB_VERT ? UINT{WM_VSCROLL} : UINT{WM_HSCROLL};
        sendMessage(window_, message, MAKEWPARAM(code, position), 0);
    }

    void act()
    {
        switch (part_) {
        case Part::Back:
            send(SB_LINEUP);
            break;
        case Part::BackPage:
            send(SB_PAGEUP);
            break;
        case Part::ForwardPage:
            send(SB_PAGEDOWN);
            break;
        case Part::Forward:
            send(SB_LINEDOWN);
            break;
        default:
            break;
        }
        if (find())
            repaintBar(window_, which_, part_ == Part::Thumb ? tracked_ : bar_.position, part_);
    }

    void take(const MSG &message)
    {
        if (message.message == WM_MOUSEMOVE) {
            last_ = message.pt;
            hasMoved_ = true;
            if (part_ == Part::Thumb)
                drag(message.pt);
        } else if (message.message == WM_SYSTIMER && message.wParam == timer) {
            constexpr UINT nextDelay = 50;
            setSystemTimer(window_, timer, nextDelay);
            POINT point = hasMoved_ ? last_ : start_;
            if (find() && partAt(layBar(bar_, length_, bar_.position), placeOf(point)) == part_)
                act();
        } else {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }

    void drag(POINT point)
    {
        BarLayout layout = layBar(bar_, length_, bar_.position);
        int64_t track = length_ - 2 * layout.arrow - layout.thumbLength;
        int64_t range = int64_t{lastPosition(bar_)} - bar_.minimum;
        int64_t moved = placeOf(point) - placeOf(start_);
        int64_t offset = track > 0 ? (moved * range + (moved < 0 ? -track : track) / 2) / track : 0;
        auto position = static_cast<int>(std::clamp<int64_t>(bar_.position + offset, bar_.minimum, lastPosition(bar_)));
        if (position == tracked_)
            return;
        tracked_ = position;
        {
            UserLock lock;
            if (Window *window = findWindowQuietly(window_))
                window->scrollBars[which_].trackPosition = position;
        }
        repaintBar(window_, which_, tracked_, Part::Thumb);
        send(SB_THUMBTRACK, tracked_);
    }

    void end()
    {
        if (!IsWindow(window_))
            return;
        if (part_ == Part::Thumb)
            send(SB_THUMBPOSITION, tracked_);
        send(SB_ENDSCROLL);
        if (find())
            repaintBar(window_, which_, bar_.position, Part::None);
    }

    HWND window_;
    int which_;
    POINT start_;
    POINT last_{};
    bool hasMoved_ = false;
    ScrollBar bar_;
    RECT rect_{};
    POINT corner_{};
    int length_ = 0;
    Part part_ = Part::None;
    int tracked_ = 0;
};

bool isBar(int which)
{
    return which == SB_HORZ || which == SB_VERT;
}

void setShown(HWND handle, DWORD bits, bool isShown)
{
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window || ((window->style & bits) == bits && isShown) || (!(window->style & bits) && !isShown))
            return;
        window->style = isShown ? window->style | bits : window->style & ~bits;
    }
    SetWindowPos(handle, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

DWORD styleBits(int which)
{
    return which == SB_BOTH ? DWORD{WS_HSCROLL | WS_VSCROLL} : which == SB_VERT ? DWORD{WS_VSCROLL} : DWORD{WS_HSCROLL};
}

int change(HWND handle, int which, const SCROLLINFO &info, bool redraw)
{
    int position;
    bool showChanges = false, isShown = true;
    {
        UserLock lock;
        Window *window = findWindow(handle);
        if (!window)
            return 0;
        ScrollBar &bar = window->scrollBars[which];
        if (info.fMask & SIF_RANGE) {
            bool isAllowed = info.nMin <= info.nMax && int64_t{info.nMax} - info.nMin <= INT32_MAX;
            bar.minimum = isAllowed ? info.nMin : 0;
            bar.maximum = isAllowed ? info.nMax : 0;
        }
        if (info.fMask & SIF_PAGE)
            bar.page = info.nPage;
        if (info.fMask & SIF_POS)
            bar.position = info.nPos;
        bar.page = static_cast<UINT>(std::min<int64_t>(bar.page, int64_t{bar.maximum} - bar.minimum + 1));
        bar.position = std::clamp(bar.position, bar.minimum, std::max(lastPosition(bar), bar.minimum));
        position = bar.trackPosition = bar.position;
        if (info.fMask & (SIF_RANGE | SIF_PAGE)) {
            bool isUselessNow = isUseless(bar);
            bar.isDisabledUp = bar.isDisabledDown = isUselessNow && (info.fMask & SIF_DISABLENOSCROLL);
            showChanges = !(info.fMask & SIF_DISABLENOSCROLL);
            isShown = !isUselessNow;
        }
    }
    if (showChanges)
        setShown(handle, styleBits(which), isShown);
    if (redraw)
        repaintBar(handle, which, position, Part::None);
    return position;
}

} // namespace

void paintScrollBars(HWND handle, HDC context, const FrameLayout &layout)
{
    ScrollBar horizontal, vertical;
    {
        UserLock lock;
        Window *window = findWindowQuietly(handle);
        if (!window)
            return;
        horizontal = window->scrollBars[SB_HORZ];
        vertical = window->scrollBars[SB_VERT];
    }
    paintBar(context, layout.horizontalScrollBar, false, horizontal, horizontal.position, Part::None);
    paintBar(context, layout.verticalScrollBar, true, vertical, vertical.position, Part::None);
}

void trackScrollBar(HWND window, int which, POINT point)
{
    Press(window, which, point).run();
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

int SetScrollInfo(HWND window, int which, LPCSCROLLINFO info, BOOL redraw)
{
    if (!info || info->cbSize != sizeof *info || !isBar(which))
        return fail(ERROR_INVALID_PARAMETER, 0);
    return change(window, which, *info, redraw != FALSE);
}

BOOL GetScrollInfo(HWND handle, int which, LPSCROLLINFO info)
{
    if (!info || info->cbSize != sizeof *info || !isBar(which))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    UserLock lock;
    Window *window = findWindow(handle);
    if (!window)
        return FALSE;
    const ScrollBar &bar = window->scrollBars[which];
    if (info->fMask & SIF_RANGE) {
        info->nMin = bar.minimum;
        info->nMax = bar.maximum;
    }
    if (info->fMask & SIF_PAGE)
        info->nPage = bar.page;
    if (info->fMask & SIF_POS)
        info->nPos = bar.position;
    if (info->fMask & SIF_TRACKPOS)
        info->nTrackPos = bar.trackPosition;
    return TRUE;
}

int SetScrollPos(HWND window, int which, int position, BOOL redraw)
{
    int old = GetScrollPos(window, which);
    SCROLLINFO info{sizeof info, SIF_POS, 0, 0, 0, position, 0};
    SetScrollInfo(window, which, &info, redraw);
    return old;
}

int GetScrollPos(HWND window, int which)
{
    SCROLLINFO info{sizeof info, SIF_POS, 0, 0, 0, 0, 0};
    return GetScrollInfo(window, which, &info) ? info.nPos : 0;
}

BOOL SetScrollRange(HWND window, int which, int minimum, int maximum, BOOL redraw)
{
    if (!isBar(which) || !findWindow(window))
        return FALSE;
    SCROLLINFO info{sizeof info, SIF_RANGE, minimum, maximum, 0, 0, 0};
    SetScrollInfo(window, which, &info, redraw);
    return TRUE;
}

BOOL GetScrollRange(HWND window, int which, LPINT minimum, LPINT maximum)
{
    SCROLLINFO info{sizeof info, SIF_RANGE, 0, 0, 0, 0, 0};
    if (!minimum || !maximum || !GetScrollInfo(window, which, &info))
        return FALSE;
    *minimum = info.nMin;
    *maximum = info.nMax;
    return TRUE;
}

BOOL ShowScrollBar(HWND window, int which, BOOL show)
{
    if (!findWindow(window) || (!isBar(which) && which != SB_BOTH))
        return FALSE;
    setShown(window, styleBits(which), show != FALSE);
    return TRUE;
}

BOOL EnableScrollBar(HWND handle, UINT which, UINT arrows)
{
    bool isChanged = false;
    {
        UserLock lock;
        Window *window = findWindow(handle);
        if (!window)
            return FALSE;
        for (int bar : {SB_HORZ, SB_VERT}) {
            if (static_cast<int>(which) != bar && which != SB_BOTH)
                continue;
            ScrollBar &record = window->scrollBars[bar];
            bool up = (arrows & 1) != 0, down = (arrows & 2) != 0;
            isChanged |= record.isDisabledUp != up || record.isDisabledDown != down;
            record.isDisabledUp = up;
            record.isDisabledDown = down;
        }
    }
    if (isChanged) {
        repaintBar(handle, SB_HORZ, GetScrollPos(handle, SB_HORZ), Part::None);
        repaintBar(handle, SB_VERT, GetScrollPos(handle, SB_VERT), Part::None);
    }
    return isChanged;
}
