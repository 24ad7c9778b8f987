// Pictures of cursors and icons out of their file forms.
#include "cursor_files.h"

#include <png.h>

#include <algorithm>
#include <cstring>

namespace win32::user {
namespace {

constexpr int largestSide = 256;

template <typename T> bool readAt(Bytes bytes, size_t place, T &value)
{
    if (place > bytes.size() || bytes.size() - place < sizeof value)
        return false;
    memcpy(&value, bytes.data() + place, sizeof value);
    return true;
}

Bytes part(Bytes bytes, size_t place, size_t size)
{
    if (place > bytes.size())
        return {};
    return bytes.subspan(place, std::min(size, bytes.size() - place));
}

std::unique_ptr<Cursor> newPicture(int width, int height)
{
    auto picture = std::make_unique<Cursor>();
    picture->width = width;
    picture->height = height;
    picture->pixels.assign(static_cast<size_t>(width) * static_cast<size_t>(height), Cursor::transparent);
    return picture;
}

struct PngImage : png_image {
    PngImage() : png_image{} { version = PNG_IMAGE_VERSION; }
    PngImage(const PngImage &) = delete;
    PngImage &operator=(const PngImage &) = delete;
    ~PngImage() { png_image_free(this); }
};

std::unique_ptr<Cursor> readPng(Bytes bytes)
{
    PngImage image;
    if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()))
        return nullptr;
    bool isSmall = image.width <= largestSide && image.height <= largestSide;
    image.format = PNG_FORMAT_BGRA;
    auto picture = isSmall ? newPicture(static_cast<int>(image.width), static_cast<int>(image.height)) : nullptr;
    if (!picture || !png_image_finish_read(&image, nullptr, picture->pixels.data(), 0, nullptr))
        return nullptr;
    for (uint32_t &pixel : picture->pixels) {
        if (pixel >> 24 == 0)
            pixel = Cursor::transparent;
    }
    return picture;
}

// The colours, then the mask, whose rows are those of a DIB of one bit: from the bottom up, each a multiple of
// four bytes long.
struct DibPicture {
    int width = 0, height = 0, bits = 0;
    Bytes colors, pixels, mask;

    static size_t stride(int width, int bits) { return (static_cast<size_t>(width) * static_cast<size_t>(bits) + 31) / 32 * 4; }

    const uint8_t *row(Bytes rows, int bitsEach, int y) const
    {
        return rows.data() + stride(width, bitsEach) * static_cast<size_t>(height - 1 - y);
    }

    uint32_t tableColor(unsigned index) const
    {
        uint32_t color = 0;
        readAt(colors, size_t{index} * 4, color);
        return color & 0xFFFFFF;
    }

    // 0xAARRGGBB; the alpha is 0 where there is none.
    uint32_t pixel(int x, int y) const
    {
        const uint8_t *line = row(pixels, bits, y);
        auto place = static_cast<size_t>(x);
        switch (bits) {
        case 1:
            return tableColor(line[place / 8] >> (7 - place % 8) & 1u);
        case 4:
            return tableColor(line[place / 2] >> (place % 2 ? 0 : 4) & 15u);
        case 8:
            return tableColor(line[place]);
        case 16: {
            unsigned word = line[place * 2] | line[place * 2 + 1] << 8;
            auto wide = [](unsigned five) { return five << 3 | five >> 2; };
            return wide(word >> 10 & 31) << 16 | wide(word >> 5 & 31) << 8 | wide(word & 31);
        }
        case 24:
            return static_cast<uint32_t>(line[place * 3] | line[place * 3 + 1] << 8 | line[place * 3 + 2] << 16);
        default: {
            uint32_t color;
            memcpy(&color, line + place * 4, sizeof color);
            return color;
        }
        }
    }

    bool isMasked(int x, int y) const { return mask.empty() ? false : (row(mask, 1, y)[x / 8] >> (7 - x % 8) & 1) != 0; }

    bool hasAlpha() const
    {
        if (bits != 32)
            return false;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (pixel(x, y) >> 24)
                    return true;
            }
        }
        return false;
    }
};

