// A small picture in memory with a context on it, for tests that look at single pixels.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

struct CanvasFormat {
    int depth = 32;
    bool isMonochromeBitmap = false;  // a device bitmap of one bit in place of a DIB section
    DWORD masks[3] = {0, 0, 0};       // for BI_BITFIELDS; the usual channels when they are 0
    std::vector<RGBQUAD> colors = {}; // of a DIB section of 8 bits or less
    bool isBottomUp = false;

    static CanvasFormat monochrome() { return {.depth = 1, .isMonochromeBitmap = true}; }
};

class Canvas {
public:
    Canvas(int width, int height, const CanvasFormat &format = {}) : width_(width), height_(height), format_(format)
    {
        dc = CreateCompatibleDC(nullptr);
        bitmap = format.isMonochromeBitmap ? CreateBitmap(width, height, 1, 1, nullptr) : createSection();
        initial_ = SelectObject(dc, bitmap);
        stride_ = format.isMonochromeBitmap ? (width + 15) / 16 * 2 : (width * format.depth + 31) / 32 * 4;
        if (bits_)
            memset(bits_, 0, size());
        else
            setBytes(std::vector<uint8_t>(size()));
    }
    Canvas(int width, int height, int depth) : Canvas(width, height, CanvasFormat{.depth = depth}) {}
    ~Canvas()
    {
        SelectObject(dc, initial_);
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;

    int width() const { return width_; }
    int height() const { return height_; }
    const CanvasFormat &format() const { return format_; }

    // All pixels as numbers, row by row from the top.
    std::vector<uint32_t> pixels() const
    {
        GdiFlush();
        std::vector<uint8_t> bytes = getBytes();
        std::vector<uint32_t> pixels;
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                pixels.push_back(unpack(&bytes[rowOffset(y)], x));
        return pixels;
    }
    void setPixels(const std::vector<uint32_t> &pixels)
    {
        GdiFlush();
        std::vector<uint8_t> bytes(size());
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                pack(&bytes[rowOffset(y)], x, pixels[static_cast<size_t>(y * width_ + x)]);
        setBytes(bytes);
    }
    void clear(uint32_t pixel = 0) { setPixels(std::vector<uint32_t>(static_cast<size_t>(width_ * height_), pixel)); }
    uint32_t pixel(int x, int y) const { return pixels()[static_cast<size_t>(y * width_ + x)]; }

    // The picture as text, to be held against expected rows. Pixels that have no mark become '?'.
    std::vector<std::string> rows(const std::vector<std::pair<uint32_t, char>> &marks) const
    {
        std::vector<uint32_t> all = pixels();
        std::vector<std::string> rows(static_cast<size_t>(height_), std::string(static_cast<size_t>(width_), '?'));
        for (size_t i = 0; i < all.size(); ++i)
            for (const auto &[pixel, mark] : marks)
                if (all[i] == pixel)
                    rows[i / static_cast<size_t>(width_)][i % static_cast<size_t>(width_)] = mark;
        return rows;
    }
    // '.' for the pixel 0, '#' for all others.
    std::vector<std::string> rows() const
    {
        std::vector<uint32_t> all = pixels();
        std::vector<std::string> rows(static_cast<size_t>(height_), std::string(static_cast<size_t>(width_), '#'));
        for (size_t i = 0; i < all.size(); ++i)
            if (all[i] == 0)
                rows[i / static_cast<size_t>(width_)][i % static_cast<size_t>(width_)] = '.';
        return rows;
    }

    HDC dc;
    HBITMAP bitmap;

private:
    struct Info {
        BITMAPINFOHEADER header;
        RGBQUAD colors[256];
    };

    HBITMAP createSection()
    {
        Info info{};
        info.header.biSize = sizeof info.header;
        info.header.biWidth = width_;
        info.header.biHeight = format_.isBottomUp ? height_ : -height_;
        info.header.biPlanes = 1;
        info.header.biBitCount = static_cast<WORD>(format_.depth);
        if (format_.masks[0]) {
            info.header.biCompression = BI_BITFIELDS;
            memcpy(info.colors, format_.masks, sizeof format_.masks);
        } else if (!format_.colors.empty()) {
            info.header.biClrUsed = static_cast<DWORD>(format_.colors.size());
            memcpy(info.colors, format_.colors.data(), format_.colors.size() * sizeof(RGBQUAD));
        }
        return CreateDIBSection(dc, reinterpret_cast<BITMAPINFO *>(&info), DIB_RGB_COLORS, &bits_, nullptr, 0);
    }

    size_t size() const { return static_cast<size_t>(stride_) * static_cast<size_t>(height_); }
    size_t rowOffset(int y) const
    {
        return static_cast<size_t>(stride_) * static_cast<size_t>(format_.isBottomUp ? height_ - 1 - y : y);
    }

    std::vector<uint8_t> getBytes() const
    {
        std::vector<uint8_t> bytes(size());
        if (bits_)
            memcpy(bytes.data(), bits_, size());
        else
            GetBitmapBits(bitmap, static_cast<LONG>(size()), bytes.data());
        return bytes;
    }
    void setBytes(const std::vector<uint8_t> &bytes)
    {
        if (bits_)
            memcpy(bits_, bytes.data(), size());
        else
            SetBitmapBits(bitmap, static_cast<DWORD>(size()), bytes.data());
    }

    uint32_t unpack(const uint8_t *row, int x) const
    {
        int bit = x * format_.depth;
        if (format_.depth < 8)
            return row[bit / 8] >> (8 - format_.depth - bit % 8) & ((1 << format_.depth) - 1);
        uint32_t pixel = 0;
        memcpy(&pixel, row + bit / 8, static_cast<size_t>(format_.depth / 8));
        return pixel;
    }
    void pack(uint8_t *row, int x, uint32_t pixel) const
    {
        int bit = x * format_.depth;
        if (format_.depth >= 8) {
            memcpy(row + bit / 8, &pixel, static_cast<size_t>(format_.depth / 8));
            return;
        }
        int shift = 8 - format_.depth - bit % 8;
        int mask = ((1 << format_.depth) - 1) << shift;
        row[bit / 8] = static_cast<uint8_t>((row[bit / 8] & ~mask) | (static_cast<int>(pixel) << shift & mask));
    }

    int width_;
    int height_;
    int stride_;
    CanvasFormat format_;
    void *bits_ = nullptr;
    HGDIOBJ initial_;
};
