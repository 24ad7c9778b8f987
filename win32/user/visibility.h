// What can be seen of a window: its area without what covers it.
#pragma once

#include "window.h"

namespace win32::user {

// To be called at each change that can make a visible region differ: moving, sizing, showing, hiding, another
// order. Contexts find their place anew then.
inline void visibilityChanged()
{
    gdi::screenLayout.fetch_add(1, std::memory_order_relaxed);
}

enum class Area { Whole, Client };
enum class Children { Left, CutOut };

// In screen coordinates: the window's area as its parents let it through, without its siblings above (as
// WS_CLIPSIBLINGS asks, and always between top-level windows) and, if asked, without its visible children.
// Empty when the window or a parent is hidden or minimized. Throws bad_alloc.
void visibleRegion(const Window &window, Area area, Children children, gdi::RegionValue &result);

// The window that shows at a point of the screen: the deepest one that is visible (and, as WindowFromPoint
// wants, not disabled).
Window *windowAt(POINT point);
// The one that would show at the point without this window: a sibling below it, or a child of that, else the
// parent. Null for none.
Window *nextBelow(Window &window, POINT point);

} // namespace win32::user
