// Random copies between images of all kinds, and what they are to come to, pixel by pixel.
#pragma once

#include "Worlds.h"

#include <optional>
#include <ostream>
#include <set>

namespace copies {

inline int between(std::mt19937 &random, int low, int high)
{
    return low + int(random() % unsigned(high - low + 1));
}

// The same colours for all worlds of a depth: black, white at the end, and none near to these.
inline std::vector<RGBQUAD> colorTable(int depth)
{
    std::vector<RGBQUAD> table(1u << depth);
    std::mt19937 random(5);
    for (RGBQUAD &entry : table)
        entry = {BYTE(between(random, 40, 215)), BYTE(between(random, 40, 215)), BYTE(between(random, 40, 215)), 0};
    table[0] = {0, 0, 0, 0};
    table.back() = {255, 255, 255, 0};
    return table;
}

// Where the settings let GDI know of the order of masks.
inline bool gdiKnowsMasks = false;

enum class Kind { PlainBitmap, PixMap, Port, Window };

// Pixels with coordinates of their own; colours are 0x00RRGGBB, in native order.
class Image {
public:
    virtual ~Image() = default;
    virtual const BitMap *bits() = 0;
    virtual int depth() = 0;
    virtual std::vector<UInt32> pixels() = 0;
    virtual void setPixels(const std::vector<UInt32> &pixels) = 0;
    virtual HDC context() { return nullptr; }
    virtual bool isReversed() { return false; }

    int width, height;
    Point corner{}; // the coordinates of the first pixel
    Kind kind;

    Rect rect(int x, int y, int w, int h) const
    {
        return ltrb(corner.h + x, corner.v + y, corner.h + x + w, corner.v + y + h);
    }
};

class WorldImage : public Image {
public:
    WorldImage(SInt16 worldDepth, int w, int h, Kind as) : world(worldDepth, ltrb(0, 0, w, h))
    {
        width = w;
        height = h;
        kind = as;
        if (worldDepth == 4 || worldDepth == 8)
            SetDIBColorTable(world.context(), 0, 1u << worldDepth, colorTable(worldDepth).data());
    }

    const BitMap *bits() override { return kind == Kind::Port ? world.asPort() : world.asPixMap(); }
    int depth() override { return world.depth(); }
    std::vector<UInt32> pixels() override { return world.pixels(); }
    void setPixels(const std::vector<UInt32> &pixels) override
    {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                world.setPixel(x, y, pixels[size_t(y * width + x)]);
    }
    HDC context() override { return world.context(); }
    bool isReversed() override { return world.map().pmFormat == kPixelFormatMasks; }

    void moveOrigin(int h, int v)
    {
        GrafPtr former = qd.thePort;
        MacSetPort(world.port());
        SetOrigin(SInt16(h), SInt16(v));
        MacSetPort(former);
        corner = {SInt16(v), SInt16(h)};
    }
    // Only PixMaps are seen in these coordinates.
    void moveBounds(int h, int v)
    {
        MacOffsetRect(&world.map().bounds, SInt16(h), SInt16(v));
        if (kind == Kind::PixMap)
            corner = {SInt16(corner.v + v), SInt16(corner.h + h)};
    }

    World world;
};

// Rows may be longer than the pixels need.
class PlainImage : public Image {
public:
    PlainImage(int w, int h, int extraBytes, Point topLeft)
    {
        width = w;
        height = h;
        kind = Kind::PlainBitmap;
        corner = topLeft;
        bitmap.rowBytes = SInt16((w + 7) / 8 + extraBytes);
        memory.resize(size_t(bitmap.rowBytes * h), 0x5A);
        bitmap.baseAddr = reinterpret_cast<Ptr>(memory.data());
        bitmap.bounds = rect(0, 0, w, h);
    }

    const BitMap *bits() override { return &bitmap; }
    int depth() override { return 1; }
    std::vector<UInt32> pixels() override
    {
        std::vector<UInt32> result;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                result.push_back(byteOf(x, y) >> (7 - x % 8) & 1);
        return result;
    }
    void setPixels(const std::vector<UInt32> &pixels) override
    {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                UInt8 bit = UInt8(0x80 >> x % 8);
                byteOf(x, y) = UInt8((byteOf(x, y) & ~bit) | (pixels[size_t(y * width + x)] ? bit : 0));
            }
    }

