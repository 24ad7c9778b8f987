// Row sizes of PixMaps.
#include "RowBytes_internal.h"

#include <mtbx/MacMemory.h>

namespace {

constexpr SInt32 firstExtended = 16383;
constexpr SInt16 rowBytesBits = 0x3FFF;
// What the field holds beside an extension.
constexpr SInt16 extendedMark = 0x3F3F;

void setField(PixMap &pixMap, SInt32 rowBytes)
{
    pixMap.rowBytes = static_cast<SInt16>((pixMap.rowBytes & ~rowBytesBits) | rowBytes);
}

} // namespace

bool MTBX_SetRowBytes(PixMapHandle pixMap, SInt32 rowBytes)
{
    if (rowBytes < firstExtended) {
        if ((*pixMap)->pmReserved)
            DisposeHandle((*pixMap)->pmReserved);
        (*pixMap)->pmReserved = nullptr;
        setField(**pixMap, rowBytes);
        return true;
    }
    if (!(*pixMap)->pmReserved) {
        Handle extension = NewHandleClear(sizeof(RowBytesExtension));
        if (!extension)
            return false;
        (*pixMap)->pmReserved = extension;
    }
    auto &extension = *reinterpret_cast<RowBytesExtension *>(*(*pixMap)->pmReserved);
    extension.size = sizeof extension;
    extension.rowBytes = static_cast<UInt32>(rowBytes);
    setField(**pixMap, extendedMark);
    return true;
}
