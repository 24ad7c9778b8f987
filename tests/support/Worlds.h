// Offscreen worlds of tests, and their pixels read one by one.
#pragma once

#include "Graphics.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

class World {
public:
    World(SInt16 depth, const Rect &bounds)
    {
        EXPECT_EQ(NewGWorld(&world_, depth, &bounds, nullptr, nullptr, 0), noErr) << depth;
    }
    ~World() { DisposeGWorld(world_); }
    World(const World &) = delete;
    World &operator=(const World &) = delete;

    void update(SInt16 depth, const Rect &bounds)
    {
        EXPECT_EQ(UpdateGWorld(&world_, depth, &bounds, nullptr, nullptr, 0), GWorldFlags{noErr});
    }

    GWorldPtr port() { return world_; }
    GWorldPtr *address() { return &world_; }
    PixMap &map() { return **GetGWorldPixMap(world_); }
    HDC context() { return map().pmDC; }
    int width() { return map().pmWidth; }
    int height() { return map().pmHeight; }
    int depth() { return map().pixelSize; }
    // For an argument.
    const Rect *rect(const Rect &value)
    {
        rect_ = value;
        return &rect_;
    }
    // As CopyBits takes it, as a port and by its PixMap.
    const BitMap *asPort() { return GetPortBitMapForCopyBits(world_); }
    const BitMap *asPixMap() { return reinterpret_cast<const BitMap *>(&map()); }

    // The bits at a place in the bitmap, and how GDI sees them.
    UInt32 pixel(int x, int y)
    {
        GdiFlush();
        const UInt8 *row = rowAt(y);
        int bit = x * depth();
        if (depth() < 8)
            return UInt32(row[bit / 8] >> (8 - depth() - bit % 8) & ((1 << depth()) - 1));
        UInt32 value = 0;
        memcpy(&value, row + bit / 8, size_t(depth() / 8));
        return value;
    }
    void setPixel(int x, int y, UInt32 value)
    {
        UInt8 *row = rowAt(y);
        int bit = x * depth();
        if (depth() >= 8) {
            memcpy(row + bit / 8, &value, size_t(depth() / 8));
            return;
        }
        int shift = 8 - depth() - bit % 8;
        int mask = ((1 << depth()) - 1) << shift;
        row[bit / 8] = UInt8((row[bit / 8] & ~mask) | (int(value) << shift & mask));
    }
    COLORREF color(int x, int y)
    {
        POINT origin = {};
        GetWindowOrgEx(context(), &origin);
        return GetPixel(context(), x + origin.x, y + origin.y);
    }

    // All of them, row by row.
    std::vector<UInt32> pixels()
    {
        std::vector<UInt32> result;
        for (int y = 0; y < height(); ++y)
            for (int x = 0; x < width(); ++x)
                result.push_back(pixel(x, y));
        return result;
    }
    void fillRandom(unsigned seed)
    {
        std::mt19937 random(seed);
        for (int y = 0; y < height(); ++y)
            for (int x = 0; x < width(); ++x)
                setPixel(x, y, UInt32(random()));
    }

private:
    UInt8 *rowAt(int y)
    {
        SInt32 rowBytes = GetPixRowBytes(GetGWorldPixMap(world_));
        return reinterpret_cast<UInt8 *>(+map().baseAddr) + ptrdiff_t{y} * rowBytes;
    }

    GWorldPtr world_ = nullptr;
    Rect rect_{};
};