    BitMap bitmap{};
    std::vector<UInt8> memory;

private:
    UInt8 &byteOf(int x, int y) { return memory[size_t(y * bitmap.rowBytes + x / 8)]; }
};

// The current port's window; its pixels are moved through a section.
class WindowImage : public Image {
public:
    explicit WindowImage(PortWindow &shown) : window(shown), copy(32, shown.port()->portRect)
    {
        width = copy.width();
        height = copy.height();
        kind = Kind::Window;
    }

    const BitMap *bits() override { return GetPortBitMapForCopyBits(window.port()); }
    int depth() override { return 32; }
    std::vector<UInt32> pixels() override
    {
        BitBlt(copy.context(), 0, 0, width, height, window.context(), corner.h, corner.v, SRCCOPY);
        std::vector<UInt32> result = copy.pixels();
        for (UInt32 &pixel : result)
            pixel = inCopy(pixel) & 0xFFFFFF;
        return result;
    }
    void setPixels(const std::vector<UInt32> &pixels) override
    {
        for (size_t i = 0; i < pixels.size(); ++i)
            copy.setPixel(int(i) % width, int(i) / width, inCopy(pixels[i]));
        BitBlt(window.context(), corner.h, corner.v, width, height, copy.context(), 0, 0, SRCCOPY);
    }
    HDC context() override { return window.context(); }
    void moveOrigin(int h, int v)
    {
        SetOrigin(SInt16(h), SInt16(v));
        corner = {SInt16(v), SInt16(h)};
    }

    PortWindow &window;
    World copy;

private:
    static UInt32 inCopy(UInt32 pixel) { return gdiKnowsMasks ? __builtin_bswap32(pixel) : pixel; }
};

// 0x00RRGGBB of a pixel as GDI sees it.
inline UInt32 colorOf(int depth, UInt32 pixel)
{
    static const std::vector<RGBQUAD> tables[] = {colorTable(4), colorTable(8)};
    auto fromTable = [pixel](const std::vector<RGBQUAD> &table) {
        return UInt32{table[pixel].rgbRed} << 16 | UInt32{table[pixel].rgbGreen} << 8 | table[pixel].rgbBlue;
    };
    auto wide = [](UInt32 five) { return five << 3 | five >> 2; };
    switch (depth) {
    case 1: return pixel ? 0xFFFFFF : 0;
    case 4: return fromTable(tables[0]);
    case 8: return fromTable(tables[1]);
    case 16: return wide(pixel >> 10 & 31) << 16 | wide(pixel >> 5 & 31) << 8 | wide(pixel & 31);
    default: return pixel & 0xFFFFFF;
    }
}

// For depths up to 8 of black and white only.
inline UInt32 pixelOf(int depth, UInt32 color)
{
    switch (depth) {
    case 1: return color != 0;
    case 4: return color ? 15 : 0;
    case 8: return color ? 255 : 0;
    case 16: return (color >> 9 & 0x7C00) | (color >> 6 & 0x3E0) | (color >> 3 & 0x1F);
    default: return color;
    }
}

inline UInt32 combined(SInt16 mode, UInt32 source, UInt32 destination)
{
    switch (mode) {
    case 1:
    case 9: return source | destination;
    case 2:
    case 34: return source ^ destination;
    case 3: return ~source & destination;
    case 5: return ~source | destination;
    case 7: return source & destination;
    case 27: return ~0u;
    default: return source;
    }
}

// The source positions that may stand for a position of a scaled axis.
inline std::set<int> sourcesOf(int i, int size, int sourceSize)
{
    if (size >= sourceSize)
        return {((2 * i + 1) * sourceSize - 1) / (2 * size)};
    std::set<int> sources;
    for (int j = 0; j < sourceSize; ++j)
        if (((2 * j + 1) * size - 1) / (2 * sourceSize) == i)
            sources.insert(j);
    return sources;
}

struct Scene {
    int sourceX, sourceY, sourceWidth, sourceHeight;
    int x, y, width, height;
    SInt16 mode;
    std::vector<bool> isInMask; // empty for none
};

inline std::ostream &operator<<(std::ostream &out, const Scene &s)
{
    return out << "from " << s.sourceX << "," << s.sourceY << " size " << s.sourceWidth << "," << s.sourceHeight
               << " to " << s.x << "," << s.y << " size " << s.width << "," << s.height << " mode " << s.mode
               << (s.isInMask.empty() ? "" : " masked");
}

