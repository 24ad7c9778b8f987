// The bytes of a PixMap's row, which may be more than its field holds.
#pragma once

#include <mtbx/Quickdraw.h>

// What pmReserved holds when rowBytes is too narrow.
struct RowBytesExtension {
    UInt32 size;
    UInt32 reserved[6];
    UInt32 rowBytes;
};

// Stores the bytes of a row and leaves the two flags of the field. False when memory for the extension is
// short; nothing has changed then.
bool MTBX_SetRowBytes(PixMapHandle pixMap, SInt32 rowBytes);

inline SInt32 rowBytesOf(const PixMap &pixMap)
{
    if (pixMap.pmReserved && *pixMap.pmReserved)
        return static_cast<SInt32>(reinterpret_cast<const RowBytesExtension *>(*pixMap.pmReserved)->rowBytes);
    return pixMap.rowBytes & 0x3FFF;
}
