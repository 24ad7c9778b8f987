// Palettes as objects.
#include "palette.h"

#include "system_palette.h"

#include "kernel/kernel_internal.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>

namespace win32::gdi {

Palette::~Palette()
{
    unrealize(*this);
}

int Palette::describe(int size, void *buffer) const
{
    auto count = static_cast<WORD>(entries.size());
    if (!buffer)
        return sizeof count;
    int copied = std::min(size, static_cast<int>(sizeof count));
    if (copied <= 0)
        return 0;
    memcpy(buffer, &count, static_cast<size_t>(copied));
    return copied;
}

UINT nearestEntry(const Palette &palette, COLORREF color)
{
    UINT nearest = 0;
    int leastDistance = INT_MAX;
    for (UINT i = 0; i < palette.entries.size(); ++i) {
        const PALETTEENTRY &entry = palette.entries[i];
        int red = entry.peRed - GetRValue(color), green = entry.peGreen - GetGValue(color),
            blue = entry.peBlue - GetBValue(color);
        int distance = red * red + green * green + blue * blue;
        if (distance < leastDistance) {
            leastDistance = distance;
            nearest = i;
        }
    }
    return nearest;
}

namespace {

// How many of the asked entries there are.
UINT countWithin(const Palette &palette, UINT start, UINT count)
{
    auto size = static_cast<UINT>(palette.entries.size());
    return start < size ? std::min(count, size - start) : 0;
}

} // namespace
} // namespace win32::gdi

using namespace win32;
using namespace win32::gdi;

HPALETTE CreatePalette(const LOGPALETTE *palette)
{
    constexpr WORD onlyVersion = 0x300;
    if (!palette || palette->palVersion != onlyVersion || palette->palNumEntries == 0)
        return fail(ERROR_INVALID_PARAMETER, HPALETTE{});
    if (refusesCreation(ObjectType::Palette))
        return nullptr;
    return guarded(HPALETTE{}, [&] {
        auto object = std::make_unique<Palette>();
        object->entries.assign(palette->palPalEntry, palette->palPalEntry + palette->palNumEntries);
        return static_cast<HPALETTE>(enter(object.release()));
    });
}

UINT GetPaletteEntries(HPALETTE palette, UINT start, UINT count, LPPALETTEENTRY entries)
{
    const Palette *object = find<Palette>(palette);
    if (!object)
        return 0;
    if (!entries)
        return static_cast<UINT>(object->entries.size());
    count = countWithin(*object, start, count);
    std::copy_n(object->entries.begin() + start, count, entries);
    return count;
}

UINT SetPaletteEntries(HPALETTE palette, UINT start, UINT count, const PALETTEENTRY *entries)
{
    Palette *object = find<Palette>(palette);
    if (!object)
        return 0;
    if (!entries || object->isStock())
        return fail(ERROR_INVALID_PARAMETER, 0u);
    count = countWithin(*object, start, count);
    std::copy_n(entries, count, object->entries.begin() + start);
    unrealize(*object);
    return count;
}

BOOL ResizePalette(HPALETTE palette, UINT count)
{
    Palette *object = find<Palette>(palette);
    if (!object)
        return FALSE;
    if (count == 0 || count > WORD(-1) || object->isStock())
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    return guarded(FALSE, [&] {
        object->entries.resize(count); // new ones are black
        unrealize(*object);
        return TRUE;
    });
}

UINT GetNearestPaletteIndex(HPALETTE palette, COLORREF color)
{
    const Palette *object = find<Palette>(palette);
    return object ? nearestEntry(*object, color) : 0;
}