// What a pixel of the destination may become. Alpha takes part in plain copies of whole pixels only.
class SlowCopy {
public:
    SlowCopy(Image &source, Image &destination, const Scene &scene)
        : source_(source), destination_(destination), scene_(scene), sourcePixels_(source.pixels()),
          before_(destination.pixels())
    {
    }

    void check(const std::vector<UInt32> &after) const
    {
        for (int y = 0; y < destination_.height; ++y)
            for (int x = 0; x < destination_.width; ++x) {
                size_t place = size_t(y * destination_.width + x);
                std::set<UInt32> allowed = allowedAt(x, y);
                ASSERT_TRUE(allowed.count(after[place] & bits()))
                    << x << ", " << y << " became " << std::hex << (after[place] & bits()) << ", expected "
                    << *allowed.begin() << " of " << before_[place];
            }
    }

private:
    bool isStretched() const { return scene_.width != scene_.sourceWidth || scene_.height != scene_.sourceHeight; }
    // Sources of other depths do not know of reversed destinations.
    bool isSwapped() const { return destination_.isReversed() && (gdiKnowsMasks || source_.depth() == 32); }
    UInt32 bits() const
    {
        bool hasAlpha = !gdiKnowsMasks && source_.depth() == 32 && destination_.depth() == 32
                        && destination_.kind != Kind::Window && combined(scene_.mode, 1, 0) == 1
                        && combined(scene_.mode, 0, 1) == 0;
        switch (destination_.depth()) {
        case 1: return 1;
        case 4: return 0xF;
        case 8: return 0xFF;
        case 16: return 0x7FFF;
        default: return hasAlpha ? ~0u : isSwapped() ? 0xFFFFFF00 : 0xFFFFFF;
        }
    }

    std::set<UInt32> allowedAt(int x, int y) const
    {
        size_t place = size_t(y * destination_.width + x);
        int i = x - scene_.x, k = y - scene_.y;
        std::set<UInt32> allowed;
        bool isMasked = !scene_.isInMask.empty() && !scene_.isInMask[place];
        if (!isMasked && i >= 0 && i < scene_.width && k >= 0 && k < scene_.height)
            for (int row : sourcesOf(k, scene_.height, scene_.sourceHeight))
                for (int column : sourcesOf(i, scene_.width, scene_.sourceWidth))
                    addFrom(scene_.sourceX + column, scene_.sourceY + row, before_[place], allowed);
        if (allowed.empty())
            allowed.insert(before_[place] & bits());
        return allowed;
    }

    void addFrom(int x, int y, UInt32 before, std::set<UInt32> &allowed) const
    {
        // White needs no source.
        bool isInside = x >= 0 && x < source_.width && y >= 0 && y < source_.height;
        if (isInside)
            allowed.insert(combined(scene_.mode, converted(sourcePixels_[size_t(y * source_.width + x)]), before)
                           & bits());
    }

    UInt32 converted(UInt32 pixel) const
    {
        if (source_.isReversed())
            pixel = __builtin_bswap32(pixel);
        if (source_.depth() != destination_.depth())
            pixel = pixelOf(destination_.depth(), colorOf(source_.depth(), pixel));
        return isSwapped() ? __builtin_bswap32(pixel) : pixel;
    }

    Image &source_;
    Image &destination_;
    const Scene &scene_;
    std::vector<UInt32> sourcePixels_, before_;
};

inline std::vector<UInt32> randomPixels(const Image &image, int depth, std::mt19937 &random)
{
    std::vector<UInt32> pixels(size_t(image.width * image.height));
    for (UInt32 &pixel : pixels)
        pixel = UInt32(random()) & (depth == 32 ? ~0u : (1u << depth) - 1);
    return pixels;
}

// Conversion to a table is left to the layer's own tests: black and white are enough to see the place.
inline void fillRandom(Image &source, Image &destination, std::mt19937 &random)
{
    bool isPlain = destination.depth() <= 8 && source.depth() != destination.depth();
    std::vector<UInt32> pixels = randomPixels(source, source.depth(), random);
    for (UInt32 &pixel : pixels) {
        if (isPlain)
            pixel = pixel & 1 ? (1ull << source.depth()) - 1 : 0;
    }
    source.setPixels(pixels);
    destination.setPixels(randomPixels(destination, destination.depth(), random));
}

