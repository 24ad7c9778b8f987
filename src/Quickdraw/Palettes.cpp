// The logical palette of screens with 8 bits per pixel, and whose colours the screen shows.
#include "ColorTables_internal.h"
#include "GdiGuard_internal.h"
#include "Palettes_internal.h"

#include <mtbx/Palettes.h>

#include <algorithm>
#include <iterator>

PALETTEENTRY firstSystemEntries[systemEntryCount];
PALETTEENTRY lastSystemEntries[systemEntryCount];
SInt16 paletteIsGray = 1;

namespace {

constexpr SInt32 mostEntries = 256;

struct LogicalPalette {
    WORD palVersion = 0x300;
    WORD palNumEntries = 0;
    PALETTEENTRY palPalEntry[mostEntries] = {};
};

class DisplayContext {
public:
    DisplayContext() : context_(MTBX_CreateDC("DISPLAY", nullptr, nullptr, nullptr)) {}
    ~DisplayContext()
    {
        if (context_)
            DeleteDC(context_);
    }
    DisplayContext(const DisplayContext &) = delete;
    DisplayContext &operator=(const DisplayContext &) = delete;

    operator HDC() const { return context_; }

private:
    HDC context_;
};

bool screenHasPalette()
{
    return gbits_per_pixel == 8;
}

PALETTEENTRY entryOf(const ColorSpec &color)
{
    return {static_cast<BYTE>(color.rgb.red >> 8), static_cast<BYTE>(color.rgb.green >> 8),
            static_cast<BYTE>(color.rgb.blue >> 8), 0};
}

// Filler between the colours and the system's own.
void surroundWithSystemEntries(LogicalPalette &palette, SInt32 end)
{
    constexpr PALETTEENTRY filler = {253, 0, 0, 0};
    PALETTEENTRY *entries = palette.palPalEntry;
    std::copy(std::begin(firstSystemEntries), std::end(firstSystemEntries), entries);
    std::fill(entries + end, entries + mostEntries - systemEntryCount, filler);
    std::copy(std::begin(lastSystemEntries), std::end(lastSystemEntries), entries + mostEntries - systemEntryCount);
}

bool hasOnlyGreys(HPALETTE palette)
{
    PALETTEENTRY entries[mostEntries];
    UINT count = GetPaletteEntries(palette, 0, mostEntries, entries);
    return count > 0 && std::all_of(entries, entries + std::min<UINT>(count, mostEntries), [](const PALETTEENTRY &e) {
               return e.peRed == e.peGreen && e.peGreen == e.peBlue;
           });
}

void realizeAgain()
{
    DisplayContext context;
    if (!context)
        return;
    SetSystemPaletteUse(context, SYSPAL_NOSTATIC);
    SelectPalette(context, gcurrent_palette, TRUE);
    UnrealizeObject(gcurrent_palette);
    RealizePalette(context);
}

void realizeFirst()
{
    DisplayContext context;
    if (!context)
        return;
    SelectPalette(context, gworld_palette, TRUE);
    SetSystemPaletteUse(context, SYSPAL_NOSTATIC);
    RealizePalette(context);
}

} // namespace

void makeWorldPalette(const ColorSpec *colors, SInt32 count)
{
    count = std::min(count, mostEntries);
    bool withSystemEntries = screenHasPalette() && count <= mostEntries - 2 * systemEntryCount;
    SInt32 first = withSystemEntries ? systemEntryCount : 0;
    LogicalPalette palette;
    palette.palNumEntries = static_cast<WORD>(withSystemEntries ? mostEntries : count);
    std::transform(colors, colors + count, palette.palPalEntry + first, entryOf);
    if (withSystemEntries)
        surroundWithSystemEntries(palette, first + count);
    for (SInt32 i = 0; i < palette.palNumEntries; ++i)
        palette.palPalEntry[i].peFlags = i == 0 ? 0 : PC_NOCOLLAPSE;
    gworld_palette = MTBX_CreatePalette(reinterpret_cast<const LOGPALETTE *>(&palette));
}

void takeStockPalette()
{
    gworld_palette = gcurrent_palette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
}

void releaseWorldPalette()
{
    if (gworld_palette && gworld_palette != GetStockObject(DEFAULT_PALETTE))
        DeleteObject(gworld_palette);
    gworld_palette = gcurrent_palette = nullptr;
}

void MTBX_AssertZPPalette()
{
    if (!screenHasPalette())
        return;
    if (gcurrent_palette) {
        realizeAgain();
        return;
    }
    realizeFirst();
    gcurrent_palette = gworld_palette;
    paletteIsGray = hasOnlyGreys(gcurrent_palette) ? 2 : 1;
    if (CTabHandle table = MTBX_StandardTable(8))
        (*table)->ctSeed = 0;
}

void MTBX_AssertSystemPalette()
{
    if (!screenHasPalette())
        return;
    DisplayContext context;
    if (context)
        SetSystemPaletteUse(context, SYSPAL_STATIC);
}
