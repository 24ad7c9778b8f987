#include "region.h"

#include <climits>
#include <cstdlib>
#include <utility>

namespace win32::gdi {
namespace {

// A region that takes the place of another only when all went well.
class Replacement {
public:
    explicit Replacement(pixman_region32_t &target) : target_(target) { pixman_region32_init(&pixels_); }
    ~Replacement() { pixman_region32_fini(&pixels_); }
    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;

    pixman_region32_t *get() { return &pixels_; }

    // Room for boxes at once: pixman by itself makes it in small steps. It does not free a size of 0.
    bool reserve(size_t count)
    {
        auto *data = static_cast<pixman_region32_data_t *>(malloc(sizeof *pixels_.data + count * sizeof(Box)));
        if (!data)
            return false;
        *data = {static_cast<long>(count), 0};
        pixels_.data = data;
        return true;
    }

    bool takePlace(bool isComplete)
    {
        if (isComplete)
            std::swap(target_, pixels_);
        return isComplete;
    }

private:
    pixman_region32_t &target_;
    pixman_region32_t pixels_;
};

size_t boxCount(const pixman_region32_t &region)
{
    return region.data ? static_cast<size_t>(region.data->numRects) : 1;
}

bool exclusiveOr(pixman_region32_t *result, const pixman_region32_t &first, const pixman_region32_t &second)
{
    pixman_region32_t onlySecond;
    pixman_region32_init(&onlySecond);
    bool isDone = pixman_region32_subtract(result, &first, &second)
                  && pixman_region32_subtract(&onlySecond, &second, &first)
                  && pixman_region32_union(result, result, &onlySecond);
    pixman_region32_fini(&onlySecond);
    return isDone;
}

} // namespace

int Region::describe(int size, void *) const
{
    (void)size;
    return 0;
}

int complexityOf(const pixman_region32_t &region)
{
    if (!region.data)
        return SIMPLEREGION;
    return region.data->numRects ? COMPLEXREGION : NULLREGION;
}

bool combine(pixman_region32_t &result, const pixman_region32_t &first, const pixman_region32_t &second, int mode)
{
    Replacement replacement(result);
    size_t count = boxCount(first) + boxCount(second);
    bool isComplex = first.data || second.data;
    if (isComplex && count > 0 && !replacement.reserve(2 * count))
        return false;
    pixman_region32_t *made = replacement.get();
    switch (mode) {
    case RGN_AND: return replacement.takePlace(pixman_region32_intersect(made, &first, &second));
    case RGN_OR: return replacement.takePlace(pixman_region32_union(made, &first, &second));
    case RGN_XOR: return replacement.takePlace(exclusiveOr(made, first, second));
    case RGN_DIFF: return replacement.takePlace(pixman_region32_subtract(made, &first, &second));
    case RGN_COPY: return replacement.takePlace(pixman_region32_copy(made, &first));
    default: return false;
    }
}

bool translate(pixman_region32_t &region, int x, int y)
{
    auto fits = [](int low, int high, int by) { return int64_t{low} + by >= INT_MIN && int64_t{high} + by <= INT_MAX; };
    const Box &extents = region.extents;
    if (!fits(extents.x1, extents.x2, x) || !fits(extents.y1, extents.y2, y))
        return false;
    pixman_region32_translate(&region, x, y);
    return true;
}

} // namespace win32::gdi
