// The object behind an HBITMAP: a device bitmap or a DIB section.
#pragma once

#include "gdi_object.h"
#include "surface.h"

#include <memory>

namespace win32::gdi {

class DeviceContext;

class Bitmap final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Bitmap;

    Bitmap() : Object(objectType) {}
    ~Bitmap() override;

    int describe(int size, void *buffer) const override;

    Surface surface;
    std::unique_ptr<ColorTable> colors; // of an indexed DIB section, and of an indexed bitmap that has its own
    bool isDibSection = false;
    bool isBottomUp = false;
    BITMAPINFOHEADER header{}; // of a DIB section, complete
    DWORD masks[3]{};          // of a DIB section with BI_BITFIELDS
    // The context that has it: a bitmap is in one only.
    DeviceContext *context = nullptr;
};

// The one-by-one monochrome bitmap that every new memory context has.
Bitmap *defaultBitmap();

} // namespace win32::gdi
