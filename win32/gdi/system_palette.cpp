#include "system_palette.h"

#include "device_context.h"
#include "stock_objects.h"

#include "kernel/kernel_internal.h"
#include "screen/screen.h"

#include <array>
#include <mutex>

namespace win32::gdi {
namespace {

constexpr int placeCount = 256;
constexpr int staticAtEachEnd = 10;

struct Places {
    UINT use = SYSPAL_STATIC;
    std::array<const Palette *, placeCount> holders{};
    const ColorTable *table = nullptr; // of the screen that all this is about

    bool isStatic(int place) const
    {
        int atEachEnd = use == SYSPAL_STATIC ? staticAtEachEnd : use == SYSPAL_NOSTATIC ? 1 : 0;
        return place < atEachEnd || place >= placeCount - atEachEnd;
    }
};

std::mutex placesMutex;

// To be called with the mutex held.
Places &places()
{
    static Places all;
    ColorTable &table = screen::systemColors();
    if (all.table != &table) // the screen is another one
        all = Places{};
    all.table = &table;
    return all;
}

bool screenHasPalette()
{
    return screen::surface().format.layout == PixelLayout::Index8;
}

COLORREF colorAt(int place)
{
    const RGBQUAD &color = screen::systemColors().colors[place];
    return RGB(color.rgbRed, color.rgbGreen, color.rgbBlue);
}

int distance(COLORREF a, COLORREF b)
{
    int red = GetRValue(a) - GetRValue(b), green = GetGValue(a) - GetGValue(b), blue = GetBValue(a) - GetBValue(b);
    return red * red + green * green + blue * blue;
}

// One run over a palette's entries, each of which finds its place.
class Realizing {
public:
    Realizing(Places &all, const Palette &palette, Realization realization)
        : all_(all), palette_(palette), mayTakeHeld_(realization == Realization::Foreground)
    {
        for (int place = 0; place < placeCount; ++place)
            isSettled_[static_cast<size_t>(place)] = !isFree(place);
    }

    uint8_t place(const PALETTEENTRY &entry)
    {
        if (entry.peFlags & PC_EXPLICIT)
            return entry.peRed; // the entry names a place
        COLORREF color = colorOf(entry);
        bool mayShare = !(entry.peFlags & (PC_NOCOLLAPSE | PC_RESERVED));
        if (int same = mayShare ? find(color) : -1; same >= 0)
            return static_cast<uint8_t>(same);
        if (int taken = take(color); taken >= 0)
            return static_cast<uint8_t>(taken);
        return static_cast<uint8_t>(nearest(color));
    }

    bool hasChangedColors() const { return hasChangedColors_; }

private:
    bool isFree(int place) const
    {
        const Palette *holder = all_.holders[static_cast<size_t>(place)];
        return !all_.isStatic(place) && (!holder || holder == &palette_ || mayTakeHeld_);
    }
    int find(COLORREF color) const
    {
        for (int place = 0; place < placeCount; ++place) {
            if (isSettled_[static_cast<size_t>(place)] && colorAt(place) == color)
                return place;
        }
        return -1;
    }
    int nearest(COLORREF color) const
    {
        int best = 0;
        for (int place = 1; place < placeCount; ++place) {
            if (isSettled_[static_cast<size_t>(place)]
                && distance(colorAt(place), color) < distance(colorAt(best), color))
                best = place;
        }
        return best;
    }
    int take(COLORREF color);

