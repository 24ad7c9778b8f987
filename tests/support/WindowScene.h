// Windows within a window, changed at random, beside a slow account of what each point of the screen shows.
#pragma once

#include <windows.h>

#include <cstdint>
#include <random>
#include <vector>

// A client area is painted in a colour of the window's own, with a grid that begins at its corner.
class WindowScene {
public:
    static constexpr int width = 120, height = 90, gridStep = 8;

    // Who shows at a point, and which point of its client area that is. Null: the frame that holds the scene.
    struct Shown {
        HWND window;
        int x, y;
        bool operator==(const Shown &) const = default;
    };
    using Picture = std::vector<Shown>; // row by row

    explicit WindowScene(unsigned seed) : random_(seed)
    {
        WNDCLASSA description{};
        description.lpfnWndProc = procedure;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = className;
        RegisterClassA(&description);
        frame_ = make(WS_POPUP | WS_VISIBLE, nullptr, {40, 30, 40 + width, 30 + height});
        for (int i = 0; i < 8; ++i)
            addWindow();
        settle();
    }
    ~WindowScene()
    {
        DestroyWindow(frame_);
        drain();
        UnregisterClassA(className, GetModuleHandleA(nullptr));
    }
    WindowScene(const WindowScene &) = delete;
    WindowScene &operator=(const WindowScene &) = delete;

    // Serves all that is to be painted.
    static void settle() { drain(); }

    // One change; `moved` becomes the window that moved and by how much, for changes that move pixels along.
    struct Change {
        const char *name;
        HWND moved = nullptr;
        int x = 0, y = 0;
    };
    Change change()
    {
        HWND window = any();
        RECT rect;
        GetWindowRect(window, &rect);
        MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT *>(&rect), 2);
        constexpr UINT still = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
        switch (number(0, 6)) {
        case 0:
        case 1: {
            int x = number(-30, 30), y = number(-30, 30);
            SetWindowPos(window, nullptr, rect.left + x, rect.top + y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
            return {"move", window, x, y};
        }
        case 2:
            SetWindowPos(window, nullptr, 0, 0, number(1, 60), number(1, 45), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
            return {"size"};
        case 3:
            ShowWindow(window, GetWindowLongA(window, GWL_STYLE) & WS_VISIBLE ? SW_HIDE : SW_SHOWNA);
            return {"show or hide"};
        case 4: {
            HWND other = any();
            bool areSiblings = other != window && GetParent(other) == GetParent(window);
            SetWindowPos(window, areSiblings ? other : HWND_TOP, 0, 0, 0, 0, still);
            return {"order"};
        }
        case 5:
            SetWindowPos(window, HWND_BOTTOM, 0, 0, 0, 0, still);
            return {"to the bottom"};
        default:
            if (windows_.size() > 6 && number(0, 2) == 0) {
                DestroyWindow(window);
                std::erase_if(windows_, [](HWND each) { return !IsWindow(each); });
                return {"end"};
            }
            if (windows_.size() < 12)
                addWindow();
            return {"begin"};
        }
    }

    // What should show at each point.
    Picture expected() const
    {
        Standing frame = standing(frame_);
        POINT origin = {frame.rect.left, frame.rect.top};
        Picture picture;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                picture.push_back(shownAt(frame, {origin.x + x, origin.y + y}));
        return picture;
    }

    // What does show: 0x00RRGGBB.
    std::vector<uint32_t> pixels() const
    {
        HDC context = GetDCEx(frame_, nullptr, DCX_CACHE);
        HDC memory = CreateCompatibleDC(context);
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void *bits = nullptr;
        HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        HGDIOBJ former = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, width, height, context, 0, 0, SRCCOPY);
        GdiFlush();
        std::vector<uint32_t> result(static_cast<uint32_t *>(bits), static_cast<uint32_t *>(bits) + width * height);
        for (uint32_t &pixel : result)
            pixel &= 0xFFFFFF;
        SelectObject(memory, former);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(frame_, context);
        return result;
    }

