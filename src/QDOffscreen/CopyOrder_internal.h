// Pixels in another order than GDI believes, around a copy.
#pragma once

#include "CopyPaths_internal.h"
#include "PixelFormats_internal.h"
#include "PixelRows_internal.h"

// While the object lives, source and destination have their 32-bit pixels in the same order, as far as the
// copy touches them.
class CopyOrder {
public:
    explicit CopyOrder(const Copy &copy);
    ~CopyOrder();
    CopyOrder(const CopyOrder &) = delete;
    CopyOrder &operator=(const CopyOrder &) = delete;

private:
    struct Change {
        PixMap *map; // null for none
        SInt32 format;
        ChannelMasks masks;
    };
    static Change changeFor(const Copy &copy);
    void reverseArea() const;

    bool isReversible(const ChannelMasks &masks);

    PixMap *map_;
    PixelRows rows_;
    RECT area_;
    SInt32 formerFormat_;
    ChannelMasks formerMasks_;
};
