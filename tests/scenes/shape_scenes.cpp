// Rectangles, ellipses, round rectangles and polygons.
#include "scenes.h"

namespace scenes {
namespace {

template <class Shape> void inAllWays(Canvas &canvas, Shape shape)
{
    canvas.brush(RGB(255, 0, 0));
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 0));
    shape(0, 0);
    canvas.noPen();
    shape(70, 0);
    SetROP2(canvas.dc(), R2_XORPEN);
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    shape(140, 0);
    SetROP2(canvas.dc(), R2_COPYPEN);
    canvas.noBrush();
    canvas.pen(PS_SOLID, 1, RGB(0, 255, 255));
    shape(0, 80);
    SetROP2(canvas.dc(), R2_NOTXORPEN);
    canvas.brush(RGB(0, 128, 0));
    canvas.noPen();
    shape(70, 80);
    SetROP2(canvas.dc(), R2_MASKPENNOT);
    canvas.pen(PS_INSIDEFRAME, 1, RGB(40, 80, 120));
    shape(140, 80);
}

void rectangles(Canvas &canvas)
{
    inAllWays(canvas, [&](int x, int y) {
        for (int i = 0; i < 6; ++i) {
            Rectangle(canvas.dc(), x + 2 + i * 10, y + 2, x + 4 + i * 11, y + 4 + i * 3);
            Rectangle(canvas.dc(), x + 60 - i * 9, y + 50 + i, x + 56 - i * 10, y + 30);
        }
        Rectangle(canvas.dc(), x - 20, y + 60, x + 30, y + 75);
    });
}

void smallEllipses(Canvas &canvas)
{
    canvas.brush(RGB(255, 0, 0));
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    int x = 1;
    for (int width = 6; width <= 18; ++width) {
        int y = 1;
        for (int height = 3; height <= 15; height += 2) {
            Ellipse(canvas.dc(), x, y, x + width, y + height);
            y += height + 2;
        }
        Ellipse(canvas.dc(), x, y, x + width, y + 17);
        Ellipse(canvas.dc(), x, y + 42, x + width, y + 42 + width);
        x += width + 1;
    }
}

// Their ends are drawn out to the box.
void narrowEllipses(Canvas &canvas)
{
    canvas.brush(RGB(255, 0, 0));
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    for (int width = 1; width <= 5; ++width)
        for (int height = 1; height <= 6; ++height) {
            Ellipse(canvas.dc(), width * 20, height * 23, width * 20 + width, height * 23 + height * 3);
            Ellipse(canvas.dc(), width * 20 + 100, height * 23, width * 20 + 100 + height, height * 23 + width);
        }
}

void ellipses(Canvas &canvas)
{
    inAllWays(canvas, [&](int x, int y) {
        Ellipse(canvas.dc(), x + 1, y + 1, x + 40, y + 60);
        Ellipse(canvas.dc(), x + 66, y + 40, x + 20, y + 20);
        Ellipse(canvas.dc(), x + 5, y + 62, x + 65, y + 75);
        Ellipse(canvas.dc(), x + 45, y + 2, x + 60, y + 16);
    });
}

void largeEllipses(Canvas &canvas)
{
    canvas.brush(RGB(0, 0, 255));
    canvas.pen(PS_SOLID, 1, RGB(255, 255, 255));
    Ellipse(canvas.dc(), -100, -80, 310, 240);
    Ellipse(canvas.dc(), 20, 10, 190, 150);
    canvas.brush(RGB(0, 255, 0));
    Ellipse(canvas.dc(), -1000, 60, 1200, 100);
    Ellipse(canvas.dc(), 80, -2000, 130, 2100);
}

void roundRectangles(Canvas &canvas)
{
    inAllWays(canvas, [&](int x, int y) {
        RoundRect(canvas.dc(), x + 1, y + 1, x + 30, y + 25, 10, 10);
        RoundRect(canvas.dc(), x + 32, y + 1, x + 65, y + 25, 7, 16);
        RoundRect(canvas.dc(), x + 1, y + 27, x + 30, y + 50, 2, 9);
        RoundRect(canvas.dc(), x + 32, y + 27, x + 65, y + 50, 100, 6);
        RoundRect(canvas.dc(), x + 30, y + 75, x + 1, y + 52, -9, 3);
        RoundRect(canvas.dc(), x + 32, y + 52, x + 65, y + 75, 40, 40);
    });
}

