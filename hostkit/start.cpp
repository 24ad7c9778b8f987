// Start and stop: the main window, and the library's own order.
#include "hostkit_internal.h"

#include <cstring>

namespace hostkit {
namespace {

constexpr SInt16 defaultDepthOfName = MAX_PATH;

std::string programPath()
{
    char path[MAX_PATH] = "";
    DWORD length = GetModuleFileNameA(nullptr, path, defaultDepthOfName);
    return {path, length};
}

std::string withoutExtension(const std::string &path)
{
    size_t name = path.find_last_of("\\/:") + 1;
    size_t dot = path.rfind('.');
    return dot == std::string::npos || dot < name ? path : path.substr(0, dot);
}

std::string settingsOf(const HostKitOptions &options)
{
    return options.settingsFile ? options.settingsFile : withoutExtension(programPath()) + ".ini";
}

std::string titleOf(const HostKitOptions &options)
{
    if (options.title)
        return options.title;
    std::string path = withoutExtension(programPath());
    return path.substr(path.find_last_of("\\/:") + 1);
}

bool registerClass(const char *name, WNDPROC procedure, HBRUSH background)
{
    WNDCLASSA description = {};
    description.lpfnWndProc = procedure;
    description.hInstance = hExeInst;
    description.hbrBackground = background;
    description.lpszClassName = name;
    return RegisterClassA(&description) != 0;
}

bool registerClasses(HBRUSH background)
{
    return registerClass(mainClassName, mainProcedure, background)
        && registerClass(windowClassName, windowProcedure, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)))
        && registerDialogClasses();
}

void unregisterClasses()
{
    UnregisterClassA(mainClassName, hExeInst);
    UnregisterClassA(windowClassName, hExeInst);
    unregisterDialogClasses();
}

// The frame for a client area of the wished size, within the work area.
RECT mainFrame(const HostKitOptions &options, DWORD style)
{
    RECT area = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    if (options.width <= 0 || options.height <= 0)
        return area;
    RECT frame = {0, 0, options.width, options.height};
    AdjustWindowRectEx(&frame, style, FALSE, 0);
    OffsetRect(&frame, area.left - frame.left, area.top - frame.top);
    OffsetRect(&frame, std::max<LONG>((area.right - frame.right) / 2, 0), std::max<LONG>((area.bottom - frame.bottom) / 2, 0));
    return frame;
}

bool makeMainWindow(const HostKitOptions &options)
{
    constexpr DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    RECT frame = mainFrame(options, style);
    hWndMain = CreateWindowExA(0, mainClassName, titleOf(options).c_str(), style, frame.left, frame.top,
                               frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr, hExeInst, nullptr);
    return hWndMain != nullptr;
}

// Windows that the program left.
void disposeWindows()
{
    while (WindowPtr window = findWindow([](WindowPtr each) { return nativeOf(each) != nullptr; }))
        DisposeWindow(window);
}

void startLibrary(const HostKitOptions &options)
{
    MTBX_SetZPPrefsFile(settingsOf(options).c_str());
    MTBX_InitializeMemorySubsystem();
    if (options.purgeAbove && options.refuseAbove)
        MTBX_SetMemUsageLimits(options.purgeAbove, options.refuseAbove);
    startPurging();
    InitResources();
}

void startToolbox()
{
    InitGraf(&qd.thePort);
    InitFonts();
    InitWindows();
    TEInit();
    InitDialogs();
    InitCursor();
    InstallMsgToEventConverter(convertKeyMessage);
}

void stopToolbox()
{
    InstallMsgToEventConverter(nullptr);
    MTBX_ShutdownDialogs();
    MTBX_ShutdownFonts();
    MTBX_ShutdownGraf();
}

void stopLibrary()
{
    MTBX_ShutdownResources();
    stopPurging();
    MTBX_ShutdownMemory();
}

void destroyMainWindow()
{
    HWND native = hWndMain;
    hWndMain = nullptr;
    if (IsWindow(native))
        DestroyWindow(native);
    unregisterClasses();
}

} // namespace
} // namespace hostkit

using namespace hostkit;

OSErr HostKitStart(const HostKitOptions *given)
{
    HostKitOptions options = given ? *given : HostKitOptions{};
    hExeInst = hCurInst = GetModuleHandleA(nullptr);
    hResInst = options.resources ? options.resources : hExeInst;
    setQuitProc(options.quitProc);
    gEventMask = static_cast<SInt16>(everyEvent & ~keyUpMask);
    HBRUSH workspace = reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(COLOR_APPWORKSPACE + 1));
    bool isMade = registerClasses(options.background ? options.background : workspace) && makeMainWindow(options);
    if (!isMade) {
        unregisterClasses();
        return memFullErr;
    }
    startLibrary(options);
    startToolbox();
    ShowWindow(hWndMain, SW_SHOW);
    UpdateWindow(hWndMain);
    forgetSwitch(); // the program starts, it does not resume
    return noErr;
}

void HostKitStop()
{
    disposeWindows();
    stopToolbox();
    stopLibrary();
    destroyMainWindow();
    forgetAllWindows();
    resetActivation();
    forgetEvents();
}
