// Regions, held against sets of pixels.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

class RegionOwner {
public:
    RegionOwner() : handle_(CreateRectRgn(0, 0, 0, 0)) {}
    RegionOwner(HRGN handle) : handle_(handle) {}
    ~RegionOwner() { DeleteObject(handle_); }
    RegionOwner(const RegionOwner &) = delete;
    RegionOwner &operator=(const RegionOwner &) = delete;

    operator HRGN() const { return handle_; }

private:
    HRGN handle_;
};

using Pixels = std::set<std::pair<int, int>>; // y, x

void addBox(Pixels &pixels, const RECT &box)
{
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x)
            pixels.insert({y, x});
    }
}

std::vector<RECT> boxesOf(HRGN region)
{
    std::vector<char> buffer(GetRegionData(region, 0, nullptr));
    auto *data = reinterpret_cast<RGNDATA *>(buffer.data());
    EXPECT_EQ(GetRegionData(region, static_cast<DWORD>(buffer.size()), data), buffer.size());
    EXPECT_EQ(data->rdh.iType, RDH_RECTANGLES);
    EXPECT_EQ(buffer.size(), sizeof(RGNDATAHEADER) + data->rdh.nCount * sizeof(RECT));
    std::vector<RECT> boxes(data->rdh.nCount);
    if (!boxes.empty())
        memcpy(boxes.data(), data->Buffer, boxes.size() * sizeof(RECT));
    return boxes;
}

// The pixels of a region, whose boxes must come in bands.
Pixels pixelsOf(HRGN region)
{
    Pixels pixels;
    RECT previous{INT_MIN, INT_MIN, INT_MIN, INT_MIN};
    for (const RECT &box : boxesOf(region)) {
        EXPECT_LT(box.left, box.right);
        EXPECT_LT(box.top, box.bottom);
        bool isInBand = box.top == previous.top && box.bottom == previous.bottom && box.left >= previous.right;
        EXPECT_TRUE(isInBand || box.top >= previous.bottom) << "boxes overlap or are out of order";
        addBox(pixels, box);
        previous = box;
    }
    return pixels;
}

HRGN createFromBoxes(const std::vector<RECT> &boxes, const XFORM *transform = nullptr)
{
    std::vector<char> buffer(sizeof(RGNDATAHEADER) + boxes.size() * sizeof(RECT));
    auto *data = reinterpret_cast<RGNDATA *>(buffer.data());
    data->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, static_cast<DWORD>(boxes.size()), 0, {}};
    if (!boxes.empty())
        memcpy(data->Buffer, boxes.data(), boxes.size() * sizeof(RECT));
    return ExtCreateRegion(transform, static_cast<DWORD>(buffer.size()), data);
}

class Regions : public testing::Test {
protected:
    Regions() { RecordProperty("seed", static_cast<int>(seed_)); }

    int number(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(random_); }
    RECT box(int span, int longest)
    {
        int x = number(-span / 2, span), y = number(-span / 2, span);
        return {x, y, x + number(0, longest), y + number(0, longest)};
    }
    // Sets the region to up to some boxes together, and gives the pixels.
    Pixels scatter(HRGN region, int mostBoxes)
    {
        Pixels pixels;
        SetRectRgn(region, 0, 0, 0, 0);
        for (int count = number(0, mostBoxes); count > 0; --count) {
            RECT rect = box(30, 14);
            RegionOwner part = CreateRectRgnIndirect(&rect);
            CombineRgn(region, region, part, RGN_OR);
            addBox(pixels, rect);
        }
        return pixels;
    }

    unsigned seed_ = 20261;
    std::mt19937 random_{seed_};
};

Pixels combined(const Pixels &first, const Pixels &second, int mode)
{
    Pixels result;
    auto into = std::inserter(result, result.end());
    switch (mode) {
    case RGN_AND: std::set_intersection(first.begin(), first.end(), second.begin(), second.end(), into); break;
    case RGN_OR: std::set_union(first.begin(), first.end(), second.begin(), second.end(), into); break;
    case RGN_XOR: std::set_symmetric_difference(first.begin(), first.end(), second.begin(), second.end(), into); break;
    case RGN_DIFF: std::set_difference(first.begin(), first.end(), second.begin(), second.end(), into); break;
    default: result = first;
    }
    return result;
}

RECT boundsOf(const Pixels &pixels)
{
    if (pixels.empty())
        return {};
    RECT bounds{INT_MAX, pixels.begin()->first, INT_MIN, pixels.rbegin()->first + 1};
    for (auto [y, x] : pixels) {
        bounds.left = std::min<LONG>(bounds.left, x);
        bounds.right = std::max<LONG>(bounds.right, x + 1);
    }
    return bounds;
}

