// The objects behind HCURSOR and HICON: a picture with a mask and a hot spot.
#pragma once

#include "user_object.h"

#include <cstdint>
#include <vector>

namespace win32::user {

class Cursor final : public UserObject {
public:
    Cursor() : UserObject(UserObjectType::Cursor) {}

    int width = 0;
    int height = 0;
    int hotX = 0;
    int hotY = 0;
    bool isShared = false; // of the system or a module: no program destroys it
    // For each pixel: nothing, the inverted screen, or an opaque colour 0xFFRRGGBB.
    static constexpr uint32_t transparent = 0;
    static constexpr uint32_t inverted = 1;
    std::vector<uint32_t> pixels;
};

// Null for what is no live cursor.
Cursor *findCursor(HCURSOR handle);

// The cursor that shows at this moment; null for none.
Cursor *shownCursor();

} // namespace win32::user
