#include "dib.h"

#include "color_tables.h"

#include "kernel/kernel_internal.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace win32::gdi {
namespace {

constexpr int64_t unknownSize = std::numeric_limits<int64_t>::max();

// A description in memory. Its size is known only of packed DIBs from files; elsewhere the header is the
// only witness.
class Description {
public:
    Description(const void *bytes, int64_t size) : bytes_(static_cast<const uint8_t *>(bytes)), size_(size) {}

    bool has(int64_t offset, int64_t count) const { return count <= size_ && offset <= size_ - count; }
    const uint8_t *at(int64_t offset) const { return bytes_ + offset; }

    template <class T> bool read(int64_t offset, T &value) const
    {
        if (!has(offset, sizeof value))
            return false;
        memcpy(&value, at(offset), sizeof value);
        return true;
    }

private:
    const uint8_t *bytes_;
    int64_t size_;
};

// The longer header of another system, which has the same fields first.
constexpr DWORD osHeaderSize = 64;
// Old headers with the masks inside.
constexpr DWORD maskedHeaderSize = 52, alphaHeaderSize = 56;

// What the fixed header says beyond the fields that all kinds have.
struct HeaderKind {
    DWORD size = 0;
    bool isCore = false;
    // The masks stand behind an old header and inside of a newer one, at the same place.
    bool hasMasksInside = false;
};

bool kindOf(DWORD size, HeaderKind &kind)
{
    switch (size) {
    case sizeof(BITMAPCOREHEADER): kind = {size, true, false}; return true;
    case sizeof(BITMAPINFOHEADER):
    case osHeaderSize: kind = {size, false, false}; return true;
    case maskedHeaderSize:
    case alphaHeaderSize:
    case sizeof(BITMAPV4HEADER):
    case sizeof(BITMAPV5HEADER): kind = {size, false, true}; return true;
    default: return false;
    }
}

bool readHeader(const Description &description, HeaderKind &kind, BITMAPINFOHEADER &header)
{
    DWORD size;
    if (!description.read(0, size) || !kindOf(size, kind) || !description.has(0, size))
        return false;
    if (!kind.isCore)
        return description.read(0, header);
    BITMAPCOREHEADER core;
    if (!description.read(0, core))
        return false;
    header = {};
    header.biWidth = core.bcWidth;
    header.biHeight = core.bcHeight;
    header.biPlanes = core.bcPlanes;
    header.biBitCount = core.bcBitCount;
    return true;
}

bool isMask(uint32_t mask)
{
    return mask != 0 && std::has_single_bit((mask >> std::countr_zero(mask)) + uint64_t{1});
}

bool areMasks(const uint32_t (&masks)[3], int bitsPerPixel)
{
    bool areRuns = isMask(masks[0]) && isMask(masks[1]) && isMask(masks[2]);
    bool areDisjoint = !(masks[0] & masks[1]) && !(masks[0] & masks[2]) && !(masks[1] & masks[2]);
    bool fit = bitsPerPixel == 32 || ((masks[0] | masks[1] | masks[2]) >> bitsPerPixel) == 0;
    return areRuns && areDisjoint && fit;
}

PixelFormat maskedFormat(int depth, const Surface *model)
{
    if (model && model->format.bitsPerPixel == depth)
        return model->format;
    return rgbFormat(depth);
}

// With a model the masks are to be chosen, without one they are read.
bool readFormat(const Description &description, const HeaderKind &kind, const Surface *model, Dib &dib)
{
    int depth = dib.header.biBitCount;
    switch (dib.header.biCompression) {
    case BI_RGB:
        dib.format = rgbFormat(depth);
        return depth == 1 || depth == 4 || depth == 8 || depth == 16 || depth == 24 || depth == 32;
    case BI_RLE8:
    case BI_RLE4: dib.format = rgbFormat(depth); return depth == (dib.header.biCompression == BI_RLE8 ? 8 : 4);
    case BI_BITFIELDS: {
        if ((depth != 16 && depth != 32) || kind.size == osHeaderSize)
            return false;
        if (model) {
            dib.format = maskedFormat(depth, model);
            return true;
        }
        uint32_t masks[3];
        if (!description.read(sizeof(BITMAPINFOHEADER), masks) || !areMasks(masks, depth))
            return false;
        dib.format = bitfieldsFormat(depth, masks[0], masks[1], masks[2]);
        return true;
    }
    default: return false;
    }
}

bool readDimensions(Dib &dib)
{
    BITMAPINFOHEADER &header = dib.header;
    if (header.biPlanes == 0 || header.biWidth <= 0 || header.biHeight == 0
        || header.biHeight == std::numeric_limits<LONG>::min())
        return false;
    dib.width = header.biWidth;
    dib.isTopDown = header.biHeight < 0;
    dib.height = dib.isTopDown ? -header.biHeight : header.biHeight;
    dib.stride = dibStride(dib.width, header.biBitCount);
    if (dib.stride > std::numeric_limits<LONG>::max())
        return false;
    dib.bitsSize = dib.stride * dib.height;
    if (dib.bitsSize > std::numeric_limits<DWORD>::max())
        return false;
    if (!dib.isCompressed()) {
        header.biSizeImage = static_cast<DWORD>(dib.bitsSize);
        return true;
    }
    // Only its stated size bounds compressed data; and its codes say "up", so it cannot be top-down.
    dib.bitsSize = header.biSizeImage;
    return header.biSizeImage > 0 && !dib.isTopDown;
}

// The same colours as last time keep their stamp, so that what was derived from them serves again.
void giveStamp(ColorTable &table)
{
    static thread_local ColorTable last;
    if (last.count != table.count || memcmp(last.colors, table.colors, sizeof(RGBQUAD) * table.count) != 0) {
        table.changed();
        memcpy(last.colors, table.colors, sizeof(RGBQUAD) * table.count);
        last.count = table.count;
        last.stamp = table.stamp;
    }
    table.stamp = last.stamp;
}

RGBQUAD paletteColor(const Palette &palette, WORD index)
{
    if (palette.entries.empty())
        return {};
    const PALETTEENTRY &entry = palette.entries[index % palette.entries.size()];
    return {entry.peBlue, entry.peGreen, entry.peRed, 0};
}

RGBQUAD colorAt(const uint8_t *colors, int index, bool isCore)
{
    const uint8_t *bytes = colors + ptrdiff_t{index} * (isCore ? 3 : 4);
    return {bytes[0], bytes[1], bytes[2], 0};
}

bool readColors(const Description &description, const HeaderKind &kind, UINT usage, const Palette *palette, Dib &dib)
{
    bool areAfterMasks = dib.header.biCompression == BI_BITFIELDS && !kind.hasMasksInside;
    int64_t offset = kind.size + (areAfterMasks ? int64_t{3 * sizeof(DWORD)} : 0);
    int64_t entrySize = usage == DIB_PAL_COLORS ? 2 : kind.isCore ? 3 : 4;
    dib.colors.count = 0;
    if (!dib.format.isIndexed()) {
        dib.bitsOffset = offset + dib.header.biClrUsed * entrySize;
        dib.header.biClrUsed = 0;
        return true;
    }
    DWORD possible = 1u << dib.header.biBitCount;
    DWORD given = dib.header.biClrUsed == 0 ? possible : std::min(dib.header.biClrUsed, possible);
    if (!description.has(offset, given * entrySize) || (usage == DIB_PAL_COLORS && !palette))
        return false;
    const uint8_t *colors = description.at(offset);
    for (int index = 0; index < static_cast<int>(given); ++index) {
        WORD paletteIndex;
        if (usage == DIB_RGB_COLORS) {
            dib.colors.colors[index] = colorAt(colors, index, kind.isCore);
        } else {
            memcpy(&paletteIndex, colors + 2 * ptrdiff_t{index}, sizeof paletteIndex);
            dib.colors.colors[index] = paletteColor(*palette, paletteIndex);
        }
    }
    std::fill(dib.colors.colors + given, dib.colors.colors + possible, RGBQUAD{});
    dib.colors.count = static_cast<int>(possible);
    giveStamp(dib.colors);
    dib.header.biClrUsed = possible;
    dib.bitsOffset = offset + given * entrySize;
    return true;
}

bool parse(const Description &description, UINT usage, const Palette *palette, Dib &dib)
{
    HeaderKind kind;
    bool isUnderstood = usage <= DIB_PAL_COLORS && readHeader(description, kind, dib.header)
                        && readFormat(description, kind, nullptr, dib) && readDimensions(dib)
                        && readColors(description, kind, usage, palette, dib);
    if (!isUnderstood)
        return fail(ERROR_INVALID_PARAMETER, false);
    dib.header.biSize = sizeof dib.header;
    return true;
}

} // namespace

