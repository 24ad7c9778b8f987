// Holds two files of scenes against each other: compare_scenes OURS THEIRS [--pictures FOLDER] [--all]
// Prints each scene that differs, with the number of pixels that do, and of those that have none of their value
// within a pixel in the other picture. The result is 1 when a scene differs by more than it may.
#include "scene_file.h"

#include <win32/control.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <tuple>

using namespace scenes;

namespace {

struct Picture {
    SceneRecord record;
    std::vector<uint32_t> pixels;

    uint32_t at(int x, int y) const { return pixels[static_cast<size_t>(y * record.width + x)]; }
    // Whether a value occurs at a place or next to it.
    bool hasNear(uint32_t pixel, int x, int y) const;
};

bool Picture::hasNear(uint32_t pixel, int x, int y) const
{
    for (int j = std::max(0, y - 1); j <= std::min(record.height - 1, y + 1); ++j)
        for (int i = std::max(0, x - 1); i <= std::min(record.width - 1, x + 1); ++i)
            if (at(i, j) == pixel)
                return true;
    return false;
}

uint32_t unpacked(const uint8_t *row, int x, int depth)
{
    switch (depth) {
    case 1: return row[x / 8] >> (7 - x % 8) & 1;
    case 4: return row[x / 2] >> (x % 2 ? 0 : 4) & 15;
    default: {
        uint32_t pixel = 0;
        memcpy(&pixel, row + x * depth / 8, static_cast<size_t>(depth / 8));
        return pixel;
    }
    }
}

using Key = std::pair<std::string, int>;

std::map<Key, Picture> readFile(const char *path)
{
    std::map<Key, Picture> pictures;
    FILE *file = fopen(path, "rb");
    char signature[sizeof(fileSignature)];
    if (!file || fread(signature, sizeof(signature), 1, file) != 1
        || memcmp(signature, fileSignature, sizeof(signature)) != 0) {
        fprintf(stderr, "%s is no file of scenes\n", path);
        exit(2);
    }
    SceneRecord record;
    while (fread(&record, sizeof(record), 1, file) == 1) {
        std::vector<uint8_t> bytes(record.byteCount);
        if (fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
            fprintf(stderr, "%s ends too early\n", path);
            exit(2);
        }
        Picture picture{record, {}};
        size_t stride = bytes.size() / static_cast<size_t>(record.height);
        for (int y = 0; y < record.height; ++y)
            for (int x = 0; x < record.width; ++x)
                picture.pixels.push_back(unpacked(&bytes[static_cast<size_t>(y) * stride], x, record.depth));
        pictures[{record.name, record.depth}] = picture;
    }
    fclose(file);
    return pictures;
}

struct Difference {
    int pixels = 0;
    int far = 0;
};

Difference differenceOf(const Picture &ours, const Picture &theirs)
{
    Difference difference;
    for (int y = 0; y < ours.record.height; ++y)
        for (int x = 0; x < ours.record.width; ++x) {
            if (ours.at(x, y) == theirs.at(x, y))
                continue;
            ++difference.pixels;
            difference.far += !theirs.hasNear(ours.at(x, y), x, y) || !ours.hasNear(theirs.at(x, y), x, y);
        }
    return difference;
}

COLORREF colorOf(uint32_t pixel, int depth)
{
    if (depth <= 8) {
        RGBQUAD color = paletteColor(depth, static_cast<int>(pixel));
        return RGB(color.rgbRed, color.rgbGreen, color.rgbBlue);
    }
    if (depth == 16)
        return RGB((pixel >> 10 & 31) << 3, (pixel >> 5 & 31) << 3, (pixel & 31) << 3);
    return RGB(pixel >> 16, pixel >> 8, pixel);
}

// Ours, theirs, and where they differ, side by side and twice as large.
void savePicture(const std::string &folder, const Picture &ours, const Picture &theirs)
{
    int width = ours.record.width, height = ours.record.height;
    Canvas canvas(32, width * 6 + 20, height * 2);
    auto put = [&](int part, int x, int y, COLORREF color) {
        for (int i = 0; i < 4; ++i)
            SetPixelV(canvas.dc(), part * (width * 2 + 10) + x * 2 + i % 2, y * 2 + i / 2, color);
    };
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            put(0, x, y, colorOf(ours.at(x, y), ours.record.depth));
            put(1, x, y, colorOf(theirs.at(x, y), ours.record.depth));
            put(2, x, y, ours.at(x, y) == theirs.at(x, y) ? RGB(255, 255, 255) : RGB(255, 0, 0));
        }
    std::string name = folder + "/" + ours.record.name + " " + std::to_string(ours.record.depth) + ".png";
    std::replace(name.begin() + static_cast<ptrdiff_t>(folder.size()) + 1, name.end(), ' ', '-');
    std::replace(name.begin() + static_cast<ptrdiff_t>(folder.size()) + 1, name.end(), ':', '-');
    if (!Win32Control_SaveBitmap(name.c_str(), canvas.bitmap()))
        fprintf(stderr, "%s cannot be written\n", name.c_str());
}

const char *verdictOf(Agreement agreement, const Difference &difference)
{
    if (agreement == Agreement::Own)
        return "(by decision)";
    return difference.far || agreement == Agreement::Exact ? "DIFFERS" : "(near)";
}

} // namespace

int main(int argc, char **argv)
{
    std::string folder;
    for (int i = 3; i + 1 < argc; ++i)
        if (!strcmp(argv[i], "--pictures"))
            folder = argv[i + 1];
    if (argc < 3) {
        fprintf(stderr, "usage: compare_scenes OURS THEIRS [--pictures FOLDER]\n");
        return 2;
    }
    std::map<Key, Picture> ours = readFile(argv[1]), theirs = readFile(argv[2]);
    int same = 0, allowed = 0, wrong = 0;
    for (const auto &[key, picture] : ours) {
        auto other = theirs.find(key);
        if (other == theirs.end()) {
            printf("%-40s %2d bits  is missing in %s\n", key.first.c_str(), key.second, argv[2]);
            ++wrong;
            continue;
        }
        Difference difference = differenceOf(picture, other->second);
        if (difference.pixels == 0) {
            ++same;
            continue;
        }
        const char *verdict = verdictOf(picture.record.agreement, difference);
        bool isWrong = !strcmp(verdict, "DIFFERS");
        (isWrong ? wrong : allowed) += 1;
        printf("%-40s %2d bits  %6d pixels, %5d beyond one pixel  %s\n", key.first.c_str(), key.second,
               difference.pixels, difference.far, verdict);
        if (!folder.empty())
            savePicture(folder, picture, other->second);
    }
    printf("%d pictures are equal, %d differ as they may, %d differ\n", same, allowed, wrong);
    return wrong ? 1 : 0;
}
