// Conversion of CURS resources: a picture and a mask of 16 by 16 bits, and the hot spot.
#include "CursorResources.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

namespace {

constexpr int side = 16;

// Masks in the size of the system's cursors, of which only the corner ever changes. Made at the first need.
struct Masks {
    int width, height;
    UInt8 *andMask, *xorMask;
};
Masks masks;

int strideOf(int width)
{
    return (width + 15) / 16 * 2;
}

bool makeMasks()
{
    int width = GetSystemMetrics(SM_CXCURSOR), height = GetSystemMetrics(SM_CYCURSOR);
    if (masks.andMask && masks.width == width && masks.height == height)
        return true;
    MTBX_FreeCursorMasks();
    if (width < side || height < side)
        return false;
    Size bytes = strideOf(width) * height;
    masks = {width, height, reinterpret_cast<UInt8 *>(NewPtr(bytes)), reinterpret_cast<UInt8 *>(NewPtrClear(bytes))};
    if (!masks.andMask || !masks.xorMask) {
        MTBX_FreeCursorMasks();
        return false;
    }
    memset(masks.andMask, 0xFF, static_cast<size_t>(bytes));
    return true;
}

UInt16 swapped(UInt16 word)
{
    return static_cast<UInt16>(word << 8 | word >> 8);
}

void putRow(UInt8 *mask, int row, unsigned bits)
{
    UInt8 *place = mask + row * strideOf(masks.width);
    place[0] = static_cast<UInt8>(bits >> 8);
    place[1] = static_cast<UInt8>(bits);
}

// Picture and mask of a pixel: neither shows the screen, the mask alone is white, the picture alone inverts, both
// are black.
void convert(const Cursor &cursor)
{
    for (int row = 0; row < side; ++row) {
        auto picture = static_cast<UInt16>(cursor.data[row]), mask = static_cast<UInt16>(cursor.mask[row]);
        putRow(masks.andMask, row, static_cast<unsigned>(~mask & 0xFFFF));
        putRow(masks.xorMask, row, static_cast<unsigned>(picture ^ mask));
    }
}

void swapWords(Cursor &cursor)
{
    for (int row = 0; row < side; ++row) {
        cursor.data[row] = static_cast<SInt16>(swapped(static_cast<UInt16>(cursor.data[row])));
        cursor.mask[row] = static_cast<SInt16>(swapped(static_cast<UInt16>(cursor.mask[row])));
    }
}

// The resources whose words stand high byte first already: their cursor was made once, and has ended since.
std::vector<Handle> swappedResources;

bool isSwapped(Handle resource)
{
    return std::find(swappedResources.begin(), swappedResources.end(), resource) != swappedResources.end();
}

// False when memory is short.
bool makeRoom()
{
    try {
        swappedResources.reserve(swappedResources.size() + 1);
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }
}

} // namespace

HCURSOR MTBX_CreateResourceCursor(Handle resource)
{
    Cursor cursor;
    // Making the masks may make the host purge the resource.
    if (!makeMasks() || !makeRoom() || GetHandleSize(resource) < static_cast<Size>(sizeof cursor))
        return nullptr;
    memcpy(&cursor, *resource, sizeof cursor);
    bool wasSwapped = isSwapped(resource);
    if (wasSwapped)
        swapWords(cursor);
    convert(cursor);
    HCURSOR native = CreateCursor(hExeInst, cursor.hotSpot.h, cursor.hotSpot.v, masks.width, masks.height, masks.andMask,
                                  masks.xorMask);
    if (native && !wasSwapped) {
        swapWords(cursor);
        memcpy(*resource, &cursor, sizeof cursor);
        swappedResources.push_back(resource);
    }
    return native;
}

void MTBX_ForgetCursorResource(Handle resource)
{
    std::erase(swappedResources, resource);
}

void MTBX_FreeCursorMasks()
{
    if (masks.andMask)
        DisposePtr(reinterpret_cast<Ptr>(masks.andMask));
    if (masks.xorMask)
        DisposePtr(reinterpret_cast<Ptr>(masks.xorMask));
    masks = {};
}
