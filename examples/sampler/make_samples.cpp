// Draws the sample documents: make-samples FOLDER.
#include "sampler.h"

#include <cmath>
#include <cstdio>

namespace {

constexpr double pi = 3.14159265358979;

constexpr RGBColor rgb(int red, int green, int blue)
{
    return {static_cast<UInt16>(red * 257), static_cast<UInt16>(green * 257), static_cast<UInt16>(blue * 257)};
}

RGBColor between(const RGBColor &a, const RGBColor &b, double part)
{
    auto mix = [part](UInt16 x, UInt16 y) {
        return static_cast<UInt16>(std::lround((x + (y - x) * part) / 257) * 257);
    };
    return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

void color(const RGBColor &value)
{
    RGBForeColor(&value);
}

SInt16 whole(double value)
{
    return static_cast<SInt16>(std::lround(value));
}

void rect(double left, double top, double right, double bottom)
{
    Rect area = {whole(top), whole(left), whole(bottom), whole(right)};
    PaintRect(&area);
}

void polygon(const std::vector<Point> &points)
{
    PolyHandle shape = OpenPoly();
    MoveTo(points[0].h, points[0].v);
    for (Point each : points)
        LineTo(each.h, each.v);
    LineTo(points[0].h, points[0].v);
    ClosePoly();
    PaintPoly(shape);
    KillPoly(shape);
}

// A polygon with many sides: PaintOval draws its outline in black.
void oval(double h, double v, double width, double height)
{
    constexpr int sides = 60;
    if (width < 2) {
        rect(h, v, h + 2 * width, v + 2 * height);
        return;
    }
    std::vector<Point> outline;
    for (int i = 0; i < sides; ++i)
        outline.push_back(
            {whole(v + height * std::sin(2 * pi * i / sides)), whole(h + width * std::cos(2 * pi * i / sides))});
    polygon(outline);
}

// Bands of colour from the top to the bottom.
void gradient(const Rect &area, const RGBColor &top, const RGBColor &bottom, int bands)
{
    for (int i = 0; i < bands; ++i) {
        color(between(top, bottom, i / (bands - 1.0)));
        double height = area.bottom - area.top;
        rect(area.left, area.top + height * i / bands, area.right, area.top + height * (i + 1) / bands);
    }
}

// The land below a curve, down to the bottom.
template <typename Curve> void land(SInt16 width, SInt16 bottom, const RGBColor &value, Curve height)
{
    std::vector<Point> outline;
    for (SInt16 h = 0; h <= width; h = static_cast<SInt16>(h + 4))
        outline.push_back({whole(height(h)), h});
    outline.push_back({bottom, width});
    outline.push_back({bottom, 0});
    color(value);
    polygon(outline);
}

// A number from 0 to 1 that is the same in each run.
double chance()
{
    return (Random() & 0x7FFF) / 32767.0;
}

void tree(double h, double v, double size, const RGBColor &leaves)
{
    color(rgb(84, 58, 40));
    rect(h - size * 0.08, v - size * 0.5, h + size * 0.08, v);
    color(leaves);
    for (int layer = 0; layer < 3; ++layer) {
        double top = v - size * (1.5 - layer * 0.35), wide = size * (0.25 + layer * 0.12);
        polygon({{whole(top), whole(h)},
                 {whole(top + size * 0.55), whole(h + wide)},
                 {whole(top + size * 0.55), whole(h - wide)}});
    }
}

void drawHills(SInt16 width, SInt16 height)
{
    gradient({0, 0, whole(height * 0.62), width}, rgb(64, 120, 196), rgb(250, 214, 170), 28);
    color(rgb(255, 244, 200));
    oval(width * 0.72, height * 0.3, 30, 30);
    land(width, height, rgb(120, 136, 172),
         [&](double h) { return height * 0.5 - 46 * std::fabs(std::sin(h / 61.0)) - 20 * std::sin(h / 23.0 + 1); });
    land(width, height, rgb(92, 132, 116), [&](double h) { return height * 0.58 - 26 * std::sin(h / 70.0 + 2); });
    land(width, height, rgb(96, 156, 84), [&](double h) { return height * 0.7 - 30 * std::sin(h / 92.0 + 0.6); });
    for (int i = 0; i < 14; ++i) {
        double h = 14 + i * width / 14.0 + chance() * 14;
        tree(h, height * 0.72 - 30 * std::sin(h / 92.0 + 0.6) + 8 + chance() * 12, 24 + chance() * 16,
             rgb(40, 104, 64));
    }
    land(width, height, rgb(132, 184, 88), [&](double h) { return height * 0.86 - 16 * std::sin(h / 60.0 + 3.4); });
    for (int i = 0; i < 130; ++i) {
        static const RGBColor blooms[] = {rgb(236, 92, 84), rgb(250, 220, 90), rgb(244, 244, 250), rgb(170, 110, 200)};
        double h = chance() * width, v = height * 0.9 + chance() * height * 0.1 - 4;
        color(blooms[i % 4]);
        oval(h, v, 2, 2);
    }
}

void house(double h, double base, double width, double height, const RGBColor &wall, const RGBColor &roof)
{
    color(wall);
    rect(h, base - height, h + width, base);
    color(roof);
    polygon({{whole(base - height), whole(h - 4)},
             {whole(base - height - width * 0.45), whole(h + width / 2)},
             {whole(base - height), whole(h + width + 4)}});
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            double x = h + width * (0.18 + column * 0.4), y = base - height * (0.82 - row * 0.42);
            color(chance() < 0.7 ? rgb(255, 214, 110) : rgb(60, 66, 96));
            rect(x, y, x + width * 0.22, y + height * 0.22);
        }
    }
}