bool isInfoHeaderSize(DWORD size)
{
    HeaderKind kind;
    return kindOf(size, kind) && !kind.isCore;
}

bool readDibSize(const BITMAPINFOHEADER *header, int64_t &width, int64_t &height)
{
    HeaderKind kind;
    BITMAPINFOHEADER copy;
    if (!header || !readHeader({header, unknownSize}, kind, copy) || copy.biWidth < 0)
        return false;
    width = copy.biWidth;
    height = std::abs(int64_t{copy.biHeight});
    return true;
}

Surface Dib::surfaceOf(const void *bits, int lines) const
{
    Surface surface;
    // Sources are only read.
    surface.bits = static_cast<uint8_t *>(const_cast<void *>(bits));
    surface.stride = static_cast<ptrdiff_t>(stride);
    surface.width = width;
    surface.height = lines;
    surface.format = format;
    surface.colors = format.isIndexed() ? &colors : nullptr;
    if (!isTopDown && lines > 0) {
        surface.bits += (lines - 1) * surface.stride;
        surface.stride = -surface.stride;
    }
    return surface;
}

bool readDib(const BITMAPINFO *info, UINT usage, const Palette *palette, Dib &dib)
{
    if (!info)
        return fail(ERROR_INVALID_PARAMETER, false);
    return parse({info, unknownSize}, usage, palette, dib);
}

bool readWantedDib(const BITMAPINFO *info, const Surface &model, Dib &dib)
{
    HeaderKind kind;
    Description description(info, unknownSize);
    bool isUnderstood = info && readHeader(description, kind, dib.header) && readFormat(description, kind, &model, dib)
                        && readDimensions(dib) && !dib.isCompressed();
    if (!isUnderstood)
        return fail(ERROR_INVALID_PARAMETER, false);
    dib.header.biClrUsed = 0;
    dib.colors.count = 0;
    if (dib.format.isIndexed())
        dib.colors =
            model.format == dib.format && model.colors ? *model.colors : *defaultColors(dib.format.bitsPerPixel);
    return true;
}

bool readPackedDib(const void *packed, int64_t size, UINT usage, const Palette *palette, Dib &dib)
{
    Description description(packed, size);
    if (!packed || !parse(description, usage, palette, dib) || !description.has(dib.bitsOffset, dib.bitsSize))
        return fail(ERROR_INVALID_PARAMETER, false);
    return true;
}

} // namespace win32::gdi
