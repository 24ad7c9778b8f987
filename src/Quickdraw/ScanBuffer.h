// The buffer in which BitMapToRegion builds its rectangles. It is kept between calls and grows only.
#pragma once

#include <mtbx/MacTypes.h>

// The buffer for the time of one call. Nobody else can reach it meanwhile: in a shortage the host's
// grow-zone function may scan another bitmap, or ask to release the buffer.
class ScanBuffer {
public:
    ScanBuffer();
    ~ScanBuffer();
    ScanBuffer(const ScanBuffer &) = delete;
    ScanBuffer &operator=(const ScanBuffer &) = delete;

    // A buffer that is exactly full counts as too small.
    bool isTooSmallFor(SInt64 rectangleCount) const;
    // In steps that double. False, without a buffer, when memory is short; it may run the host's
    // grow-zone function.
    bool growFor(SInt64 rectangleCount);
    Handle handle() const { return handle_; }

private:
    void dispose();

    Handle handle_;
    SInt64 capacity_; // in rectangles behind the header of a RGNDATA
};

// Frees what is kept.
void MTBX_ReleaseScanBuffer();
