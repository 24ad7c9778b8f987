// The graphics layer started on a main window, and ports of the tests' own.
#pragma once

#include "Rectangles.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

inline bool operator==(Point a, Point b)
{
    return a.h == b.h && a.v == b.v;
}
inline void PrintTo(Point p, std::ostream *out)
{
    *out << "h " << p.h << " v " << p.v;
}
inline bool operator==(const RGBColor &a, const RGBColor &b)
{
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}
inline void PrintTo(const RGBColor &c, std::ostream *out)
{
    *out << c.red << ", " << c.green << ", " << c.blue;
}
inline bool operator==(const Pattern &a, const Pattern &b)
{
    return memcmp(&a, &b, sizeof a) == 0;
}
inline void PrintTo(const Pattern &p, std::ostream *out)
{
    for (int byte : p.pat)
        *out << std::hex << byte << " " << std::dec;
}

constexpr Pattern stripes = {{0x0F, 0xF0, 0x0F, 0xF0, 0x0F, 0xF0, 0x0F, 0xF0}};

// A window without a frame, on top of the screen.
class NativeWindow {
public:
    NativeWindow(int x, int y, int width, int height)
        : handle_(CreateWindowExA(WS_EX_TOPMOST, registeredClass(), "", WS_POPUP, x, y, width, height, nullptr, nullptr,
                                  GetModuleHandleA(nullptr), nullptr))
    {
        // An active window would take seconds to destroy under Wine.
        ShowWindow(handle_, SW_SHOWNA);
    }
    ~NativeWindow() { close(); }
    NativeWindow(const NativeWindow &) = delete;
    NativeWindow &operator=(const NativeWindow &) = delete;

    operator HWND() const { return handle_; }
    void close()
    {
        if (IsWindow(handle_))
            DestroyWindow(handle_);
    }

private:
    static const char *registeredClass()
    {
        static const char *name = "MtbxTestWindow";
        WNDCLASSA description = {};
        description.lpfnWndProc = DefWindowProcA;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = name;
        RegisterClassA(&description);
        return name;
    }

    HWND handle_;
};

class Graphics : public testing::Test {
protected:
    Graphics() : mainWindow(100, 60, 320, 240)
    {
        hWndMain = mainWindow;
        InitGraf(&qd.thePort);
    }
    ~Graphics() override
    {
        MTBX_ShutdownGraf();
        hWndMain = nullptr;
    }

    NativeWindow mainWindow;
};

inline PixMap &pixMapOf(CGrafPtr port)
{
    return **GetPortPixMap(port);
}

inline HDC contextOf(CGrafPtr port)
{
    return pixMapOf(port).pmDC;
}

inline Rect clipBoxOf(HDC context)
{
    RECT box;
    return GetClipBox(context, &box) == NULLREGION ? Rect{} : ltrb(box.left, box.top, box.right, box.bottom);
}

// A window's port, with its native window a sibling of the main one.
class PortWindow {
public:
    explicit PortWindow(const Rect &bounds)
        : native(bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top)
    {
        OpenCPort(port());
        port()->portRect = {0, 0, static_cast<SInt16>(bounds.bottom - bounds.top),
                            static_cast<SInt16>(bounds.right - bounds.left)};
        RectRgn(port()->visRgn, &port()->portRect);
        pixMapOf(port()).pmWindow = native;
    }
    ~PortWindow()
    {
        if (qd.thePort == port())
            MacSetPort(nullptr);
        CloseCPort(port());
    }

    CGrafPtr port() { return &record.port; }
    HDC context() { return contextOf(port()); }

    NativeWindow native;
    WindowRecord record{};
};

// A port that draws into memory: bits of its own, one 32-bit word a pixel.
class PortInMemory {
public:
    explicit PortInMemory(SInt16 width = 64, SInt16 height = 64)
        : port_(CreateNewPort()), width_(width), height_(height)
    {
        BITMAPINFO description = {};
        description.bmiHeader.biSize = sizeof description.bmiHeader;
        description.bmiHeader.biWidth = width;
        description.bmiHeader.biHeight = -height;
        description.bmiHeader.biPlanes = 1;
        description.bmiHeader.biBitCount = 32;
        PixMap &map = pixMapOf(port_);
        map.pmDC = CreateCompatibleDC(nullptr);
        map.pmBitmap = CreateDIBSection(map.pmDC, &description, DIB_RGB_COLORS, &bits_, nullptr, 0);
        map.pmOldBitmap = static_cast<HBITMAP>(SelectObject(map.pmDC, map.pmBitmap));
        map.pmPersistentDC = 1;
        port_->portRect = {0, 0, height, width};
    }
    ~PortInMemory() { DisposePort(port_); }
    PortInMemory(const PortInMemory &) = delete;
    PortInMemory &operator=(const PortInMemory &) = delete;

    CGrafPtr port() { return port_; }
    CGrafPtr release() { return std::exchange(port_, nullptr); }
    HDC context() { return contextOf(port_); }
    void *bits() { return bits_; }
    // 0x00RRGGBB, at the place in the bitmap.
    UInt32 pixel(int x, int y)
    {
        GdiFlush();
        return static_cast<UInt32 *>(bits_)[y * width_ + x] & 0xFFFFFF;
    }
    void clear(UInt32 color = 0)
    {
        GdiFlush();
        for (int i = 0; i < width_ * height_; ++i)
            static_cast<UInt32 *>(bits_)[i] = color;
    }

private:
    CGrafPtr port_;
    SInt16 width_, height_;
    void *bits_ = nullptr;
};
