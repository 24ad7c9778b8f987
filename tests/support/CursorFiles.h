// Files of cursors and icons, built byte by byte.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace cursor_files {

template <typename T> void append(std::string &bytes, T value)
{
    bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
}

// A square picture of one colour in all pixels that its mask leaves: the left half of each row.
inline std::string picture(int side, int bits, uint32_t color)
{
    constexpr uint32_t black = 0;
    std::string bytes;
    append(bytes, BITMAPINFOHEADER{40, side, 2 * side, 1, static_cast<WORD>(bits), BI_RGB, 0, 0, 0, 0, 0});
    if (bits <= 8) {
        append(bytes, color);
        bytes.append((size_t{4} << bits) - 4, '\0');
    }
    for (int y = 0; y < side; ++y) {
        std::string row;
        for (int x = 0; x < side && bits >= 24; ++x)
            row.append(reinterpret_cast<const char *>(x < side / 2 ? &color : &black), static_cast<size_t>(bits / 8));
        row.resize(static_cast<size_t>((side * bits + 31) / 32 * 4));
        // Masked pixels must be black to let the screen through; of a table that is the second colour.
        if (bits == 8)
            memset(row.data() + side / 2, 1, static_cast<size_t>(side / 2));
        bytes += row;
    }
    for (int y = 0; y < side; ++y) {
        std::string row(static_cast<size_t>((side + 31) / 32 * 4), '\0');
        for (int x = side / 2; x < side; ++x)
            row[static_cast<size_t>(x / 8)] |= static_cast<char>(0x80 >> x % 8);
        bytes += row;
    }
    return bytes;
}

struct Entry {
    std::string picture;
    int side;
    WORD hotXOrPlanes, hotYOrBits;
};

// kind: 1 an icon's, 2 a cursor's.
inline std::string file(WORD kind, const std::vector<Entry> &entries)
{
    std::string bytes, pictures;
    for (WORD word : {WORD{0}, kind, static_cast<WORD>(entries.size())})
        append(bytes, word);
    auto place = static_cast<DWORD>(6 + 16 * entries.size());
    for (const Entry &entry : entries) {
        bytes += static_cast<char>(entry.side);
        bytes += static_cast<char>(entry.side);
        bytes.append(2, '\0');
        append(bytes, entry.hotXOrPlanes);
        append(bytes, entry.hotYOrBits);
        append(bytes, static_cast<DWORD>(entry.picture.size()));
        append(bytes, static_cast<DWORD>(place + pictures.size()));
        pictures += entry.picture;
    }
    return bytes + pictures;
}

inline std::string chunk(const char *name, std::string data)
{
    std::string bytes(name, 4);
    append(bytes, static_cast<DWORD>(data.size()));
    if (data.size() % 2)
        data += '\0';
    return bytes + data;
}

// An animation of whole cursor files, each as many sixtieths of a second.
inline std::string animation(const std::vector<std::string> &files, DWORD rate)
{
    std::string header, pictures = "fram";
    auto count = static_cast<DWORD>(files.size());
    for (DWORD word : {DWORD{36}, count, count, DWORD{0}, DWORD{0}, DWORD{0}, DWORD{0}, rate, DWORD{1}})
        append(header, word);
    for (const std::string &each : files)
        pictures += chunk("icon", each);
    return chunk("RIFF", "ACON" + chunk("anih", header) + chunk("LIST", pictures));
}

} // namespace cursor_files
