// Windows: moving one over many with all that must be painted, making and disposing of many, an idle event loop,
// and messages.
#include "pairs.h"

#include <mtbx/MTBX.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

LRESULT CALLBACK paintedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        HDC context = BeginPaint(window, &paint);
        FillRect(context, &paint.rcPaint, static_cast<HBRUSH>(GetStockObject(LTGRAY_BRUSH)));
        TextOutA(context, 10, 10, "Text in a window", 16);
        EndPaint(window, &paint);
        return 0;
    }
    if (message == WM_APP)
        return static_cast<LRESULT>(wParam) + lParam;
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND newPaintedWindow(DWORD style, int x, int y, int width, int height, HWND owner)
{
    static const ATOM registered = [] {
        WNDCLASSA description = {};
        description.lpfnWndProc = paintedProcedure;
        description.hInstance = GetModuleHandleA(nullptr);
        description.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
        description.lpszClassName = "MtbxPaintedWindow";
        return RegisterClassA(&description);
    }();
    return CreateWindowExA(0, MAKEINTATOM(registered), "A window", style, x, y, width, height, owner, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

void drain()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

// A main window with graphics on it, until the end of the benchmark.
struct Scene {
    Scene() : formerMain(hWndMain)
    {
        main = newPaintedWindow(WS_POPUP | WS_VISIBLE, 0, 0, 1024, 768, nullptr);
        hWndMain = main;
        InitGraf(nullptr);
    }
    ~Scene()
    {
        MTBX_ShutdownGraf();
        DestroyWindow(main);
        drain();
        hWndMain = formerMain;
        if (formerMain)
            InitGraf(nullptr);
    }

    HWND formerMain, main;
};

// A 600 by 400 window moves over 20 others; everything uncovered is painted before the next move.
void moveOverWindows(benchmark::State &state)
{
    Scene scene;
    constexpr DWORD frame = WS_POPUP | WS_CAPTION | WS_THICKFRAME | WS_VISIBLE;
    for (int i = 0; i < 20; ++i)
        newPaintedWindow(frame, 20 * i, 15 * i, 400, 300, scene.main);
    HWND moving = newPaintedWindow(frame, 0, 0, 600, 400, scene.main);
    drain();
    int step = 0;
    for (auto _ : state) {
        ++step;
        SetWindowPos(moving, nullptr, step * 7 % 400, step * 5 % 300, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        drain();
    }
}

// Records with their native windows, as a host makes and disposes of them. The oldest goes first, which is the
// worst order: the window list is a list of the host's too, so the one that goes is looked for from its head. The
// quota of graphics objects allows for some 2000 windows.
void thousandWindows(benchmark::State &state)
{
    Scene scene;
    const auto count = static_cast<size_t>(state.range(0));
    constexpr Rect bounds = {20, 20, 220, 320};
    const UInt8 title[] = {1, 'w'};
    std::vector<WindowPtr> windows(count);
    for (auto _ : state) {
        for (WindowPtr &window : windows) {
            window = NewCWindow(nullptr, &bounds, title, true, documentProc, nullptr, true, 0);
            HWND native = newPaintedWindow(WS_POPUP | WS_CAPTION, 20, 20, 300, 200, scene.main);
            (*GetPortPixMap(window))->pmWindow = native;
            SetHwndMacWindowPtr(native, window);
            AdjustWindow(window);
        }
        for (WindowPtr window : windows)
            DisposeWindow(window);
        drain();
    }
}

void nothingPending(benchmark::State &state)
{
    Scene scene;
    drain();
    EventRecord event;
    for (auto _ : state)
        benchmark::DoNotOptimize(WaitNextEvent(everyEvent, &event, 0, nullptr));
}

void postPeekDispatch(benchmark::State &state)
{
    Scene scene;
    drain();
    for (auto _ : state) {
        MSG message;
        PostMessageA(scene.main, WM_APP, 1, 2);
        PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);
        benchmark::DoNotOptimize(DispatchMessageA(&message));
    }
}

void sendMessage(benchmark::State &state)
{
    Scene scene;
    for (auto _ : state)
        benchmark::DoNotOptimize(SendMessageA(scene.main, WM_APP, 1, 2));
}

[[maybe_unused]] const bool targets[] = {
    pairs::within("a 600 by 400 window moved over 20", 5e6),
    pairs::within("1000 windows made and disposed of", 50e6),
    pairs::ratio("1600 / 400 windows made and disposed of", 8),
    pairs::within("WaitNextEvent, nothing pending", 1000),
    pairs::within("PostMessage, PeekMessage, DispatchMessage", 250),
    pairs::within("SendMessage", 80),
};

BENCHMARK(moveOverWindows)->Name("a 600 by 400 window moved over 20/ours");
BENCHMARK(thousandWindows)->Name("1000 windows made and disposed of/ours")->Arg(1000);
BENCHMARK(thousandWindows)->Name("1600 / 400 windows made and disposed of/ours")->Arg(1600);
BENCHMARK(thousandWindows)->Name("1600 / 400 windows made and disposed of/reference")->Arg(400);
BENCHMARK(nothingPending)->Name("WaitNextEvent, nothing pending/ours");
BENCHMARK(postPeekDispatch)->Name("PostMessage, PeekMessage, DispatchMessage/ours");
BENCHMARK(sendMessage)->Name("SendMessage/ours");

} // namespace
