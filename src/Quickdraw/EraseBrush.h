// The brush that erases: the background colour, whatever bkPat says.
#pragma once

#include "Quickdraw_internal.h"

class EraseBrush {
public:
    EraseBrush(const GrafPort &port, HDC context);
    ~EraseBrush()
    {
        if (own_)
            DeleteObject(own_);
    }
    EraseBrush(const EraseBrush &) = delete;
    EraseBrush &operator=(const EraseBrush &) = delete;

    // Null when GDI refuses one and the port's window has none either.
    operator HBRUSH() const { return own_ ? own_ : borrowed_; }

private:
    HBRUSH own_;
    HBRUSH borrowed_ = nullptr;
};
