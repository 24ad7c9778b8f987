// The object behind an HPALETTE.
#pragma once

#include "gdi_object.h"

#include <vector>

namespace win32::gdi {

class Palette final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Palette;

    Palette() : Object(objectType) {}
    ~Palette() override;

    int describe(int size, void *buffer) const override;

    std::vector<PALETTEENTRY> entries;
    // Where the entries stand in the system palette since they were realized; empty when they are not.
    std::vector<uint8_t> realized;
};

// The palette entry that is nearest to a colour.
UINT nearestEntry(const Palette &palette, COLORREF color);

inline COLORREF colorOf(const PALETTEENTRY &entry)
{
    return RGB(entry.peRed, entry.peGreen, entry.peBlue);
}

} // namespace win32::gdi