int complexityOf(const Pixels &pixels)
{
    RECT bounds = boundsOf(pixels);
    auto area = static_cast<size_t>(bounds.right - bounds.left) * static_cast<size_t>(bounds.bottom - bounds.top);
    return pixels.empty() ? NULLREGION : pixels.size() == area ? SIMPLEREGION : COMPLEXREGION;
}

TEST_F(Regions, CombineAsSetsOfPixelsAlsoIntoTheirSources)
{
    RegionOwner sources[2], separate;
    for (int round = 0; round < 400; ++round) {
        Pixels pixels[2] = {scatter(sources[0], 8), scatter(sources[1], 8)};
        int mode = number(RGN_AND, RGN_COPY), target = number(0, 2);
        HRGN result = target < 2 ? sources[target] : separate;
        Pixels expected = combined(pixels[0], pixels[1], mode);
        ASSERT_EQ(CombineRgn(result, sources[0], sources[1], mode), complexityOf(expected)) << "round " << round;
        ASSERT_EQ(pixelsOf(result), expected) << "round " << round << ", mode " << mode;
        RECT bounds, expectedBounds = boundsOf(expected);
        ASSERT_EQ(GetRgnBox(result, &bounds), complexityOf(expected));
        ASSERT_EQ(memcmp(&bounds, &expectedBounds, sizeof bounds), 0);
    }
}

TEST_F(Regions, AnswerForPointsBoxesAndEachOther)
{
    RegionOwner region, other;
    for (int round = 0; round < 200; ++round) {
        Pixels pixels = scatter(region, 5), otherPixels = scatter(other, 1);
        for (int i = 0; i < 20; ++i) {
            int x = number(-20, 50), y = number(-20, 50);
            ASSERT_EQ(!!PtInRegion(region, x, y), pixels.count({y, x}) == 1);
            Pixels asked;
            RECT rect = box(30, 9);
            addBox(asked, rect);
            if (i % 2)
                std::swap(rect.left, rect.right);
            if (!asked.empty()) {
                ASSERT_EQ(!!RectInRegion(region, &rect), !combined(pixels, asked, RGN_AND).empty());
            }
        }
        ASSERT_EQ(!!EqualRgn(region, other), pixels == otherPixels);
        int x = number(-1000, 1000), y = number(-1000, 1000);
        ASSERT_EQ(OffsetRgn(region, x, y), complexityOf(pixels));
        Pixels moved;
        for (auto [py, px] : pixels)
            moved.insert({py + y, px + x});
        ASSERT_EQ(pixelsOf(region), moved);
    }
}

TEST_F(Regions, AreEqualWhenEmptyHoweverTheyBecameSo)
{
    RegionOwner first = CreateRectRgn(5, 5, 9, 9), second = CreateRectRgn(20, 20, 30, 30), never;
    EXPECT_EQ(CombineRgn(first, first, second, RGN_AND), NULLREGION);
    EXPECT_EQ(CombineRgn(second, second, second, RGN_DIFF), NULLREGION);
    EXPECT_TRUE(EqualRgn(first, second));
    EXPECT_TRUE(EqualRgn(first, never));
}

TEST_F(Regions, AreMadeFromBoxesInAnyOrder)
{
    for (int round = 0; round < 400; ++round) {
        std::vector<RECT> boxes(static_cast<size_t>(number(0, 25)));
        Pixels pixels;
        for (RECT &rect : boxes) {
            rect = box(30, round % 3 == 0 ? 3 : 14);
            if (round % 4 == 1) // runs of a mask
                rect.bottom = rect.top + 1;
            addBox(pixels, rect);
        }
        if (round % 2)
            std::sort(boxes.begin(), boxes.end(),
                      [](const RECT &a, const RECT &b) { return std::pair(a.top, a.left) < std::pair(b.top, b.left); });
        RegionOwner region = createFromBoxes(boxes);
        ASSERT_EQ(pixelsOf(region), pixels) << "round " << round;
    }
}

TEST_F(Regions, ComeBackFromTheirData)
{
    RegionOwner region;
    for (int round = 0; round < 50; ++round) {
        scatter(region, 10);
        RegionOwner copy = createFromBoxes(boxesOf(region));
        ASSERT_TRUE(EqualRgn(region, copy));
    }
}

