// The object behind an HPALETTE.
#pragma once

#include "gdi_object.h"

#include <vector>

namespace win32::gdi {

class Palette final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Palette;

    Palette() : Object(objectType) {}

    int describe(int size, void *buffer) const override;

    std::vector<PALETTEENTRY> entries;
};

// The palette entry that is nearest to a colour.
UINT nearestEntry(const Palette &palette, COLORREF color);

} // namespace win32::gdi
