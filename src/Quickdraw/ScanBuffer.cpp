// The buffer of BitMapToRegion between calls and during one.
#include "ScanBuffer.h"

#include <mtbx/MacMemory.h>

#include <utility>

namespace {

Handle scanBuffer = nullptr;
SInt64 scanCapacity = 0;

} // namespace

ScanBuffer::ScanBuffer() : handle_(std::exchange(scanBuffer, nullptr)), capacity_(std::exchange(scanCapacity, 0))
{
    if (handle_)
        HLock(handle_);
}

ScanBuffer::~ScanBuffer()
{
    MTBX_ReleaseScanBuffer();
    if (!handle_)
        return;
    HUnlock(handle_);
    HPurge(handle_);
    scanBuffer = handle_;
    scanCapacity = capacity_;
}

bool ScanBuffer::isTooSmallFor(SInt64 rectangleCount) const
{
    return !handle_ || !*handle_ || capacity_ <= rectangleCount;
}

bool ScanBuffer::growFor(SInt64 rectangleCount)
{
    constexpr SInt64 smallest = 1024, headerSize = 32, rectangleSize = 16;
    SInt64 capacity = capacity_ == 0 ? smallest : capacity_;
    while (capacity <= rectangleCount)
        capacity *= 2;
    dispose();
    SInt64 byteCount = headerSize + capacity * rectangleSize;
    if (byteCount > INT32_MAX)
        return false;
    handle_ = NewHandle(static_cast<Size>(byteCount));
    if (!handle_)
        return false;
    HLock(handle_);
    capacity_ = capacity;
    return true;
}

void ScanBuffer::dispose()
{
    DisposeHandle(handle_);
    handle_ = nullptr;
    capacity_ = 0;
}

void MTBX_ReleaseScanBuffer()
{
    DisposeHandle(std::exchange(scanBuffer, nullptr));
    scanCapacity = 0;
}
