// A program for replays: a window with documents in it, which are windows with captions, as many as wanted.
//
// N opens a document, W closes the one in front. A drag with the left button in a document asks for the mouse again and
// again, with the right one it reads messages; the main window's title then tells how many places were seen.
#include <windows.h>

#include <set>
#include <string>
#include <utility>

namespace {

constexpr int step = 20, width = 240, height = 160;
HWND mainWindow;
int openedCount;

HWND frontDocument()
{
    return GetWindow(mainWindow, GW_CHILD);
}

void openDocument()
{
    int place = openedCount++ % 10;
    std::string title = "Document " + std::to_string(openedCount);
    HWND window = CreateWindowExA(0, "Document", title.c_str(),
                                  WS_CHILD | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | WS_CLIPSIBLINGS, step * place,
                                  step * place, width, height, mainWindow, nullptr, GetModuleHandleA(nullptr), nullptr);
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    UpdateWindow(window);
}

// Windows may lose a place when much goes on.
void tellSeen(size_t count)
{
    SetWindowTextA(mainWindow, ("Seen about " + std::to_string((count + 5) / 10 * 10)).c_str());
}

// Where the mouse was, each place once: Windows may tell an earlier one again.
using Places = std::set<std::pair<LONG, LONG>>;

void followMouse()
{
    Places places;
    while (GetAsyncKeyState(VK_LBUTTON) & 0x8000) {
        POINT point;
        GetCursorPos(&point);
        places.insert({point.x, point.y});
    }
    tellSeen(places.size());
}

void followMessages(HWND window)
{
    Places places;
    SetCapture(window);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0 && message.message != WM_RBUTTONUP) {
        if (message.message == WM_MOUSEMOVE)
            places.insert({message.pt.x, message.pt.y});
        DispatchMessageA(&message);
    }
    ReleaseCapture();
    tellSeen(places.size());
}

LRESULT CALLBACK documentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_LBUTTONDOWN: followMouse(); return 0;
    case WM_RBUTTONDOWN: followMessages(window); return 0;
    case WM_NCLBUTTONDOWN: SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); break;
    default: break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK mainProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_KEYDOWN:
        if (wParam == 'N')
            openDocument();
        else if (wParam == 'W')
            DestroyWindow(frontDocument());
        return 0;
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

void registerClass(LPCSTR name, WNDPROC procedure, int color)
{
    WNDCLASSA description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.hbrBackground = GetSysColorBrush(color);
    description.lpszClassName = name;
    RegisterClassA(&description);
}

} // namespace

int main()
{
    registerClass("Documents", mainProcedure, COLOR_APPWORKSPACE);
    registerClass("Document", documentProcedure, COLOR_WINDOW);
    mainWindow = CreateWindowExA(0, "Documents", "Documents", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 20, 20, 560, 420,
                                 nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    openDocument();
    ShowWindow(mainWindow, SW_SHOW);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
