// A bitmap's pixels as bytes, from the top row on, and the colours of the section in a context.
#include "bitmap.h"
#include "device_context.h"

#include "kernel/kernel_internal.h"

#include <algorithm>
#include <cstring>

using namespace win32;
using namespace win32::gdi;

namespace {

// The rows of these calls are padded to words, whatever the bitmap's own rows are.
struct WordRows {
    explicit WordRows(const Surface &surface)
        : stride(static_cast<size_t>(bitmapStride(surface.width, surface.format.bitsPerPixel))),
          usedBits(static_cast<size_t>(surface.width) * surface.format.bitsPerPixel),
          size(stride * static_cast<size_t>(surface.height))
    {
    }

    size_t stride;
    size_t usedBits;
    size_t size;
};

// Calls visit(row of the surface, bytes of the caller, count) for the rows that the size reaches.
template <class Byte, class Visit>
void eachRow(const Surface &surface, const WordRows &rows, Byte *bytes, size_t size, Visit visit)
{
    for (int y = 0; size > 0; ++y) {
        size_t count = std::min(rows.stride, size);
        visit(surface.row(y), bytes, count);
        bytes += count;
        size -= count;
    }
}

// Copies a row without what lies behind its last pixel.
void copyUsed(uint8_t *target, const uint8_t *row, size_t count, size_t usedBits)
{
    size_t whole = std::min(count, usedBits / 8);
    memcpy(target, row, whole);
    if (count == whole)
        return;
    memset(target + whole, 0, count - whole);
    if (unsigned rest = usedBits % 8)
        target[whole] = static_cast<uint8_t>(row[whole] & ~(0xff >> rest));
}

// The colours that the two calls are about; null when the context has no section with colours.
ColorTable *sectionColors(HDC context)
{
    DeviceContext *dc = findContext(context);
    return dc && dc->bitmap ? dc->bitmap->colors.get() : nullptr;
}

// How many of the entries are there.
UINT entriesFrom(const ColorTable &table, UINT start, UINT count)
{
    auto all = static_cast<UINT>(table.count);
    return start < all ? std::min(count, all - start) : 0;
}

} // namespace

LONG GetBitmapBits(HBITMAP handle, LONG size, LPVOID bits)
{
    Bitmap *bitmap = find<Bitmap>(handle);
    if (!bitmap)
        return 0;
    WordRows rows(bitmap->surface);
    size_t wanted = std::min(size < 0 ? rows.size : static_cast<size_t>(size), rows.size);
    if (!bits)
        return static_cast<LONG>(rows.size);
    eachRow(bitmap->surface, rows, static_cast<uint8_t *>(bits), wanted,
            [&](const uint8_t *row, uint8_t *target, size_t count) { copyUsed(target, row, count, rows.usedBits); });
    return static_cast<LONG>(wanted);
}

LONG SetBitmapBits(HBITMAP handle, DWORD size, const void *bits)
{
    Bitmap *bitmap = find<Bitmap>(handle);
    if (!bitmap)
        return 0;
    if (!bits)
        return fail(ERROR_INVALID_PARAMETER, 0);
    WordRows rows(bitmap->surface);
    size_t given = std::min<size_t>(static_cast<LONG>(size) < 0 ? 0u - size : size, rows.size);
    eachRow(bitmap->surface, rows, static_cast<const uint8_t *>(bits), given,
            [&](uint8_t *row, const uint8_t *source, size_t count) { memcpy(row, source, count); });
    return static_cast<LONG>(given);
}

UINT GetDIBColorTable(HDC context, UINT start, UINT count, RGBQUAD *colors)
{
    const ColorTable *table = sectionColors(context);
    UINT copied = table && colors ? entriesFrom(*table, start, count) : 0;
    if (copied)
        std::copy_n(table->colors + start, copied, colors);
    return copied;
}

UINT SetDIBColorTable(HDC context, UINT start, UINT count, const RGBQUAD *colors)
{
    ColorTable *table = sectionColors(context);
    UINT copied = table && colors ? entriesFrom(*table, start, count) : 0;
    for (UINT i = 0; i < copied; ++i)
        table->colors[start + i] = {colors[i].rgbBlue, colors[i].rgbGreen, colors[i].rgbRed, 0};
    if (copied)
        table->changed();
    return copied;
}
