// Pixels in another order than GDI believes, around a copy.
#pragma once

#include "CopyPaths_internal.h"

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
        const UInt32 *masks;
    };
    static Change changeFor(const Copy &copy);
    void reverseArea() const;

    PixMap *map_;
    RECT area_;
    SInt32 formerFormat_;
    UInt32 formerMasks_[4];
};
