// Windows bitmap files: read into a world, and written from one.
#include "sampler.h"

#include <algorithm>
#include <cstring>

namespace {

// Where the parts of a bitmap lie in its file.
struct Layout {
    const BITMAPINFO *info = nullptr;
    const char *bits = nullptr;
    SInt16 width = 0;
    SInt16 height = 0;
};

int colorCountOf(const BITMAPINFOHEADER &header)
{
    if (header.biBitCount > 8)
        return 0;
    int most = 1 << header.biBitCount;
    return header.biClrUsed ? static_cast<int>(std::min<DWORD>(header.biClrUsed, static_cast<DWORD>(most))) : most;
}

bool isReadable(const BITMAPINFOHEADER &header)
{
    constexpr int largest = 8192;
    int depth = header.biBitCount;
    bool isDepthKnown = depth == 1 || depth == 4 || depth == 8 || depth == 24 || depth == 32;
    return header.biSize == sizeof header && header.biPlanes == 1 && isDepthKnown && header.biCompression == BI_RGB
           && header.biWidth > 0 && header.biWidth <= largest && header.biHeight != 0 && header.biHeight >= -largest
           && header.biHeight <= largest;
}

// Every length in the file is checked against the file's own.
bool findParts(const char *data, Size size, Layout &layout)
{
    constexpr Size headers = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    BITMAPFILEHEADER file;
    BITMAPINFOHEADER header;
    if (size < headers)
        return false;
    memcpy(&file, data, sizeof file);
    memcpy(&header, data + sizeof file, sizeof header);
    if (file.bfType != 0x4D42 || !isReadable(header))
        return false;
    Size rowBytes = (header.biWidth * header.biBitCount + 31) / 32 * 4;
    Size length = rowBytes * std::abs(header.biHeight);
    Size colors = headers + colorCountOf(header) * static_cast<Size>(sizeof(RGBQUAD));
    if (colors > size || file.bfOffBits < static_cast<DWORD>(colors) || file.bfOffBits > static_cast<DWORD>(size)
        || length > size - static_cast<Size>(file.bfOffBits))
        return false;
    layout.info = reinterpret_cast<const BITMAPINFO *>(data + sizeof file);
    layout.bits = data + file.bfOffBits;
    layout.width = static_cast<SInt16>(header.biWidth);
    layout.height = static_cast<SInt16>(std::abs(header.biHeight));
    return true;
}

OSErr drawInto(const Layout &layout, GWorldPtr &world)
{
    Rect bounds = {0, 0, layout.height, layout.width};
    OSErr error = NewGWorld(&world, 32, &bounds, nullptr, nullptr, 0);
    if (error != noErr)
        return error;
    SetPort(world);
    SetDIBitsToDevice((**GetGWorldPixMap(world)).pmDC, 0, 0, static_cast<DWORD>(layout.width),
                      static_cast<DWORD>(layout.height), 0, 0, 0, static_cast<UINT>(layout.height), layout.bits,
                      layout.info, DIB_RGB_COLORS);
    return noErr;
}

// The pixels of a world with the colours that they use, when these are few.
class Indexed {
public:
    explicit Indexed(GWorldPtr world) : world_(world)
    {
        for (SInt16 row = 0; row < height() && isIndexed_; ++row) {
            for (SInt16 column = 0; column < width() && isIndexed_; ++column)
                isIndexed_ = indexOf(pixel(row, column)) >= 0;
        }
    }

    SInt16 width() const { return world_->portRect.right; }
    SInt16 height() const { return world_->portRect.bottom; }
    bool isIndexed() const { return isIndexed_; }
    const std::vector<UInt32> &colors() const { return colors_; }
    UInt32 pixel(SInt16 row, SInt16 column) const
    {
        PixMapHandle map = GetGWorldPixMap(world_);
        UInt32 value;
        memcpy(&value, GetPixBaseAddr(map) + row * GetPixRowBytes(map) + column * 4, sizeof value);
        return value & 0xFFFFFF;
    }
    // -1 when there are more than 256.
    int indexOf(UInt32 color)
    {
        if (!colors_.empty() && colors_[last_] == color)
            return static_cast<int>(last_);
        last_ = static_cast<size_t>(std::find(colors_.begin(), colors_.end(), color) - colors_.begin());
        if (last_ < colors_.size())
            return static_cast<int>(last_);
        if (colors_.size() == 256) {
            last_ = 0;
            return -1;
        }
        colors_.push_back(color);
        return static_cast<int>(last_);
    }

private:
    GWorldPtr world_;
    std::vector<UInt32> colors_;
    size_t last_ = 0;
    bool isIndexed_ = true;
};

void append(std::vector<char> &file, const void *bytes, size_t count)
{
    size_t size = file.size();
    file.resize(size + count);
    memcpy(file.data() + size, bytes, count);
}

void appendRow(std::vector<char> &file, Indexed &image, SInt16 row)
{
    size_t start = file.size();
    for (SInt16 column = 0; column < image.width(); ++column) {
        UInt32 color = image.pixel(row, column);
        if (image.isIndexed())
            file.push_back(static_cast<char>(image.indexOf(color)));
        else
            append(file, &color, 3);
    }
    while ((file.size() - start) % 4)
        file.push_back(0);
}

std::vector<char> fileOf(GWorldPtr world)
{
    Indexed image(world);
    std::vector<char> rows;
    for (int row = image.height() - 1; row >= 0; --row)
        appendRow(rows, image, static_cast<SInt16>(row));
    size_t colorCount = image.isIndexed() ? image.colors().size() : 0;
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = image.width();
    header.biHeight = image.height();
    header.biPlanes = 1;
    header.biBitCount = image.isIndexed() ? 8 : 24;
    header.biClrUsed = static_cast<DWORD>(colorCount);
    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;
    file.bfOffBits = static_cast<DWORD>(sizeof file + sizeof header + colorCount * 4);
    file.bfSize = static_cast<DWORD>(file.bfOffBits + rows.size());
    std::vector<char> bytes;
    append(bytes, &file, sizeof file);
    append(bytes, &header, sizeof header);
    if (colorCount)
        append(bytes, image.colors().data(), colorCount * 4);
    append(bytes, rows.data(), rows.size());
    return bytes;
}

} // namespace

OSErr readBitmap(const std::string &path, GWorldPtr &world)
{
    Handle data = NewHandle(0);
    if (!data)
        return memFullErr;
    Layout layout;
    OSErr error = readFile(path, data);
    if (error == noErr)
        error = findParts(*data, GetHandleSize(data), layout) ? drawInto(layout, world) : OSErr{badResFormat};
    DisposeHandle(data);
    return error;
}

OSErr writeBitmap(const std::string &path, GWorldPtr world)
try {
    GdiFlush();
    return writeFile(path, fileOf(world));
} catch (const std::bad_alloc &) {
    return memFullErr;
}
