// What the system's controls share: their font, and text with a marked letter.
#pragma once

#include <windows.h>

#include <string>

namespace win32::user {

std::string textOf(HWND window);

// Selects a control's font for as long as it lives; null is the system's.
class FontScope {
public:
    FontScope(HDC context, HFONT font) : context_(context), old_(font ? SelectObject(context, font) : nullptr) {}
    ~FontScope()
    {
        if (old_)
            SelectObject(context_, old_);
    }
    FontScope(const FontScope &) = delete;
    FontScope &operator=(const FontScope &) = delete;

private:
    HDC context_;
    HGDIOBJ old_;
};

// The brush and colours that a control's parent wants for it.
HBRUSH controlBrush(HWND window, HDC context, UINT message);

// The letter behind the "&" of a label, in upper case; 0 for none.
char marker(const std::string &label);

} // namespace win32::user
