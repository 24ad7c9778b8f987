// Bitmaps combined as a whole, in blocks of memory.
#include "WholeBitmaps_internal.h"

#include <mtbx/MacMemory.h>

namespace {

class Bits {
public:
    explicit Bits(HBITMAP bitmap) : size_(sizeOf(bitmap))
    {
        if (size_ <= 0)
            return;
        bytes_ = NewPtr(size_);
        isRead_ = bytes_ && GetBitmapBits(bitmap, size_, bytes_) != 0;
    }
    ~Bits()
    {
        if (bytes_)
            DisposePtr(bytes_);
    }
    Bits(const Bits &) = delete;
    Bits &operator=(const Bits &) = delete;

    static LONG sizeOf(HBITMAP bitmap)
    {
        BITMAP description = {};
        return bitmap && GetObjectA(bitmap, sizeof description, &description)
                   ? description.bmHeight * description.bmWidthBytes
                   : 0;
    }
    bool isRead() const { return isRead_; }
    Ptr bytes() const { return bytes_; }
    LONG size() const { return size_; }

private:
    LONG size_;
    Ptr bytes_ = nullptr;
    bool isRead_ = false;
};

} // namespace

bool xorWholeBitmaps(HBITMAP source, HBITMAP destination)
{
    if (Bits::sizeOf(source) != Bits::sizeOf(destination))
        return false;
    Bits from(source), to(destination);
    if (!from.isRead() || !to.isRead())
        return false;
    for (LONG i = 0; i < to.size(); ++i)
        to.bytes()[i] = static_cast<char>(to.bytes()[i] ^ from.bytes()[i]);
    return SetBitmapBits(destination, static_cast<DWORD>(to.size()), to.bytes()) != 0;
}
