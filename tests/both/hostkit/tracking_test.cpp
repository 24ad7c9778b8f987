// The mouse in frames, and what follows it: dragging, growing, boxes, outlines, and the program's share meanwhile.
#include "HostKitTest.h"

#include <algorithm>

namespace {

using Names = std::vector<std::string>;

class HostKitTracking : public HostKitTest {
protected:
    HostKitTracking() { current() = this; }
    ~HostKitTracking() override { current() = nullptr; }

    SInt16 partAt(Point where, WindowPtr expected)
    {
        WindowPtr found = nullptr;
        SInt16 part = HostKitFindWindow(where, &found);
        EXPECT_EQ(found, expected);
        return part;
    }
    // Moves the window by its title.
    void drag(WindowPtr window, SInt16 h, SInt16 v, const Rect *bounds = nullptr)
    {
        Point start = inTitleOf(window);
        EventRecord press = pressAt(start);
        EXPECT_EQ(partAt(press.where, window), inDrag);
        Point end = {static_cast<SInt16>(start.v + v), static_cast<SInt16>(start.h + h)};
        Point middle = {static_cast<SInt16>(start.v + v / 2), static_cast<SInt16>(start.h + h / 2)};
        whileDragging({middle, end}, [&] { HostKitDragWindow(window, press.where, bounds); });
    }

    // What the event procedure does, and how often it was called.
    std::vector<std::string> seen;
    WindowPtr victim = nullptr;
    bool takesEvents = false;

