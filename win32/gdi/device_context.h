// The object behind an HDC: the surface it draws on, the objects and settings that are selected, and what
// follows from them.
#pragma once

#include "bitmap.h"
#include "brush.h"
#include "clip_boxes.h"
#include "font.h"
#include "paint.h"
#include "palette.h"
#include "pen.h"
#include "region.h"

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace win32::gdi {

class RealizedFont;

// A pixman region that ends with its scope.
class RegionValue {
public:
    RegionValue() { pixman_region32_init(&pixels); }
    explicit RegionValue(Box box) : RegionValue()
    {
        if (!isEmpty(box))
            pixman_region32_init_with_extents(&pixels, &box);
    }
    RegionValue(const RegionValue &other) : RegionValue() { copyFrom(other.pixels); }
    RegionValue &operator=(const RegionValue &other)
    {
        copyFrom(other.pixels);
        return *this;
    }
    ~RegionValue() { pixman_region32_fini(&pixels); }

    // Throws bad_alloc when memory is short.
    void copyFrom(const pixman_region32_t &region);

    pixman_region32_t pixels;
};

// Selected objects hold their selection while they stand here.
template <class T> class Selected {
public:
    Selected() = default;
    explicit Selected(T *object) : object_(object)
    {
        if (object_)
            object_->select();
    }
    Selected(const Selected &other) : Selected(other.object_) {}
    Selected &operator=(const Selected &other)
    {
        set(other.object_);
        return *this;
    }
    ~Selected() { set(nullptr); }

    void set(T *object)
    {
        T *old = object_;
        if (object)
            object->select();
        object_ = object;
        if (old)
            old->deselect();
    }
    T *operator->() const { return object_; }
    T &operator*() const { return *object_; }
    T *get() const { return object_; }

private:
    T *object_ = nullptr;
};

// What SaveDC keeps.
struct ContextState {
    ContextState(); // with the stock objects

    Selected<Pen> pen;
    Selected<Brush> brush;
    Selected<Font> font;
    Selected<Palette> palette;
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backgroundColor = RGB(255, 255, 255);
    COLORREF dcBrushColor = RGB(255, 255, 255);
    COLORREF dcPenColor = RGB(0, 0, 0);
    int backgroundMode = OPAQUE;
    int rop2 = R2_COPYPEN;
    int polyFillMode = ALTERNATE;
    int stretchMode = BLACKONWHITE;
    UINT textAlign = 0;
    int characterExtra = 0;
    int breakExtra = 0; // for breakCount blanks together
    int breakCount = 0;
    float miterLimit = 10.0f;
    POINT brushOrigin{0, 0};
    POINT position{0, 0}; // logical
    int mapMode = MM_TEXT;
    POINT windowOrigin{0, 0};
    POINT viewportOrigin{0, 0};
    SIZE windowExtent{1, 1};
    SIZE viewportExtent{1, 1};
    bool isClipped = false;
    RegionValue clip; // device coordinates; means something only when isClipped
};

// A figure of a path, in device coordinates with 4 fractional bits.
struct PathPoint {
    int x;
    int y;
    uint8_t type; // PT_MOVETO, PT_LINETO or PT_BEZIERTO, with PT_CLOSEFIGURE
};

struct Path {
    bool isOpen = false;
    bool isComplete = false;
    bool isFigureOpen = false; // the next line goes on from the last point
    std::vector<PathPoint> points;
};

// Goes up when windows move: contexts on the screen find their place anew.
inline std::atomic<uint32_t> screenLayout{1};

// Where a context of a window lies on the screen, and what of the window can be seen.
class ScreenPlace {
public:
    // Sets origin and visible region.
    virtual void locate(class DeviceContext &context) = 0;
    // Takes the context back, as its program wants to be rid of it.
    virtual void release(class DeviceContext &context) = 0;

protected:
    ~ScreenPlace() = default;
};

class DeviceContext final : public Object {
public:
    static constexpr ObjectType objectType = ObjectType::Context;

    DeviceContext();
    ~DeviceContext() override;

    int describe(int, void *) const override { return 0; }
    DWORD publishedType() const override { return isMemory ? OBJ_MEMDC : OBJ_DC; }

    // Where drawing lands. A memory context draws on its bitmap; a window's on the screen, with the window's
    // origin, within what is visible of the window.
    Surface surface;
    bool isMemory = false;
    Bitmap *bitmap = nullptr; // of a memory context
    HWND window = nullptr;
    ScreenPlace *place = nullptr;       // of a window's context
    uint32_t layout = 0;                // the screen's layout for which the place was found
    POINT origin{0, 0};                 // of device coordinates, on the surface
    RegionValue visible;                // what may be drawn on, in surface coordinates
    bool isPaletteInBackground = false; // as SelectPalette was told

    ContextState state;
    std::vector<std::unique_ptr<ContextState>> saved;
    Path path;

    // State and settings as a fresh context has them.
    void reset();

    // Makes a memory context draw on a bitmap that is in no other context.
    void setBitmap(Bitmap &next);

    // To be called after a change of clip, visible region, origin or surface.
    void clipChanged() { isClipCurrent_ = false; }
    // To be called after a change of a mapping.
    void mappingChanged();

    // The clip and the visible region together, in surface coordinates.
    const ClipBoxes &clipBoxes()
    {
        if (!isClipCurrent_)
            updateClip();
        return clipBoxes_;
    }

    // Whether logical and device coordinates differ by a translation only, the common case; then by this.
    bool isTranslation() const { return isTranslation_; }
    POINT toDevice(POINT logical) const
    {
        return isTranslation_ ? POINT{wrappingSum(logical.x, offset_.x), wrappingSum(logical.y, offset_.y)}
                              : scaled(logical);
    }
    POINT toLogical(POINT device) const;
    // A box of logical coordinates on the surface; its sides come in order.
    Box toSurface(int left, int top, int right, int bottom) const;
    POINT toSurface(POINT logical) const
    {
        POINT device = toDevice(logical);
        return {wrappingSum(device.x, origin.x), wrappingSum(device.y, origin.y)};
    }
    // A logical width or height in device units, at least 0.
    int deviceWidth(int logical) const;
    int deviceHeight(int logical) const;

    // A colour argument as a plain RGB value: palette indices are looked up.
    COLORREF plainColor(COLORREF color) const;
    BrushColors brushColors(const Brush &brush) const;

    // What the selected brush and pen lay on the surface. Tiles are kept until something changes.
    Paint brushPaint() { return paintOf(*state.brush, brushTile_); }
    Paint penPaint();
    // Of a brush that is not selected, for one drawing: the tile is made in the scratch.
    Paint paintOf(const Brush &brush, Tile &scratch) const;

    // The selected font at the size that the mapping gives it, valid until either changes. Throws bad_alloc.
    RealizedFont &realizedFont()
    {
        if (state.font->stamp != realizedStamp_ || realizedGeneration_ != fontGeneration())
            realizeFont();
        return *realized_;
    }

private:
    struct CachedTile {
        Tile tile;
        uint32_t brushStamp = 0; // 0: holds nothing
        PixelFormat format;
        uint32_t tableStamp = 0;
        BrushColors colors;
    };

    static void letGo(Bitmap &old);
    double scaleX() const;
    double scaleY() const;
    POINT scaled(POINT logical) const;
    void updateClip();
    void joinClipBoxes();

    static uint32_t fontGeneration();
    void realizeFont();
    Paint paintOf(const Brush &brush, CachedTile &cached);
    Paint paintOf(const Tile &tile) const;
    bool solidPaintOf(const Brush &brush, Paint &paint) const;
    COLORREF ownColorOf(const Brush &brush) const;

    bool isClipCurrent_ = false;
    ClipBoxes clipBoxes_;
    RegionValue clipOnSurface_;
    std::vector<Box> tallBoxes_;
    bool isTranslation_ = true;
    POINT offset_{0, 0};
    CachedTile brushTile_;
    CachedTile penTile_;
    std::shared_ptr<RealizedFont> realized_;
    uint32_t realizedStamp_ = 0; // 0: none
    uint32_t realizedGeneration_ = 0;
};

// Null with ERROR_INVALID_HANDLE for what is no context. A window's context is brought to where the window is.
inline DeviceContext *findContext(HDC context)
{
    auto dc = find<DeviceContext>(context);
    if (dc && dc->place) {
        uint32_t layout = screenLayout.load(std::memory_order_relaxed);
        if (dc->layout != layout) {
            dc->layout = layout;
            dc->place->locate(*dc);
        }
    }
    return dc;
}

// Where DIB_PAL_COLORS are looked up: needed for them only, so null without an error for other usages.
inline const Palette *paletteFor(HDC context, UINT usage)
{
    DeviceContext *dc = usage == DIB_PAL_COLORS ? findContext(context) : nullptr;
    return dc ? dc->state.palette.get() : nullptr;
}

// A context on the whole screen, or on what a place says.
HDC createScreenContext(HWND window, ScreenPlace *place);

} // namespace win32::gdi