void boat(double h, double v, double size, const RGBColor &hull, const RGBColor &sail)
{
    color(hull);
    polygon({{whole(v), whole(h - size)},
             {whole(v), whole(h + size)},
             {whole(v + size * 0.4), whole(h + size * 0.6)},
             {whole(v + size * 0.4), whole(h - size * 0.7)}});
    color(rgb(70, 52, 40));
    rect(h - 1, v - size * 1.7, h + 2, v);
    color(sail);
    polygon(
        {{whole(v - size * 1.7), whole(h + 3)}, {whole(v - 4), whole(h + size * 0.9)}, {whole(v - 4), whole(h + 3)}});
    color(between(sail, rgb(255, 255, 255), 0.5));
    polygon(
        {{whole(v - size * 1.4), whole(h - 3)}, {whole(v - 4), whole(h - size * 0.8)}, {whole(v - 4), whole(h - 3)}});
}

void drawHarbour(SInt16 width, SInt16 height)
{
    SInt16 shore = whole(height * 0.55);
    gradient({0, 0, shore, width}, rgb(18, 22, 58), rgb(206, 116, 120), 30);
    for (int i = 0; i < 90; ++i) {
        color(between(rgb(120, 130, 180), rgb(255, 255, 240), std::floor(chance() * 4) / 4));
        double v = chance() * chance() * shore;
        double h = std::floor(chance() * width), size = chance() < 0.2 ? 2 : 1;
        rect(h, v, h + size, v + size);
    }
    color(rgb(250, 246, 222));
    oval(width * 0.2, height * 0.16, 26, 26);
    land(width, shore, rgb(58, 50, 88), [&](double h) { return shore - 40 - 26 * std::sin(h / 120.0 + 1.8); });
    static const RGBColor walls[] = {rgb(196, 150, 110), rgb(176, 110, 100), rgb(150, 150, 168), rgb(206, 186, 140)};
    for (int i = 0; i < 9; ++i)
        house(210 + i * 44, shore, 36, 40 + chance() * 30, walls[i % 4], rgb(98, 48, 52));
    gradient({shore, 0, height, width}, rgb(150, 92, 116), rgb(16, 26, 62), 22);
    for (int i = 0; i < 160; ++i) {
        double v = shore + 4 + chance() * (height - shore - 8), h = chance() * width, reach = 4 + (v - shore) / 8;
        color(between(rgb(230, 180, 150), rgb(60, 70, 120), std::floor((v - shore) / (height - shore) * 6) / 6));
        rect(h, v, h + reach, v + 1);
    }
    color(rgb(226, 222, 214));
    polygon(
        {{whole(shore - 120.0), 92}, {whole(shore - 120.0), 112}, {whole(shore + 8.0), 120}, {whole(shore + 8.0), 84}});
    color(rgb(190, 60, 54));
    rect(90, shore - 92, 114, shore - 72);
    rect(87, shore - 40, 117, shore - 20);
    rect(88, shore - 134, 116, shore - 122);
    color(rgb(255, 236, 150));
    oval(102, shore - 127, 8, 5);
    color(rgb(40, 34, 54));
    oval(102, shore + 14, 60, 12);
    boat(260, shore + 62, 44, rgb(120, 44, 44), rgb(240, 214, 170));
    boat(430, shore + 34, 26, rgb(40, 70, 96), rgb(220, 120, 90));
    boat(540, shore + 96, 56, rgb(48, 48, 56), rgb(232, 232, 240));
}