TEST_F(Regions, AreScaledByRoundingTheSidesOfTheirBoxes)
{
    for (int round = 0; round < 300; ++round) {
        XFORM transform{static_cast<float>(number(-8, 8)) / 4,
                        0,
                        0,
                        static_cast<float>(number(-8, 8)) / 4,
                        static_cast<float>(number(-20, 20)) / 8,
                        static_cast<float>(number(-20, 20)) / 8};
        auto mapped = [](float scale, float offset, LONG value) {
            return static_cast<LONG>(std::floor(double{scale} * value + double{offset} + 0.5));
        };
        std::vector<RECT> boxes(static_cast<size_t>(number(1, 5)));
        Pixels pixels;
        for (RECT &rect : boxes) {
            rect = box(20, 9);
            LONG x[] = {mapped(transform.eM11, transform.eDx, rect.left),
                        mapped(transform.eM11, transform.eDx, rect.right)};
            LONG y[] = {mapped(transform.eM22, transform.eDy, rect.top),
                        mapped(transform.eM22, transform.eDy, rect.bottom)};
            if (rect.left < rect.right && rect.top < rect.bottom)
                addBox(pixels,
                       {std::min(x[0], x[1]), std::min(y[0], y[1]), std::max(x[0], x[1]), std::max(y[0], y[1])});
        }
        RegionOwner region = createFromBoxes(boxes, &transform);
        ASSERT_EQ(pixelsOf(region), pixels) << "round " << round;
    }
}

TEST_F(Regions, AreTurnedAsThePolygonsOfTheirBoxes)
{
    XFORM quarterTurn{0, 1, -1, 0, 100, 50};
    RegionOwner turned = createFromBoxes({{1, 2, 7, 9}, {7, 2, 9, 4}}, &quarterTurn);
    Pixels expected;
    addBox(expected, {91, 51, 98, 57});
    addBox(expected, {96, 57, 98, 59});
    EXPECT_EQ(pixelsOf(turned), expected);

    XFORM shear{1, 0.5f, 0.25f, 1, 0, 0};
    POINT corners[] = {{1, 1}, {21, 11}, {24, 23}, {4, 13}}; // of 0, 0 to 20, 12, moved by 1, 1
    shear.eDx = shear.eDy = 1;
    RegionOwner sheared = createFromBoxes({{0, 0, 20, 12}}, &shear), polygon = CreatePolygonRgn(corners, 4, WINDING);
    EXPECT_EQ(pixelsOf(sheared), pixelsOf(polygon));
}

// Whether the point of a pixel lies within, left and upper edges included; exact for any place.
bool isInside(const std::vector<std::vector<POINT>> &polygons, int x, int y, int mode)
{
    int winding = 0;
    for (const std::vector<POINT> &polygon : polygons) {
        for (size_t i = 0; i < polygon.size(); ++i) {
            POINT from = polygon[i], to = polygon[(i + 1) % polygon.size()];
            int direction = from.y < to.y ? 1 : -1;
            if (direction < 0)
                std::swap(from, to);
            bool isBeside = from.y <= y && y < to.y;
            long long side = (static_cast<long long>(x) - from.x) * (to.y - from.y)
                             - (static_cast<long long>(y) - from.y) * (to.x - from.x);
            if (isBeside && side >= 0)
                winding += mode == WINDING ? direction : 1;
        }
    }
    return mode == WINDING ? winding != 0 : winding % 2 != 0;
}

TEST_F(Regions, OfPolygonsHoldThePixelsWhosePointsLieWithin)
{
    for (int round = 0; round < 500; ++round) {
        int span = round % 2 ? 40 : 9, mode = number(ALTERNATE, WINDING);
        std::vector<std::vector<POINT>> polygons(static_cast<size_t>(round % 3 ? 1 : number(1, 3)));
        std::vector<POINT> points;
        std::vector<INT> counts;
        for (std::vector<POINT> &polygon : polygons) {
            polygon.resize(static_cast<size_t>(number(2, 7)));
            for (POINT &point : polygon)
                point = {number(-span / 3, span), number(-span / 3, span)};
            points.insert(points.end(), polygon.begin(), polygon.end());
            counts.push_back(static_cast<INT>(polygon.size()));
        }
        RegionOwner region = CreatePolyPolygonRgn(points.data(), counts.data(), static_cast<int>(counts.size()), mode);
        Pixels expected;
        for (int y = -span; y <= span; ++y) {
            for (int x = -span; x <= span; ++x) {
                if (isInside(polygons, x, y, mode))
                    expected.insert({y, x});
            }
        }
        ASSERT_EQ(pixelsOf(region), expected) << "round " << round;
    }
}

// The pixels of a shape at 0, 0 as rows of text.
std::vector<std::string> rowsOf(HRGN region)
{
    RECT bounds;
    GetRgnBox(region, &bounds);
    std::vector<std::string> rows(static_cast<size_t>(bounds.bottom),
                                  std::string(static_cast<size_t>(bounds.right), '.'));
    for (auto [y, x] : pixelsOf(region))
        rows[static_cast<size_t>(y)][static_cast<size_t>(x)] = '#';
    return rows;
}

using Rows = std::vector<std::string>;

