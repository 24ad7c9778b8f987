// Pictures written without a library are read back by one.
#include <TemporaryFolder.h>
#include <png_writer.h>

#include <gtest/gtest.h>

#include <png.h>

#include <algorithm>
#include <random>

namespace {

using Bytes = std::vector<uint8_t>;

Bytes readBack(const std::string &path, int width, int height)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str()))
        return {};
    EXPECT_EQ(image.format, png_uint_32{PNG_FORMAT_RGB});
    EXPECT_EQ(image.width, static_cast<png_uint_32>(width));
    EXPECT_EQ(image.height, static_cast<png_uint_32>(height));
    Bytes rgb(PNG_IMAGE_SIZE(image));
    EXPECT_TRUE(png_image_finish_read(&image, nullptr, rgb.data(), 0, nullptr)) << image.message;
    return rgb;
}

class PngWriter : public testing::Test {
protected:
    std::string unixPath(const std::string &name) const
    {
        std::string path = folder_.path(name).substr(2);
        std::replace(path.begin(), path.end(), '\\', '/');
        return path;
    }

    // The size of the file.
    size_t expectKept(int width, int height, const Bytes &rgb) const
    {
        EXPECT_TRUE(replay::writePng(unixPath("a.png"), width, height, rgb));
        EXPECT_TRUE(readBack(unixPath("a.png"), width, height) == rgb) << width << " by " << height;
        return folder_.read("a.png").size();
    }

    TemporaryFolder folder_{"png"};
};

TEST_F(PngWriter, NoisePicturesAreKept)
{
    std::mt19937 random(5);
    for (int width : {1, 2, 7, 100}) {
        Bytes rgb(static_cast<size_t>(width) * 13 * 3);
        std::generate(rgb.begin(), rgb.end(), [&] { return static_cast<uint8_t>(random()); });
        expectKept(width, 13, rgb);
    }
}

// Each length of a run has bits of its own.
TEST_F(PngWriter, RunsOfAllLengthsAreKept)
{
    Bytes rgb;
    for (size_t length = 1; length <= 600; ++length)
        rgb.insert(rgb.end(), length, static_cast<uint8_t>(length * 37));
    expectKept(static_cast<int>(rgb.size() / 3), 1, rgb);
}

TEST_F(PngWriter, APictureOfAnEmptyScreenIsSmall)
{
    EXPECT_LT(expectKept(1024, 768, Bytes(size_t{1024} * 768 * 3, 0x6e)), 20000u);
}

TEST_F(PngWriter, AFileThatCannotBeMadeIsRefused)
{
    EXPECT_FALSE(replay::writePng(unixPath("missing/a.png"), 1, 1, Bytes(3)));
    EXPECT_EQ(errno, ENOENT);
}

} // namespace
