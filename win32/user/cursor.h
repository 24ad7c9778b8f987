// The objects behind HCURSOR and HICON: a picture with a mask and a hot spot, or several that follow each other.
#pragma once

#include "user_object.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace win32::user {

class Cursor final : public UserObject {
public:
    Cursor() : UserObject(UserObjectType::Cursor), serial(nextSerial()) {}

    int width = 0;
    int height = 0;
    int hotX = 0;
    int hotY = 0;
    bool isShared = false; // of the system or a module: no program destroys it
    // For each pixel: nothing, the inverted screen, or a colour 0xAARRGGBB, not multiplied by its alpha.
    static constexpr uint32_t transparent = 0;
    static constexpr uint32_t inverted = 1;
    std::vector<uint32_t> pixels;

    // Of an animated cursor, which has no pixels of its own.
    struct Step {
        size_t picture;
        uint32_t milliseconds; // above 0
    };
    std::vector<std::unique_ptr<Cursor>> pictures;
    std::vector<Step> steps;
    uint64_t duration = 0; // of all steps; 0: not animated

    const uint32_t serial; // tells pictures apart, other than handles do; never 0

private:
    static uint32_t nextSerial();
};

// The screen's pixel 0xRRGGBB with a cursor's on it.
uint32_t laidOn(uint32_t screen, uint32_t pixel);

// Null for what is no live cursor.
Cursor *findCursor(HCURSOR handle);

// Enters a cursor into the table of handles. Null with the last error set when that fails.
HCURSOR enterCursor(std::unique_ptr<Cursor> cursor);

// Draws an icon in the size of a rectangle.
BOOL drawIcon(HDC context, const RECT &rect, HICON icon);

// The picture that shows at this moment; null for none.
const Cursor *shownCursor();
// How long it stays if nothing changes it; INFINITE for a cursor that is not animated.
DWORD shownCursorStays();

} // namespace win32::user
