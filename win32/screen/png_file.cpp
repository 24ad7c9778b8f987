#include "png_file.h"

#include "kernel/kernel_internal.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <vector>

namespace win32::screen {
namespace {

struct Closer {
    void operator()(FILE *file) const { fclose(file); }
};

// libpng leaves by longjmp when it fails, so nothing with a destructor lives here.
bool encode(FILE *file, const gdi::Surface &surface, const gdi::Box &part, uint8_t *rgbRow)
{
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_compression_level(png, 3);
    png_set_IHDR(png, info, static_cast<png_uint_32>(part.x2 - part.x1), static_cast<png_uint_32>(part.y2 - part.y1), 8,
                 PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = part.y1; y < part.y2; ++y) {
        uint8_t *place = rgbRow;
        for (int x = part.x1; x < part.x2; ++x) {
            COLORREF color = gdi::colorOf(surface, gdi::readPixel(surface, x, y));
            *place++ = GetRValue(color);
            *place++ = GetGValue(color);
            *place++ = GetBValue(color);
        }
        png_write_row(png, rgbRow);
    }
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return true;
}

} // namespace

bool writePng(const std::string &path, const gdi::Surface &surface, const gdi::Box &wanted)
{
    gdi::Box part = gdi::intersected(wanted, surface.box());
    if (gdi::isEmpty(part))
        return fail(ERROR_INVALID_PARAMETER, false);
    std::vector<uint8_t> row(static_cast<size_t>(part.x2 - part.x1) * 3);
    std::unique_ptr<FILE, Closer> file(fopen(path.c_str(), "wb"));
    if (!file)
        return fail(errorFromErrno(errno), false);
    bool isWritten = encode(file.get(), surface, part, row.data());
    isWritten = fclose(file.release()) == 0 && isWritten;
    if (!isWritten) {
        remove(path.c_str());
        return fail(ERROR_DISK_FULL, false);
    }
    return true;
}

} // namespace win32::screen
