// GDI's pen for lines that are neither level nor upright: as wide as the port's pen, in its pattern.
#pragma once

#include "Shapes_internal.h"

#include <mtbx/MTBXGlobals.h>

// Pen and brush for the time of one drawing. What GDI refuses leaves the context with what it holds.
class DiagonalPen {
public:
    DiagonalPen(HDC context, const GrafPort &port);

    // Windows 95 may refuse a pattern pen but fill the outline of a solid one.
    template <class Draw> void draw(Draw draw)
    {
        if (penSelection_.isMade() || !gWin95)
            draw();
        else
            fillOutline([](void *call) { (*static_cast<Draw *>(call))(); }, &draw);
    }

private:
    void fillOutline(void (*call)(void *), void *argument);

    HDC context_;
    const GrafPort &port_;
    OwnObject brush_;
    OwnObject pen_;
    Selection brushSelection_;
    Selection penSelection_;
};