    static uint32_t seedOf(HWND window) { return static_cast<uint32_t>(GetWindowLongPtrA(window, GWLP_USERDATA)); }
    static uint32_t colorOf(const Shown &shown) { return colorOf(seedOf(shown.window), shown); }
    static uint32_t colorOf(uint32_t seed, const Shown &shown)
    {
        bool isGrid = shown.x % gridStep == 0 || shown.y % gridStep == 0;
        return isGrid ? seed * 0x010305u & 0xFFFFFF : seed * 0x30F0Bu & 0xFFFFFF;
    }

    const std::vector<HWND> &windows() const { return windows_; }
    HWND frame() const { return frame_; }
    bool isMovedBy(HWND window, HWND moved) const { return moved && (window == moved || IsChild(moved, window)); }

private:
    static constexpr const char *className = "Scene window";

    static void drain()
    {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }

    static HBRUSH brushOf(HWND window, int x)
    {
        uint32_t color = colorOf({window, x, x});
        return CreateSolidBrush(RGB(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF));
    }

    static void paint(HWND window)
    {
        PAINTSTRUCT paint;
        HDC context = BeginPaint(window, &paint);
        RECT all;
        GetClientRect(window, &all);
        HBRUSH plain = brushOf(window, 1), grid = brushOf(window, 0);
        FillRect(context, &all, plain);
        for (int place = 0; place < width; place += gridStep) {
            RECT row{0, place, all.right, place + 1}, column{place, 0, place + 1, all.bottom};
            FillRect(context, &row, grid);
            FillRect(context, &column, grid);
        }
        DeleteObject(plain);
        DeleteObject(grid);
        EndPaint(window, &paint);
    }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_ERASEBKGND)
            return 1;
        if (message != WM_PAINT)
            return DefWindowProcA(window, message, wParam, lParam);
        paint(window);
        return 0;
    }

    HWND make(DWORD style, HWND parent, const RECT &rect)
    {
        HWND window = CreateWindowExA(0, className, "", style | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, rect.left, rect.top,
                                      rect.right - rect.left, rect.bottom - rect.top, parent, nullptr, GetModuleHandleA(nullptr),
                                      nullptr);
        SetWindowLongPtrA(window, GWLP_USERDATA, ++lastSeed_);
        return window;
    }
    void addWindow()
    {
        HWND parent = windows_.empty() || number(0, 2) ? frame_ : any();
        int x = number(-10, width - 10), y = number(-10, height - 10);
        windows_.push_back(make(WS_CHILD | WS_VISIBLE, parent, {x, y, x + number(5, 60), y + number(5, 45)}));
    }

    int number(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }
    HWND any() { return windows_[static_cast<size_t>(number(0, static_cast<int>(windows_.size()) - 1))]; }

    // A window as it stands on the screen, with its visible children from the topmost on. None has a frame.
    struct Standing {
        HWND window;
        RECT rect;
        std::vector<Standing> children;
    };
    static Standing standing(HWND window)
    {
        Standing result{window, {}, {}};
        GetWindowRect(window, &result.rect);
        for (HWND child = GetTopWindow(window); child; child = GetWindow(child, GW_HWNDNEXT))
            if (GetWindowLongA(child, GWL_STYLE) & WS_VISIBLE)
                result.children.push_back(standing(child));
        return result;
    }
    static Shown shownAt(const Standing &standing, POINT point)
    {
        for (const Standing &child : standing.children)
            if (PtInRect(&child.rect, point))
                return shownAt(child, point);
        return {standing.window, static_cast<int>(point.x - standing.rect.left), static_cast<int>(point.y - standing.rect.top)};
    }

    std::mt19937 random_;
    HWND frame_ = nullptr;
    std::vector<HWND> windows_;
    LONG lastSeed_ = 0;
};