void drawRose(SInt16 width, SInt16 height)
{
    static const RGBColor rings[] = {rgb(32, 44, 92), rgb(196, 72, 60), rgb(240, 190, 80), rgb(52, 128, 120),
                                     rgb(244, 236, 216)};
    double h = width / 2.0, v = height / 2.0, largest = width / 2.0 - 6;
    color(rgb(244, 236, 216));
    rect(0, 0, width, height);
    for (int ring = 0; ring < 9; ++ring) {
        double outer = largest * (1 - ring / 9.0), inner = outer * 0.72;
        int petals = 24 - ring * 2;
        color(rings[ring % 4]);
        for (int i = 0; i < petals; ++i) {
            double middle = 2 * pi * (i + (ring % 2) * 0.5) / petals, half = pi / petals;
            auto at = [&](double angle, double radius) {
                return Point{whole(v + radius * std::sin(angle)), whole(h + radius * std::cos(angle))};
            };
            polygon({at(middle, outer), at(middle + half, inner), at(middle, inner * 0.8), at(middle - half, inner)});
        }
        color(rings[4]);
        oval(h, v, inner * 0.7, inner * 0.7);
    }
    color(rings[1]);
    oval(h, v, 10, 10);
}

void drawAbout(SInt16 width, SInt16 height)
{
    color(rgb(255, 255, 255));
    rect(0, 0, width, height);
    color(rgb(36, 60, 112));
    Rect frame = {4, 4, static_cast<SInt16>(height - 4), static_cast<SInt16>(width - 4)};
    PenSize(3, 3);
    FrameRoundRect(&frame, 28, 28);
    PenNormal();
    static const RGBColor inks[] = {rgb(204, 52, 48), rgb(238, 150, 40), rgb(248, 214, 70),
                                    rgb(76, 156, 84), rgb(44, 120, 180), rgb(120, 70, 150)};
    for (int i = 0; i < 6; ++i) {
        color(inks[i]);
        oval(38 + i * 33, height * 0.42 + 22 * std::sin(i * 1.1), 24, 24);
    }
    color(rgb(84, 58, 40));
    polygon({{118, 36}, {124, 40}, {whole(height * 0.42 + 10.0), 190}, {whole(height * 0.42), 184}});
}

using Drawing = void (*)(SInt16 width, SInt16 height);

GWorldPtr worldOf(Drawing draw, SInt16 width, SInt16 height)
{
    GWorldPtr world = nullptr;
    Rect bounds = {0, 0, height, width};
    if (NewGWorld(&world, 32, &bounds, nullptr, nullptr, 0) != noErr)
        return nullptr;
    SetPort(world);
    qd.randSeed = 1;
    EraseRect(&bounds);
    draw(width, height);
    return world;
}

