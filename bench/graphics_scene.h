// Graphics on a main window, started once and in use until the program ends.
#pragma once

#include <mtbx/MTBX.h>

namespace bench {

inline HWND newWindow(int x)
{
    static const ATOM windowClass = [] {
        WNDCLASSA description = {};
        description.lpfnWndProc = DefWindowProcA;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "MtbxBenchWindow";
        return RegisterClassA(&description);
    }();
    HWND window = CreateWindowExA(0, MAKEINTATOM(windowClass), "", WS_POPUP, x, 0, 200, 200, nullptr, nullptr,
                                  GetModuleHandleA(nullptr), nullptr);
    ShowWindow(window, SW_SHOWNA);
    return window;
}

inline void useGraphics()
{
    static const bool isStarted = [] {
        hWndMain = newWindow(0);
        InitGraf(nullptr);
        return true;
    }();
    static_cast<void>(isStarted);
}

// A port that draws into memory: 32 bits a pixel, 1920 by 1080.
struct MemoryPort {
    static constexpr SInt16 width = 1920, height = 1080;

    MemoryPort()
    {
        useGraphics();
        port = CreateNewPort();
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        PixMap &map = **port->portPixMap;
        map.pmDC = CreateCompatibleDC(nullptr);
        map.pmBitmap = CreateDIBSection(map.pmDC, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        map.pmOldBitmap = static_cast<HBITMAP>(SelectObject(map.pmDC, map.pmBitmap));
        map.pmPersistentDC = 1;
        port->portRect = {0, 0, height, width};
    }

    CGrafPtr port;
    void *bits = nullptr;
};

inline MemoryPort &memoryPort()
{
    static MemoryPort only;
    return only;
}

// Makes it current, with a pen as new; its context.
inline HDC useMemoryPort()
{
    CGrafPtr port = memoryPort().port;
    MacSetPort(port);
    PenNormal();
    return (*port->portPixMap)->pmDC;
}

} // namespace bench
