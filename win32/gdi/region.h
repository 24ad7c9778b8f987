// The object behind an HRGN.
#pragma once

#include "box.h"
#include "gdi_object.h"

namespace win32::gdi {

class Region final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Region;

    explicit Region(const Box &box) : Object(objectType)
    {
        if (isEmpty(box))
            pixman_region32_init(&pixels);
        else
            pixman_region32_init_with_extents(&pixels, &box);
    }
    ~Region() override { pixman_region32_fini(&pixels); }

    int describe(int size, void *buffer) const override;

    pixman_region32_t pixels;
};

// NULLREGION, SIMPLEREGION or COMPLEXREGION.
int complexityOf(const pixman_region32_t &region);

// result = first mode second, with RGN_ codes; any of them may be the same. False when memory is short:
// then the result is as it was.
bool combine(pixman_region32_t &result, const pixman_region32_t &first, const pixman_region32_t &second, int mode);

// Moves a region; false, with the region as it was, when it would leave the range of 32-bit coordinates.
bool translate(pixman_region32_t &region, int x, int y);

} // namespace win32::gdi
