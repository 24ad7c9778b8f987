// Writes packed DIBs of every kind into a folder, for the search of the DIB fuzzer to begin with. In front of
// each stand the bytes by which the fuzzer chooses how to draw it.
#include <windows.h>

#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

namespace {

std::string folder;

using Bytes = std::vector<unsigned char>;

template <class T> void append(Bytes &bytes, const T &value)
{
    auto begin = reinterpret_cast<const unsigned char *>(&value);
    bytes.insert(bytes.end(), begin, begin + sizeof value);
}

bool write(const std::string &name, const Bytes &dib)
{
    Bytes bytes = {0, 0, 4, 3, 0, 0, 4, 3};
    bytes.insert(bytes.end(), dib.begin(), dib.end());
    FILE *file = fopen((folder + "/" + name).c_str(), "wb");
    return file && fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() && fclose(file) == 0;
}

BITMAPINFOHEADER headerOf(WORD depth, DWORD compression, DWORD size)
{
    BITMAPINFOHEADER header{};
    header.biSize = size;
    header.biWidth = 4;
    header.biHeight = compression == BI_RGB && depth == 24 ? -3 : 3;
    header.biPlanes = 1;
    header.biBitCount = depth;
    header.biCompression = compression;
    return header;
}

void appendColors(Bytes &bytes, int depth)
{
    for (unsigned i = 0; depth <= 8 && i < 1u << depth; ++i)
        append(bytes, DWORD{i * 0x010203});
}

bool writePlain(WORD depth)
{
    Bytes bytes;
    append(bytes, headerOf(depth, BI_RGB, sizeof(BITMAPINFOHEADER)));
    appendColors(bytes, depth);
    bytes.insert(bytes.end(), 3 * ((4 * depth + 31) / 32 * 4), 0x5a);
    return write("depth" + std::to_string(depth), bytes);
}

bool writeMasked(WORD depth, DWORD headerSize)
{
    Bytes bytes;
    append(bytes, headerOf(depth, BI_BITFIELDS, headerSize));
    const DWORD masks[] = {0xf800, 0x07e0, 0x001f};
    append(bytes, masks);
    if (headerSize > bytes.size())
        bytes.resize(headerSize);
    bytes.insert(bytes.end(), 3 * ((4 * depth + 31) / 32 * 4), 0x5a);
    return write("masks" + std::to_string(depth) + "in" + std::to_string(headerSize), bytes);
}

bool writeCore()
{
    Bytes bytes;
    append(bytes, BITMAPCOREHEADER{sizeof(BITMAPCOREHEADER), 4, 3, 1, 1});
    bytes.insert(bytes.end(), {0, 0, 0, 255, 255, 255});
    bytes.insert(bytes.end(), 12, 0xa5);
    return write("core", bytes);
}

bool writeCode(WORD depth, const Bytes &code)
{
    Bytes bytes;
    BITMAPINFOHEADER header = headerOf(depth, depth == 8 ? BI_RLE8 : BI_RLE4, sizeof(BITMAPINFOHEADER));
    header.biSizeImage = static_cast<DWORD>(code.size());
    append(bytes, header);
    appendColors(bytes, depth);
    bytes.insert(bytes.end(), code.begin(), code.end());
    return write("code" + std::to_string(depth), bytes);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2)
        return 1;
    folder = argv[1];
    bool isWritten = writeCore() && writeMasked(16, sizeof(BITMAPINFOHEADER)) && writeMasked(32, 124)
                     && writeCode(8, {2, 1, 0, 2, 1, 1, 0, 3, 7, 8, 9, 0, 0, 0, 4, 2, 0, 1})
                     && writeCode(4, {3, 0x12, 0, 0, 0, 3, 0x34, 0x50, 0, 0, 0, 1});
    for (WORD depth : std::initializer_list<WORD>{1, 4, 8, 16, 24, 32})
        isWritten = isWritten && writePlain(depth);
    return isWritten ? 0 : 1;
}