bool save(const std::string &path, Drawing draw, SInt16 width, SInt16 height)
{
    GWorldPtr world = worldOf(draw, width, height);
    OSErr error = world ? writeBitmap(path, world) : OSErr{memFullErr};
    DisposeGWorld(world);
    if (error != noErr)
        fprintf(stderr, "make-samples: %s: error %d\n", path.c_str(), error);
    return error == noErr;
}

// A picture resource: the frame, and the bitmap as in a file, without the file's header.
Handle pictureOf(const std::string &path)
{
    Handle file = NewHandle(0);
    if (!file || readFile(path, file) != noErr)
        return nullptr;
    BITMAPINFOHEADER header;
    BlockMove(*file + sizeof(BITMAPFILEHEADER), &header, sizeof header);
    Picture picture = {};
    picture.picFrame = {0, 0, static_cast<SInt16>(header.biHeight), static_cast<SInt16>(header.biWidth)};
    // All 256 entries of the colour table are to be there.
    std::vector<char> data(sizeof picture + sizeof header + 256 * 4);
    header.biClrUsed = 256;
    BlockMove(&picture, data.data(), sizeof picture);
    BlockMove(&header, data.data() + sizeof picture, sizeof header);
    BITMAPFILEHEADER head;
    BlockMove(*file, &head, sizeof head);
    Size colors = static_cast<Size>(head.bfOffBits) - static_cast<Size>(sizeof head + sizeof header);
    BlockMove(*file + sizeof head + sizeof header, data.data() + sizeof picture + sizeof header, colors);
    data.insert(data.end(), *file + head.bfOffBits, *file + GetHandleSize(file));
    DisposeHandle(file);
    Handle result = NewHandle(static_cast<Size>(data.size()));
    if (result)
        BlockMove(data.data(), *result, static_cast<Size>(data.size()));
    return result;
}

void add(const std::string &text, ResType type, SInt16 id, const std::string &name)
{
    Handle data = NewHandle(static_cast<Size>(text.size()));
    BlockMove(text.data(), *data, static_cast<Size>(text.size()));
    AddResource(data, type, id, PascalText(name));
}

bool saveGallery(const std::string &folder)
{
    std::string path = folder + "\\gallery.ini";
    DeleteFileA(path.c_str());
    SInt16 refNum = OpenResFile(PascalText(path));
    if (refNum < 0)
        return false;
    UseResFile(refNum);
    struct Small {
        const char *name;
        Drawing draw;
        SInt16 width, height;
    };
    static const Small smalls[] = {{"Rose", drawRose, 72, 72}, {"Hills", drawHills, 96, 64}};
    bool isDone = true;
    SInt16 id = 128;
    for (const Small &each : smalls) {
        std::string file = folder + "\\small.bmp";
        isDone = save(file, each.draw, each.width, each.height) && isDone;
        if (Handle picture = pictureOf(file))
            AddResource(picture, 'PICT', id++, PascalText(each.name));
        isDone = isDone && ResError() == noErr;
        DeleteFileA(file.c_str());
    }
    add("Two small pictures, and this line.", 'TEXT', 128, "About the gallery");
    add("\013Hello there", 'STR ', 128, "Greeting");
    CloseResFile(refNum);
    return isDone;
}

} // namespace

// The sampler's own parts that this program has no use for.
void showNotice(const std::string &)
{
}

int main(int count, char **values)
{
    char folder[MAX_PATH];
    if (count != 2 || !GetFullPathNameA(values[1], sizeof folder, folder, nullptr)) {
        fputs("usage: make-samples FOLDER\n", stderr);
        return 2;
    }
    HostKitOptions options = {};
    if (HostKitStart(&options) != noErr)
        return 1;
    std::string path = folder;
    bool isDone = save(path + "\\hills.bmp", drawHills, 420, 280) && save(path + "\\harbour.bmp", drawHarbour, 640, 420)
                  && save(path + "\\rose.bmp", drawRose, 400, 400) && save(path + "\\about.bmp", drawAbout, 240, 140)
                  && saveGallery(path);
    HostKitStop();
    return isDone ? 0 : 1;
}