TEST_F(Regions, OfEllipsesFollowTheMidpointRule)
{
    EXPECT_EQ(rowsOf(RegionOwner(CreateEllipticRgn(0, 0, 8, 6))),
              (Rows{"..###..", "#######", "#######", "#######", "..###.."}));
    EXPECT_EQ(
        rowsOf(RegionOwner(CreateEllipticRgn(0, 0, 14, 13))),
        (Rows{"....#####....", "..#########..", ".###########.", ".###########.", "#############", "#############",
              "#############", "#############", ".###########.", ".###########.", "..#########..", "....#####...."}));
    // Here and there the curve passes right between two pixels.
    EXPECT_EQ(rowsOf(RegionOwner(CreateEllipticRgn(0, 0, 20, 11))),
              (Rows{".....#########.....", "...#############...", "..###############..", ".#################.",
                    "###################", "###################", ".#################.", "..###############..",
                    "...#############...", ".....#########....."}));
    EXPECT_EQ(rowsOf(RegionOwner(CreateEllipticRgn(0, 0, 11, 20)))[5], ".########.");
    EXPECT_EQ(rowsOf(RegionOwner(CreateEllipticRgn(13, 6, 0, 0))),
              (Rows{"...######...", ".##########.", "############", ".##########.", "...######..."}));
}

TEST_F(Regions, OfRoundRectanglesHaveCornersOfAnEllipse)
{
    EXPECT_EQ(rowsOf(RegionOwner(CreateRoundRectRgn(0, 0, 13, 9, 6, 6))),
              (Rows{"..########..", ".##########.", "############", "############", "############", "############",
                    ".##########.", "..########.."}));
    EXPECT_EQ(rowsOf(RegionOwner(CreateRoundRectRgn(0, 0, 9, 9, -7, 5))),
              (Rows{"..####..", "########", "########", "########", "########", "########", "########", "..####.."}));
    RegionOwner plain = CreateRoundRectRgn(0, 0, 13, 9, 1, 20), box = CreateRectRgn(0, 0, 12, 8);
    EXPECT_TRUE(EqualRgn(plain, box));
}

TEST_F(Regions, OfEllipsesAreSymmetricAndWithinAPixelOfTheCurve)
{
    for (int round = 0; round < 60; ++round) {
        int width = number(20, 200), height = number(width / 3, 3 * width);
        RegionOwner region = CreateEllipticRgn(0, 0, width + 1, height + 1);
        std::vector<std::string> rows = rowsOf(region);
        ASSERT_EQ(rows.size(), static_cast<size_t>(height));
        for (int y = 0; y < height; ++y) {
            const std::string &row = rows[static_cast<size_t>(y)];
            ASSERT_EQ(row, rows[static_cast<size_t>(height - 1 - y)]);
            ASSERT_EQ(row, std::string(row.rbegin(), row.rend()));
            for (int x = 0; x < width; ++x) {
                double across = (2.0 * x + 1 - width) / width, down = (2.0 * y + 1 - height) / height;
                double distance = std::sqrt(across * across + down * down), pixel = 2.0 / std::min(width, height);
                if (std::fabs(distance - 1) > pixel) {
                    ASSERT_EQ(row[static_cast<size_t>(x)], distance < 1 ? '#' : '.') << width << " by " << height;
                }
            }
        }
    }
}

TEST_F(Regions, RefuseWhatIsNone)
{
    RegionOwner region = CreateRectRgn(10, 10, 0, 0), other = CreateRectRgn(5, 5, 20, 20);
    auto brush = reinterpret_cast<HRGN>(GetStockObject(BLACK_BRUSH));
    EXPECT_EQ(CombineRgn(region, other, brush, RGN_AND), ERROR);
    EXPECT_EQ(CombineRgn(region, nullptr, other, RGN_AND), ERROR);
    EXPECT_EQ(CombineRgn(region, other, other, 0), ERROR);
    EXPECT_EQ(CombineRgn(region, other, other, RGN_COPY + 1), ERROR);
    EXPECT_EQ(pixelsOf(region).size(), 100u) << "a failure must leave the region as it was";
    EXPECT_EQ(CombineRgn(region, other, nullptr, RGN_COPY), SIMPLEREGION);
    EXPECT_TRUE(EqualRgn(region, other));
    EXPECT_EQ(OffsetRgn(brush, 1, 1), ERROR);
    RECT rect{1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(brush, &rect), ERROR);
    EXPECT_FALSE(EqualRgn(brush, brush));
    EXPECT_FALSE(SetRectRgn(brush, 0, 0, 1, 1));
    EXPECT_FALSE(PtInRegion(brush, 0, 0));
    EXPECT_EQ(GetRegionData(brush, 0, nullptr), 0u);
    char small[sizeof(RGNDATAHEADER)];
    EXPECT_EQ(GetRegionData(region, sizeof small, reinterpret_cast<RGNDATA *>(small)), 0u);
    EXPECT_FALSE(ExtCreateRegion(nullptr, 0, nullptr));
}

} // namespace
