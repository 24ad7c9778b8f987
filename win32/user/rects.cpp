// Arithmetic on rectangles.
#include "gdi/box.h"

using win32::gdi::wrappingDifference;
using win32::gdi::wrappingSum;

BOOL SetRect(LPRECT rect, int left, int top, int right, int bottom)
{
    if (!rect)
        return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(LPRECT rect)
{
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL CopyRect(LPRECT result, const RECT *rect)
{
    if (!result || !rect)
        return FALSE;
    *result = *rect;
    return TRUE;
}

BOOL InflateRect(LPRECT rect, int x, int y)
{
    if (!rect)
        return FALSE;
    *rect = {wrappingDifference(rect->left, x), wrappingDifference(rect->top, y), wrappingSum(rect->right, x),
             wrappingSum(rect->bottom, y)};
    return TRUE;
}

BOOL OffsetRect(LPRECT rect, int x, int y)
{
    if (!rect)
        return FALSE;
    *rect = {wrappingSum(rect->left, x), wrappingSum(rect->top, y), wrappingSum(rect->right, x),
             wrappingSum(rect->bottom, y)};
    return TRUE;
}

BOOL IsRectEmpty(const RECT *rect)
{
    return !rect || rect->left >= rect->right || rect->top >= rect->bottom;
}

BOOL EqualRect(const RECT *first, const RECT *second)
{
    return first && second && first->left == second->left && first->top == second->top && first->right == second->right
           && first->bottom == second->bottom;
}

BOOL PtInRect(const RECT *rect, POINT point)
{
    return rect && win32::gdi::contains(win32::gdi::boxOf(*rect), point.x, point.y);
}

BOOL IntersectRect(LPRECT result, const RECT *first, const RECT *second)
{
    if (!result || !first || !second)
        return FALSE;
    RECT shared = win32::gdi::rectOf(win32::gdi::intersected(win32::gdi::boxOf(*first), win32::gdi::boxOf(*second)));
    bool meet = !IsRectEmpty(first) && !IsRectEmpty(second) && !IsRectEmpty(&shared);
    *result = meet ? shared : RECT{0, 0, 0, 0};
    return meet;
}

// An empty rectangle adds nothing.
BOOL UnionRect(LPRECT result, const RECT *first, const RECT *second)
{
    if (!result || !first || !second)
        return FALSE;
    RECT both{0, 0, 0, 0};
    if (IsRectEmpty(first))
        both = IsRectEmpty(second) ? both : *second;
    else if (IsRectEmpty(second))
        both = *first;
    else
        both = win32::gdi::rectOf(win32::gdi::united(win32::gdi::boxOf(*first), win32::gdi::boxOf(*second)));
    *result = both;
    return !IsRectEmpty(&both);
}

// Takes from the first rectangle what leaves a rectangle: only a part that reaches from side to side.
BOOL SubtractRect(LPRECT result, const RECT *first, const RECT *second)
{
    if (!result || !first || !second)
        return FALSE;
    RECT rest = *first, shared;
    if (IsRectEmpty(first)) {
        rest = {0, 0, 0, 0};
    } else if (IntersectRect(&shared, first, second)) {
        if (EqualRect(&shared, first)) {
            rest = {0, 0, 0, 0};
        } else if (shared.top == rest.top && shared.bottom == rest.bottom) {
            if (shared.left == rest.left)
                rest.left = shared.right;
            else if (shared.right == rest.right)
                rest.right = shared.left;
        } else if (shared.left == rest.left && shared.right == rest.right) {
            if (shared.top == rest.top)
                rest.top = shared.bottom;
            else if (shared.bottom == rest.bottom)
                rest.bottom = shared.top;
        }
    }
    *result = rest;
    return !IsRectEmpty(&rest);
}