    void watch()
    {
        HostKitSetEventProc([](const EventRecord *event) {
            HostKitTracking &test = *current();
            test.seen.push_back(nameOf(*event));
            serve(*event);
            EventRecord other;
            if (test.takesEvents)
                HostKitWaitNextEvent(everyEvent, &other, 1, nullptr);
            if (WindowPtr gone = std::exchange(test.victim, nullptr))
                DisposeWindow(gone);
        });
    }

private:
    static HostKitTracking *&current()
    {
        static HostKitTracking *test;
        return test;
    }
};

TEST_F(HostKitTracking, FindsThePartsOfAFrame)
{
    WindowPtr window = open(ltrb(100, 100, 300, 250), zoomDocProc), dialog = open(ltrb(320, 100, 420, 150), dBoxProc);
    HostKitSelectWindow(window);
    EXPECT_EQ(partAt({150, 150}, window), inContent);
    EXPECT_EQ(partAt(inTitleOf(window), window), inDrag);
    EXPECT_EQ(partAt(pointOf(window, HTCLOSE), window), inGoAway);
    EXPECT_EQ(partAt(pointOf(window, HTMAXBUTTON), window), inZoomOut);
    EXPECT_EQ(partAt({175, static_cast<SInt16>(structureOf(window).right - 1)}, window), inGrow);
    EXPECT_EQ(partAt({245, 295}, window), inGrow);
    EXPECT_EQ(partAt({125, 319}, dialog), inContent) << "a dialog cannot be dragged by its edge";
    EXPECT_EQ(partAt({400, 500}, nullptr), inDesk);
    HostKitSelectWindow(dialog);
    EXPECT_EQ(partAt({245, 295}, window), inContent) << "the size box of a window that is not active selects it";
}

TEST_F(HostKitTracking, MovesAWindowWithinBounds)
{
    WindowPtr window = open(ltrb(100, 100, 200, 160));
    drain();
    drag(window, 40, 30);
    EXPECT_EQ(contentOf(window), ltrb(140, 130, 240, 190));
    EXPECT_EQ(reinterpret_cast<Rect *>(*recordOf(window).dataHandle)[0], contentOf(window));
    Rect bounds = ltrb(4, 24, 250, 250);
    drag(window, 200, 20, &bounds);
    Rect content = contentOf(window);
    EXPECT_TRUE(content.left > 140 && content.left < 260) << content.left;
    EXPECT_EQ(GetCapture(), nullptr);
    // A quick hand has let go before the program looks.
    Point start = inTitleOf(window);
    EventRecord press = pressAt(start);
    moveTo({static_cast<SInt16>(start.v + 10), static_cast<SInt16>(start.h - 60)});
    mouse().releaseButton();
    HostKitDragWindow(window, press.where, nullptr);
    EXPECT_EQ(contentOf(window).left, content.left - 60);
}

TEST_F(HostKitTracking, SizesAWindowWithAMovedOrigin)
{
    WindowPtr window = open(ltrb(100, 100, 300, 250));
    drain();
    MacSetPort(window);
    SetOrigin(-50, 70);
    Rect limits = ltrb(80, 60, 260, 400);
    EventRecord press = pressAt({245, 295});
    EXPECT_EQ(partAt(press.where, window), inGrow);
    SInt32 size = 0;
    whileDragging({{255, 310}, {275, 335}}, [&] { size = HostKitGrowWindow(window, press.where, &limits); });
    EXPECT_EQ(size, 180 << 16 | 240);
    EXPECT_EQ(Rect(window->portRect), ltrb(-50, 70, 190, 250));
    press = pressAt({275, 335});
    whileDragging({{500, 500}}, [&] { size = HostKitGrowWindow(window, press.where, &limits); });
    EXPECT_NEAR(size & 0xFFFF, 260, 1);
    Point corner = {70, -50};
    MacSetPort(window);
    LocalToGlobal(&corner);
    EXPECT_TRUE(corner.h == 100 && corner.v == 100);
    press = pressAt(pointOf(window, HTCAPTION));
    release();
    EXPECT_EQ(HostKitGrowWindow(window, press.where, &limits), 0);
}

TEST_F(HostKitTracking, PressesABoxUntilTheButtonIsReleased)
{
    WindowPtr window = open(ltrb(100, 100, 300, 250), zoomDocProc);
    drain();
    Point box = pointOf(window, HTCLOSE), zoom = pointOf(window, HTMAXBUTTON);
    auto track = [&](Point at, std::vector<Point> path, auto call) {
        EventRecord press = pressAt(at);
        Boolean result = false;
        whileDragging(path, [&] { result = call(press.where); });
        return result != 0;
    };
    auto goAway = [&](Point where) { return HostKitTrackGoAway(window, where); };
    EXPECT_TRUE(track(box, {box}, goAway));
    EXPECT_FALSE(track(box, {box, {200, 200}}, goAway));
    EXPECT_TRUE(track(box, {{200, 200}, box}, goAway));
    EXPECT_TRUE(track(zoom, {zoom}, [&](Point where) { return HostKitTrackBox(window, where, inZoomOut); }));
    EXPECT_EQ(contentOf(window), ltrb(100, 100, 300, 250)) << "zooming is the program's";
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(HostKitTracking, LetsTheProgramDrawMeanwhile)
{
    WindowPtr below = open(ltrb(60, 90, 360, 300)), above = open(ltrb(100, 130, 250, 200));
    SetWRefCon(below, 1);
    SetWRefCon(above, 2);
    drain();
    watch();
    MacSetPort(above);
    drag(above, 60, 50);
    EXPECT_TRUE(std::find(seen.begin(), seen.end(), "update 1") != seen.end());
    EXPECT_EQ(qd.thePort, above);
    EXPECT_EQ(drain(), Names{}) << "what was drawn is not asked for again";
    seen.clear();
    EnableWindow(hWndMain, FALSE);
    InvalWindowRect(above, &above->portRect);
    UpdateWindow(nativeOf(above));
    EnableWindow(hWndMain, TRUE);
    EXPECT_EQ(seen, Names{"update 2"}) << "a dialog of the system's is such a loop, too";
    HostKitSetEventProc(nullptr);
    drag(above, -60, -50);
    EXPECT_EQ(drain(), Names{"update 1"}) << "without a procedure it waits";
}

TEST_F(HostKitTracking, SurvivesAWindowThatGoesWhileItIsDragged)
{
    for (bool isGrown : {false, true}) {
        WindowPtr below = open(ltrb(60, 90, 400, 300)), above = open(ltrb(100, 130, 250, 200));
        drain();
        watch();
        victim = above;
        if (isGrown) {
            EventRecord press = pressAt({195, 245});
            SInt32 size = 1;
            whileDragging({{180, 200}, {160, 180}}, [&] { size = HostKitGrowWindow(above, press.where, nullptr); });
            EXPECT_EQ(size, 0);
        } else {
            drag(above, 60, 50);
        }
        EXPECT_EQ(victim, nullptr);
        EXPECT_EQ(HostKitFrontWindow(), below);
        EXPECT_EQ(GetCapture(), nullptr);
        EXPECT_TRUE(std::find(seen.begin(), seen.end(), "activate 0") != seen.end());
        EXPECT_EQ(drain(activMask), Names{});
        seen.clear();
        InvalWindowRect(below, &below->portRect);
        drain();
        EXPECT_TRUE(seen.empty()) << "the system's loop is over";
        dispose(below);
    }
}

TEST_F(HostKitTracking, GoesOnWhenTheProgramTakesEventsMeanwhile)
{
    WindowPtr below = open(ltrb(60, 90, 400, 300)), above = open(ltrb(100, 130, 250, 200));
    SetWRefCon(below, 1);
    SetWRefCon(above, 2);
    drain();
    watch();
    takesEvents = true;
    drag(above, 60, 50);
    EXPECT_FALSE(seen.empty());
    EXPECT_EQ(contentOf(above), ltrb(160, 180, 310, 250));
}

TEST_F(HostKitTracking, DragsAnOutline)
{
    WindowPtr window = open(ltrb(100, 100, 300, 250));
    drain();
    MacSetPort(window);
    RgnHandle region = NewRgn();
    MacSetRectRgn(region, 10, 10, 40, 30);
    static int steps;
    steps = 0;
    Rect limit = ltrb(0, 0, 100, 100), slop = ltrb(-20, -20, 150, 120);
    auto dragTo = [&](Point local, SInt16 axis) {
        LocalToGlobal(&local);
        pressAt({120, 120});
        SInt32 moved = 0;
        whileDragging({{125, 130}, local}, [&] {
            moved = HostKitDragGrayRgn(region, {20, 20}, &limit, &slop, axis, [] { ++steps; });
        });
        return moved;
    };
    EXPECT_EQ(dragTo({50, 60}, 0), 30 << 16 | 40);
    EXPECT_EQ(dragTo({50, 60}, 1), 40);
    EXPECT_EQ(dragTo({50, 60}, 2), 30 << 16);
    EXPECT_EQ(dragTo({110, 140}, 0), 80 << 16 | 80);
    EXPECT_EQ(dragTo({140, 60}, 0), static_cast<SInt32>(0x80008000));
    EXPECT_GT(steps, 5);
    HDC context = GetDC(nativeOf(window));
    for (int x = 0; x < 60; ++x)
        ASSERT_EQ(GetPixel(context, x, 10), RGB(255, 255, 255)) << "the outline is gone";
    ReleaseDC(nativeOf(window), context);
    DisposeRgn(region);
}

} // namespace