inline RgnHandle randomMask(Image &destination, std::mt19937 &random, std::vector<bool> &isInMask)
{
    RgnHandle mask = NewRgn(), part = NewRgn();
    isInMask.assign(size_t(destination.width * destination.height), false);
    for (int i = 0; i < 4; ++i) {
        int x = between(random, 0, destination.width - 2), y = between(random, 0, destination.height - 2);
        int w = between(random, 1, destination.width - x), h = between(random, 1, destination.height - y);
        Rect rect = destination.rect(x, y, w, h);
        RectRgn(part, &rect);
        MacUnionRgn(mask, part, mask);
        for (int row = y; row < y + h; ++row)
            std::fill_n(isInMask.begin() + row * destination.width + x, w, true);
    }
    DisposeRgn(part);
    return mask;
}

inline Scene randomScene(const Image &source, const Image &destination, std::mt19937 &random)
{
    Scene s{};
    s.sourceWidth = between(random, 1, source.width);
    s.sourceHeight = between(random, 1, source.height);
    bool isStretched = random() % 2;
    int reach = isStretched ? 0 : 3; // outside of the source
    s.sourceX = between(random, -reach, source.width - s.sourceWidth + reach);
    s.sourceY = between(random, -reach, source.height - s.sourceHeight + reach);
    if (random() % 3 == 0)
        s.sourceX = s.sourceY = 0; // the corner is what systems treat in ways of their own
    s.width = isStretched ? between(random, 1, destination.width) : s.sourceWidth;
    s.height = isStretched ? between(random, 1, destination.height) : s.sourceHeight;
    s.x = between(random, -3, destination.width - 2);
    s.y = between(random, -3, destination.height - 2);
    static const SInt16 modes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 26, 28, 32, 33, 34, 35, 36, 64, -1, -32768, 32767};
    s.mode = modes[random() % std::size(modes)];
    return s;
}

// What a copy leaves as it was in a context.
inline std::vector<uintptr_t> stateOf(HDC context)
{
    if (!context)
        return {};
    RECT box;
    GetClipBox(context, &box);
    POINT origin;
    GetWindowOrgEx(context, &origin);
    std::vector<uintptr_t> state{uintptr_t(box.left),
                                 uintptr_t(box.top),
                                 uintptr_t(box.right),
                                 uintptr_t(box.bottom),
                                 uintptr_t(origin.x),
                                 uintptr_t(origin.y),
                                 uintptr_t(GetStretchBltMode(context)),
                                 GetTextColor(context),
                                 GetBkColor(context),
                                 uintptr_t(GetROP2(context))};
    for (UINT type : {OBJ_BITMAP, OBJ_BRUSH, OBJ_PEN, OBJ_FONT})
        state.push_back(reinterpret_cast<uintptr_t>(GetCurrentObject(context, type)));
    return state;
}

// One copy, held against the slow one. The source, and both contexts, stay as they were.
inline void checkCopy(Image &source, Image &destination, std::mt19937 &random)
{
    fillRandom(source, destination, random);
    Scene scene = randomScene(source, destination, random);
    // The whole of both is taken then.
    if (source.depth() == 1 && destination.depth() == 1 && scene.mode == 34)
        scene.mode = 2;
    RgnHandle mask = random() % 2 ? randomMask(destination, random, scene.isInMask) : nullptr;
    SlowCopy slow(source, destination, scene);
    std::vector<UInt32> sourceBefore = source.pixels();
    auto sourceState = stateOf(source.context()), destinationState = stateOf(destination.context());
    Rect from = source.rect(scene.sourceX, scene.sourceY, scene.sourceWidth, scene.sourceHeight),
         to = destination.rect(scene.x, scene.y, scene.width, scene.height);
    CopyBits(source.bits(), destination.bits(), &from, &to, scene.mode, mask);
    if (mask)
        DisposeRgn(mask);
    SCOPED_TRACE(testing::Message() << "depth " << source.depth() << (source.isReversed() ? " reversed" : "")
                                    << " kind " << int(source.kind) << " to " << destination.depth()
                                    << (destination.isReversed() ? " reversed" : "") << " kind "
                                    << int(destination.kind) << " " << scene);
    ASSERT_NO_FATAL_FAILURE(slow.check(destination.pixels()));
    ASSERT_EQ(source.pixels(), sourceBefore);
    ASSERT_EQ(stateOf(source.context()), sourceState);
    ASSERT_EQ(stateOf(destination.context()), destinationState);
}

} // namespace copies
