// Row sizes: in the field while they fit, else in a block behind pmReserved.
#include "RowBytes_internal.h"

#include <mtbx/MacMemory.h>

namespace {

enum { pixMapMark = 0x8000, sizeBits = 0x3FFF, sizeIsElsewhere = 0x3F3F, firstLongSize = 16383 };

struct RowBytesExtension {
    UInt32 size;
    UInt32 reserved[6];
    UInt32 rowBytes;
};
static_assert(sizeof(RowBytesExtension) == 32);

RowBytesExtension &extensionOf(const PixMap &map)
{
    return *reinterpret_cast<RowBytesExtension *>(*map.pmReserved);
}

bool keepInExtension(PixMap &map, UInt32 rowBytes)
{
    if (!map.pmReserved)
        map.pmReserved = NewHandleClear(sizeof(RowBytesExtension));
    if (!map.pmReserved)
        return false;
    extensionOf(map).size = sizeof(RowBytesExtension);
    extensionOf(map).rowBytes = rowBytes;
    return true;
}

void dropExtension(PixMap &map)
{
    if (map.pmReserved)
        DisposeHandle(map.pmReserved);
    map.pmReserved = nullptr;
}

} // namespace

SInt32 rowBytesOf(const PixMap &map)
{
    return map.pmReserved ? static_cast<SInt32>(extensionOf(map).rowBytes) : map.rowBytes & sizeBits;
}

bool setRowBytes(PixMap &map, UInt32 rowBytes)
{
    bool isLong = rowBytes >= firstLongSize;
    if (isLong && !keepInExtension(map, rowBytes))
        return false;
    if (!isLong)
        dropExtension(map);
    map.rowBytes = static_cast<SInt16>(pixMapMark | (isLong ? UInt32{sizeIsElsewhere} : rowBytes));
    return true;
}

SInt32 GetPixRowBytes(PixMapHandle pixMap)
{
    return rowBytesOf(**pixMap);
}
