// Graphics when GDI refuses objects or memory is short: whatever is refused, nothing leaks, nothing
// crashes, and the next scene is drawn as ever.
#include "Graphics.h"
#include "Settings.h"

#include <win32/control.h>

#include <functional>
#include <optional>
#include <string>

namespace {

// Drawing into memory of the test's own, which is not refused.
class Canvas {
public:
    static constexpr int size = 16;

    Canvas()
    {
        BITMAPINFO description = {};
        description.bmiHeader = {sizeof description.bmiHeader, size, -size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void *memory = nullptr;
        context_ = CreateCompatibleDC(nullptr);
        bitmap_ = CreateDIBSection(context_, &description, DIB_RGB_COLORS, &memory, nullptr, 0);
        former_ = SelectObject(context_, bitmap_);
        pixels_ = static_cast<UInt32 *>(memory);
    }
    ~Canvas()
    {
        SelectObject(context_, former_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }

    HDC context() { return context_; }
    // As new, and without the brush of a port that stayed current.
    void reset()
    {
        SelectObject(context_, GetStockObject(WHITE_BRUSH));
        SelectClipRgn(context_, nullptr);
        SetWindowOrgEx(context_, 0, 0, nullptr);
    }
    void clear()
    {
        for (int i = 0; i < size * size; ++i)
            pixels_[i] = 0x112233;
    }
    std::string text() const
    {
        std::string rows;
        for (int y = 0; y < size; ++y, rows += '\n')
            for (int x = 0; x < size; ++x) {
                UInt32 pixel = pixels_[y * size + x] & 0xFFFFFF;
                rows += pixel == 0x112233 ? ' ' : pixel ? '.' : '#';
            }
        return rows;
    }

private:
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ former_;
    UInt32 *pixels_;
};

class GraphicsShortage : public testing::Test {
protected:
    // A purge size of 0 makes a creation final after 17 tries.
    GraphicsShortage() : main(0, 0, 100, 80), other(200, 0, 60, 60)
    {
        settings.emplace("PurgeBytesForExhaustedGDIObjects=0\r\n");
        hWndMain = main;
    }
    ~GraphicsShortage() override
    {
        Win32Control_Reset();
        hWndMain = nullptr;
        settings.reset();
        // Reads the usual settings again.
        InitGraf(nullptr);
        MTBX_ShutdownGraf();
    }

    // Draws a pattern through a clip and a moved origin.
    void draw(CGrafPtr port)
    {
        PixMap &map = pixMapOf(port);
        map.pmDC = canvas.context();
        map.pmPersistentDC = 1;
        port->portRect = ltrb(0, 0, Canvas::size, Canvas::size);
        MacSetPort(port);
        Rect clip = ltrb(2, 2, 12, 12);
        ClipRect(&clip);
        RgnHandle hole = NewRgn(), rest = NewRgn();
        if (hole && rest) {
            MacSetRectRgn(hole, 4, 4, 8, 8);
            GetClip(rest);
            DiffRgn(rest, hole, rest);
            SetClip(rest);
        }
        DisposeRgn(hole);
        DisposeRgn(rest);
        PenPat(&stripes);
        PatBlt(contextOf(port), 0, 0, Canvas::size, Canvas::size, PATCOPY);
        PenPat(&qd.black);
        SetOrigin(3, 3);
        MacSetPort(nullptr);
        map.pmDC = nullptr;
        canvas.reset();
    }

    // Where there is no first port the port is still current.
    static void leave(GrafPtr port)
    {
        MacSetPort(nullptr);
        if (qd.thePort == port)
            qd.thePort = nullptr;
    }

    void drawInWindow(WindowPtr window)
    {
        pixMapOf(window).pmWindow = other;
        SizeWindow(window, 60, 60, true);
        MacSetPort(window);
        PenPat(&stripes);
        PenMode(patXor);
        Rect corner = ltrb(44, 44, 60, 60);
        InvalWindowRect(window, &corner);
        BeginUpdate(window);
        ClipRect(&corner);
        DrawGrowIcon(window);
        EndUpdate(window);
        pixMapOf(window).pmWindow = nullptr;
    }

    void visitWindows()
    {
        Rect bounds = ltrb(0, 0, 60, 60);
        const UInt8 title[] = {1, 'w'};
        WindowPtr window = NewCWindow(nullptr, &bounds, title, false, documentProc, nullptr, false, 0);
        if (window)
            drawInWindow(window);
        GrafPtr desktop = nullptr;
        GetWMgrPort(&desktop);
        Point point = {30, 30};
        WindowPtr found = nullptr;
        MacFindWindow(point, &found);
        if (desktop)
            MacSetPort(desktop);
        DisposeWindow(window);
    }

    void visitBasicPort()
    {
        GrafPort basic;
        memset(&basic, 0x5A, sizeof basic);
        OpenPort(&basic);
        PenPat(&stripes);
        leave(&basic);
        ClosePort(&basic);
    }

    std::string scene()
    {
        canvas.clear();
        InitGraf(nullptr);
        CGrafPtr port = CreateNewPort();
        if (port && QDError() == 0)
            draw(port);
        DisposePort(port);
        visitWindows();
        visitBasicPort();
        MTBX_ShutdownGraf();
        return canvas.text();
    }

    void refuseEach(DWORD count, const std::function<void(DWORD)> &refuse)
    {
        std::string expected = scene();
        for (DWORD number = 1; number <= count; ++number) {
            DWORD objects = Win32Control_GdiObjects();
            UInt64 usage = MEM_GetMemUsage();
            refuse(number);
            scene();
            Win32Control_Reset();
            ASSERT_EQ(Win32Control_GdiObjects(), objects) << "refused " << number;
            ASSERT_EQ(MEM_GetMemUsage(), usage) << "refused " << number;
            ASSERT_EQ(scene(), expected) << "after " << number << " was refused";
        }
    }

    std::optional<Settings> settings;
    NativeWindow main, other;
    Canvas canvas;
};

TEST_F(GraphicsShortage, DrawsThroughClipAndPattern)
{
    EXPECT_EQ(scene(), "                \n"
                       "                \n"
                       "  ##....####    \n"
                       "  ..####....    \n"
                       "  ##    ####    \n"
                       "  ..    ....    \n"
                       "  ##    ####    \n"
                       "  ..    ....    \n"
                       "  ##....####    \n"
                       "  ..####....    \n"
                       "  ##....####    \n"
                       "  ..####....    \n"
                       "                \n"
                       "                \n"
                       "                \n"
                       "                \n");
}

TEST_F(GraphicsShortage, AnyRefusedGdiObjectIsSurvived)
{
    constexpr DWORD tries = 17;
    scene();
    Win32Control_RefuseGdiCreations(0, 0);
    scene();
    DWORD count = Win32Control_GdiCreationsCounted();
    ASSERT_GT(count, 20u);
    refuseEach(count, [](DWORD number) { Win32Control_RefuseGdiCreations(number, tries); });
    refuseEach(count, [](DWORD number) { Win32Control_RefuseGdiCreations(number, WIN32_WITHOUT_END); });
}

TEST_F(GraphicsShortage, AnyRefusedMemoryIsSurvived)
{
    auto refuse = [](DWORD first, DWORD count) {
        Win32Control_RefuseAllocations(WIN32_ALLOCATION_C_HEAP, first, count, 0);
    };
    scene();
    refuse(0, 0);
    scene();
    DWORD count = Win32Control_AllocationsCounted(WIN32_ALLOCATION_C_HEAP);
    ASSERT_GT(count, 20u);
    refuseEach(count, [&](DWORD number) { refuse(number, WIN32_WITHOUT_END); });
    refuseEach(count, [&](DWORD number) { refuse(number, 2); });
}

PortInMemory *hostsPort;

SInt32 drawInTheMidst(UInt64)
{
    Win32Control_Reset();
    GrafPtr former = nullptr;
    GetPort(&former);
    MacSetPort(hostsPort->port());
    PenPat(&qd.gray);
    MacSetPort(former);
    return 1;
}

TEST(DrawingHost, APatternThatIsSetInAShortageStaysTheOneAskedFor)
{
    NativeWindow main(0, 0, 100, 80);
    hWndMain = main;
    InitGraf(nullptr);
    PortInMemory port, other;
    hostsPort = &other;
    MacSetPort(port.port());
    SetGrowZoneEx(drawInTheMidst);
    Win32Control_RefuseGdiCreations(1, 2);
    PenPat(&stripes);
    SetGrowZoneEx(nullptr);
    Win32Control_Reset();
    PatBlt(port.context(), 0, 0, 8, 2, PATCOPY);
    EXPECT_EQ(port.pixel(0, 0), port.pixel(3, 0));
    EXPECT_EQ(port.pixel(4, 0), port.pixel(7, 0));
    EXPECT_NE(port.pixel(3, 0), port.pixel(4, 0));
    EXPECT_EQ(other.port()->pnPat, qd.gray) << "the host was asked";
    MacSetPort(nullptr);
    DisposePort(port.release());
    DisposePort(other.release());
    MTBX_ShutdownGraf();
    hWndMain = nullptr;
}

} // namespace
