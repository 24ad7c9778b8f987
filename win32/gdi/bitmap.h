// The object behind an HBITMAP: a device bitmap or a DIB section.
#pragma once

#include "gdi_object.h"
#include "surface.h"

#include <memory>

namespace win32::gdi {

class DeviceContext;
struct Dib;

// Zeroed memory for the pixels of a bitmap. Large blocks come from the system and are not touched before
// they are drawn on.
class PixelMemory {
public:
    PixelMemory() = default;
    ~PixelMemory();
    PixelMemory(const PixelMemory &) = delete;
    PixelMemory &operator=(const PixelMemory &) = delete;

    // False with ERROR_NOT_ENOUGH_MEMORY. To be called once.
    bool allocate(size_t byteCount);
    uint8_t *data() const { return data_; }
    size_t size() const { return size_; }

private:
    uint8_t *block_ = nullptr;
    uint8_t *data_ = nullptr; // within the block
    size_t size_ = 0;
    size_t blockSize_ = 0;
};

class Bitmap final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Bitmap;

    Bitmap() : Object(objectType) {}

    int describe(int size, void *buffer) const override;

    // Bytes of a row and of all rows as GetBitmapBits has them.
    int64_t publishedStride() const;
    int64_t publishedSize() const { return publishedStride() * surface.height; }
    // Of a DIB section, in memory order.
    uint8_t *firstByte() const { return memory.data(); }

    PixelMemory memory;
    Surface surface;
    std::unique_ptr<ColorTable> colors; // of an indexed DIB section
    bool isDibSection = false;
    bool isBottomUp = false;
    BITMAPINFOHEADER header{}; // of a DIB section, complete, with a positive height
    DWORD masks[3]{};          // of a DIB section with BI_BITFIELDS
    // The context that has it: a bitmap is in one only.
    DeviceContext *context = nullptr;
};

// The one-by-one monochrome bitmap that every new memory context has.
Bitmap *defaultBitmap();

// New bitmaps with a handle; null with the last error when they cannot be. Pixels are 0.
Bitmap *createDeviceBitmap(int64_t width, int64_t height, const PixelFormat &format);
Bitmap *createDibSection(const Dib &dib);
// The picture of a packed DIB in a block of the given size: monochrome when it is black and white, otherwise
// in the screen's format.
HBITMAP createFromPackedDib(const void *packed, int64_t size);

// The format of device bitmaps of a depth, and their colours when it is indexed.
PixelFormat deviceFormat(int bitsPerPixel);
const ColorTable *deviceColors(const PixelFormat &format);

} // namespace win32::gdi
