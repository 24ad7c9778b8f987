// Descriptions and pixels of DIBs as a caller holds them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <vector>

struct DibInfo {
    DibInfo() = default;
    DibInfo(int width, int height, int depth, DWORD compression = BI_RGB)
    {
        header.biSize = sizeof header;
        header.biWidth = width;
        header.biHeight = height;
        header.biPlanes = 1;
        header.biBitCount = static_cast<WORD>(depth);
        header.biCompression = compression;
    }
    // With grays as colours, or with masks.
    static DibInfo gray(int width, int height, int depth)
    {
        DibInfo info(width, height, depth);
        for (int i = 0; i < 256; ++i)
            info.colors[i] = {static_cast<BYTE>(i), static_cast<BYTE>(i), static_cast<BYTE>(i), 0};
        return info;
    }
    static DibInfo masked(int width, int height, int depth, DWORD red, DWORD green, DWORD blue)
    {
        DibInfo info(width, height, depth, BI_BITFIELDS);
        DWORD masks[] = {red, green, blue};
        memcpy(info.colors, masks, sizeof masks);
        return info;
    }

    BITMAPINFO *get() { return reinterpret_cast<BITMAPINFO *>(this); }

    size_t stride() const { return (static_cast<size_t>(header.biWidth) * header.biBitCount + 31) / 32 * 4; }

    BITMAPINFOHEADER header{};
    // With room for all colours behind a header of 124 bytes.
    RGBQUAD colors[256 + 21]{};
};

inline HBITMAP createSection(DibInfo info, void **bits, UINT usage = DIB_RGB_COLORS, HDC context = nullptr)
{
    return CreateDIBSection(context, info.get(), usage, bits, nullptr, 0);
}