bool isDepth(int bits)
{
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

bool describe(Bytes bytes, DibPicture &dib)
{
    BITMAPINFOHEADER header;
    if (!readAt(bytes, 0, header) || header.biSize < sizeof header || header.biCompression != BI_RGB)
        return false;
    bool isSize = header.biWidth > 0 && header.biWidth <= largestSide && header.biHeight > 1 && header.biHeight <= 2 * largestSide;
    if (!isSize || !isDepth(header.biBitCount))
        return false;
    dib.width = header.biWidth;
    dib.height = header.biHeight / 2;
    dib.bits = header.biBitCount;
    size_t colorCount = dib.bits > 8 ? 0 : size_t{1} << dib.bits;
    if (dib.bits <= 8 && header.biClrUsed && header.biClrUsed < colorCount)
        colorCount = header.biClrUsed;
    size_t pixelBytes = DibPicture::stride(dib.width, dib.bits) * static_cast<size_t>(dib.height);
    size_t maskBytes = DibPicture::stride(dib.width, 1) * static_cast<size_t>(dib.height);
    dib.colors = part(bytes, header.biSize, colorCount * 4);
    dib.pixels = part(bytes, header.biSize + colorCount * 4, pixelBytes);
    dib.mask = part(bytes, header.biSize + colorCount * 4 + pixelBytes, maskBytes);
    // A picture with alpha may come without its mask.
    if (dib.mask.size() < maskBytes)
        dib.mask = {};
    return dib.pixels.size() == pixelBytes && (!dib.mask.empty() || dib.bits == 32);
}

// Where the mask is set the picture is laid on the screen by exclusive or: black shows through, all else inverts.
uint32_t maskedPixel(const DibPicture &dib, int x, int y)
{
    uint32_t color = dib.pixel(x, y) & 0xFFFFFF;
    if (!dib.isMasked(x, y))
        return 0xFF000000 | color;
    return color ? Cursor::inverted : Cursor::transparent;
}

std::unique_ptr<Cursor> readDib(Bytes bytes)
{
    DibPicture dib;
    if (!describe(bytes, dib))
        return nullptr;
    auto picture = newPicture(dib.width, dib.height);
    bool hasAlpha = dib.hasAlpha();
    uint32_t *pixel = picture->pixels.data();
    for (int y = 0; y < dib.height; ++y) {
        for (int x = 0; x < dib.width; ++x, ++pixel) {
            uint32_t color = hasAlpha ? dib.pixel(x, y) : maskedPixel(dib, x, y);
            *pixel = hasAlpha && !(color >> 24) ? uint32_t{Cursor::transparent} : color;
        }
    }
    return picture;
}

std::unique_ptr<Cursor> readIcon(Bytes bytes)
{
    constexpr uint8_t pngSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    bool isPng = bytes.size() >= sizeof pngSignature && memcmp(bytes.data(), pngSignature, sizeof pngSignature) == 0;
    return isPng ? readPng(bytes) : readDib(bytes);
}

struct DirectoryHeader {
    WORD reserved, kind, count;
};
constexpr WORD iconFile = 1, cursorFile = 2;

// How well a picture suits: the smaller the better. Too small is worse than too large; more colours win.
int misfit(int width, int size, int bits)
{
    int distance = width >= size ? width - size : 2 * (size - width);
    return distance * 64 - std::min(bits, 32);
}

struct FileEntry {
    BYTE width, height, colors, reserved;
    WORD hotXOrPlanes, hotYOrBits;
    DWORD size, place;
};
static_assert(sizeof(FileEntry) == 16);

struct GroupEntry {
    union {
        struct {
            BYTE width, height, colors, reserved;
        } icon;
        struct {
            WORD width, height;
        } cursor;
    };
    WORD planes, bits;
    WORD sizeLow, sizeHigh;
    WORD number;
};
static_assert(sizeof(GroupEntry) == 14);

int sideOf(BYTE side)
{
    return side ? side : largestSide;
}

} // namespace

std::unique_ptr<Cursor> readPicture(Bytes bytes, PictureKind kind)
{
    if (kind == PictureKind::Icon) {
        auto icon = readIcon(bytes);
        if (icon) {
            icon->hotX = icon->width / 2;
            icon->hotY = icon->height / 2;
        }
        return icon;
    }
    SHORT hotSpot[2];
    if (!readAt(bytes, 0, hotSpot))
        return nullptr;
    auto cursor = readIcon(bytes.subspan(sizeof hotSpot));
    if (cursor) {
        cursor->hotX = hotSpot[0];
        cursor->hotY = hotSpot[1];
    }
    return cursor;
}

std::unique_ptr<Cursor> readPictureFile(Bytes bytes, int size)
{
    DirectoryHeader header;
    if (!readAt(bytes, 0, header) || header.reserved || (header.kind != iconFile && header.kind != cursorFile))
        return nullptr;
    bool isCursor = header.kind == cursorFile;
    FileEntry best{}, entry;
    bool isFound = false;
    for (size_t i = 0; i < header.count && readAt(bytes, sizeof header + i * sizeof entry, entry); ++i) {
        auto worth = [&](const FileEntry &each) { return misfit(sideOf(each.width), size, isCursor ? 0 : each.hotYOrBits); };
        if (isFound && worth(entry) >= worth(best))
            continue;
        best = entry;
        isFound = true;
    }
    auto cursor = isFound ? readIcon(part(bytes, best.place, best.size)) : nullptr;
    if (!cursor)
        return nullptr;
    cursor->hotX = isCursor ? best.hotXOrPlanes : cursor->width / 2;
    cursor->hotY = isCursor ? best.hotYOrBits : cursor->height / 2;
    return cursor;
}

WORD chooseFromGroup(Bytes group, PictureKind kind, int size)
{
    DirectoryHeader header;
    WORD wanted = kind == PictureKind::Cursor ? cursorFile : iconFile;
    if (!readAt(group, 0, header) || header.kind != wanted)
        return 0;
    WORD best = 0;
    int bestMisfit = 0;
    GroupEntry entry;
    for (size_t i = 0; i < header.count && readAt(group, sizeof header + i * sizeof entry, entry); ++i) {
        int width = kind == PictureKind::Cursor ? entry.cursor.width : sideOf(entry.icon.width);
        int misfitOfEntry = misfit(width, size, entry.bits);
        if (best && misfitOfEntry >= bestMisfit)
            continue;
        best = entry.number;
        bestMisfit = misfitOfEntry;
    }
    return best;
}

void resize(Cursor &cursor, int width, int height)
{
    for (auto &picture : cursor.pictures)
        resize(*picture, width, height);
    if (cursor.pixels.empty() || (cursor.width == width && cursor.height == height))
        return;
    std::vector<uint32_t> pixels;
    pixels.reserve(static_cast<size_t>(width) * static_cast<size_t>(height));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            pixels.push_back(cursor.pixels[static_cast<size_t>(y * cursor.height / height * cursor.width + x * cursor.width / width)]);
    }
    cursor.hotX = cursor.hotX * width / cursor.width;
    cursor.hotY = cursor.hotY * height / cursor.height;
    cursor.width = width;
    cursor.height = height;
    cursor.pixels = std::move(pixels);
}

} // namespace win32::user