    Places &all_;
    const Palette &palette_;
    bool mayTakeHeld_;
    bool hasChangedColors_ = false;
    int next_ = 0;
    std::array<bool, placeCount> isSettled_; // not to be overwritten by this palette any more
};

int Realizing::take(COLORREF color)
{
    while (next_ < placeCount && isSettled_[static_cast<size_t>(next_)])
        ++next_;
    if (next_ == placeCount)
        return -1;
    isSettled_[static_cast<size_t>(next_)] = true;
    all_.holders[static_cast<size_t>(next_)] = &palette_;
    hasChangedColors_ |= colorAt(next_) != color;
    screen::systemColors().colors[next_] = {GetBValue(color), GetGValue(color), GetRValue(color), 0};
    return next_;
}

// Puts the colours of the system back at both ends.
void restoreStaticColors(Places &all)
{
    const std::vector<PALETTEENTRY> &entries = stock::defaultPalette()->entries;
    for (int place = 0; place < placeCount; ++place) {
        if (!all.isStatic(place))
            continue;
        const PALETTEENTRY &entry =
            entries[static_cast<size_t>(place < staticAtEachEnd ? place : place + 2 * staticAtEachEnd - placeCount)];
        screen::systemColors().colors[place] = {entry.peBlue, entry.peGreen, entry.peRed, 0};
        all.holders[static_cast<size_t>(place)] = nullptr;
    }
}

void showNewColors()
{
    screen::systemColors().changed();
    const Surface &surface = screen::surface();
    if (surface.listener)
        surface.listener->damaged(surface.box());
}

UINT countDifferences(const std::vector<uint8_t> &before, const std::vector<uint8_t> &now)
{
    UINT differences = 0;
    for (size_t i = 0; i < now.size(); ++i)
        differences += i >= before.size() || before[i] != now[i];
    return differences;
}

} // namespace

UINT realize(Palette &palette, Realization realization)
{
    std::vector<uint8_t> now, before = palette.realized;
    now.reserve(palette.entries.size());
    unrealize(palette);
    std::lock_guard lock(placesMutex);
    Realizing realizing(places(), palette, realization);
    for (const PALETTEENTRY &entry : palette.entries)
        now.push_back(realizing.place(entry));
    palette.realized = std::move(now);
    if (realizing.hasChangedColors())
        showNewColors();
    return countDifferences(before, palette.realized);
}

void unrealize(Palette &palette)
{
    if (palette.realized.empty())
        return;
    std::lock_guard lock(placesMutex);
    for (const Palette *&holder : places().holders) {
        if (holder == &palette)
            holder = nullptr;
    }
    palette.realized.clear();
}

} // namespace win32::gdi

using namespace win32;
using namespace win32::gdi;

HPALETTE SelectPalette(HDC context, HPALETTE palette, BOOL forceBackground)
{
    DeviceContext *dc = findContext(context);
    Palette *object = dc ? find<Palette>(palette) : nullptr;
    if (!object)
        return nullptr;
    auto old = static_cast<HPALETTE>(dc->state.palette->handle());
    dc->state.palette.set(object);
    dc->isPaletteInBackground = forceBackground;
    return old;
}

UINT RealizePalette(HDC context)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return GDI_ERROR;
    Palette *palette = dc->state.palette.get();
    if (!screenHasPalette() || palette->isStock())
        return 0;
    return guarded(UINT{GDI_ERROR}, [&] {
        return realize(*palette, dc->isPaletteInBackground ? Realization::Background : Realization::Foreground);
    });
}

UINT GetSystemPaletteEntries(HDC context, UINT start, UINT count, LPPALETTEENTRY entries)
{
    if (!findContext(context) || !screenHasPalette())
        return 0;
    if (!entries)
        return placeCount;
    count = start < placeCount ? std::min(count, placeCount - start) : 0;
    for (UINT i = 0; i < count; ++i) {
        const RGBQUAD &color = screen::systemColors().colors[start + i];
        entries[i] = {color.rgbRed, color.rgbGreen, color.rgbBlue, 0};
    }
    return count;
}

UINT SetSystemPaletteUse(HDC context, UINT use)
{
    if (!findContext(context) || !screenHasPalette() || use < SYSPAL_STATIC || use > SYSPAL_NOSTATIC256)
        return SYSPAL_ERROR;
    std::lock_guard lock(placesMutex);
    UINT old = std::exchange(places().use, use);
    if (use == SYSPAL_STATIC && old != use) {
        restoreStaticColors(places());
        showNewColors();
    }
    return old;
}

UINT GetSystemPaletteUse(HDC context)
{
    if (!findContext(context))
        return SYSPAL_ERROR;
    std::lock_guard lock(placesMutex);
    return places().use;
}