void polygons(Canvas &canvas)
{
    inAllWays(canvas, [&](int x, int y) {
        POINT star[] = {{x + 30, y + 2}, {x + 48, y + 50}, {x + 4, y + 18}, {x + 58, y + 18}, {x + 12, y + 50}};
        Polygon(canvas.dc(), star, 5);
        POINT slope[] = {{x + 2, y + 55}, {x + 60, y + 52}, {x + 66, y + 60}, {x + 10, y + 75}};
        Polygon(canvas.dc(), slope, 4);
        POINT line[] = {{x + 2, y + 70}, {x + 30, y + 78}};
        Polygon(canvas.dc(), line, 2);
    });
}

void randomPolygons(Canvas &canvas)
{
    Random random(4);
    for (int i = 0; i < 30; ++i) {
        SetPolyFillMode(canvas.dc(), i % 2 ? WINDING : ALTERNATE);
        POINT points[12];
        int count = random.between(3, 12);
        for (int k = 0; k < count; ++k)
            points[k] = {random.between(-50, 260), random.between(-50, 210)};
        canvas.brush(random.color());
        if (i % 3)
            canvas.noPen();
        else
            canvas.pen(PS_SOLID, 1, random.color());
        SetROP2(canvas.dc(), i % 4 ? R2_XORPEN : R2_COPYPEN);
        Polygon(canvas.dc(), points, count);
    }
}

void polyPolygons(Canvas &canvas)
{
    POINT points[] = {{10, 10},   {190, 10}, {190, 150}, {10, 150}, {40, 40}, {150, 30},
                      {100, 140}, {60, 60},  {200, 80},  {20, 100}, {90, 155}};
    INT counts[] = {4, 3, 4};
    canvas.brush(RGB(0, 255, 0));
    canvas.pen(PS_SOLID, 1, RGB(0, 0, 255));
    PolyPolygon(canvas.dc(), points, counts, 3);
    SetPolyFillMode(canvas.dc(), WINDING);
    SetROP2(canvas.dc(), R2_XORPEN);
    PolyPolygon(canvas.dc(), points + 4, counts + 1, 2);
}

void clippedShapes(Canvas &canvas)
{
    HRGN clip = CreateRectRgn(0, 0, 0, 0);
    for (int i = 0; i < 9; ++i) {
        HRGN part = CreateEllipticRgn(i % 3 * 70, i / 3 * 53, i % 3 * 70 + 65, i / 3 * 53 + 50);
        CombineRgn(clip, clip, part, RGN_OR);
        DeleteObject(part);
    }
    SelectClipRgn(canvas.dc(), clip);
    DeleteObject(clip);
    canvas.brush(RGB(255, 128, 0));
    canvas.pen(PS_SOLID, 1, RGB(0, 0, 0));
    Ellipse(canvas.dc(), 30, 20, 180, 140);
    Rectangle(canvas.dc(), 5, 5, 100, 60);
    RoundRect(canvas.dc(), 90, 60, 205, 155, 30, 40);
    POINT kite[] = {{100, 0}, {209, 80}, {100, 159}, {0, 80}};
    SetROP2(canvas.dc(), R2_XORPEN);
    Polygon(canvas.dc(), kite, 4);
}

} // namespace

std::vector<Scene> shapeScenes()
{
    return {{"shapes: rectangles", Agreement::Exact, rectangles},
            {"shapes: small ellipses", Agreement::Exact, smallEllipses},
            {"shapes: narrow ellipses", Agreement::Own, narrowEllipses},
            {"shapes: ellipses", Agreement::Exact, ellipses},
            {"shapes: large ellipses", Agreement::Near, largeEllipses},
            {"shapes: round rectangles", Agreement::Exact, roundRectangles},
            {"shapes: polygons", Agreement::Exact, polygons},
            {"shapes: random polygons", Agreement::Exact, randomPolygons},
            {"shapes: polygons of several parts", Agreement::Exact, polyPolygons},
            {"shapes: clipped", Agreement::Exact, clippedShapes}};
}

} // namespace scenes
