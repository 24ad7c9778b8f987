// Start and stop: the main window, and the library's own order.
#include "hostkit_internal.h"

#include <algorithm>
#include <utility>

namespace hostkit {
namespace {

bool isStarted;
UInt64 purgeAboveBefore, refuseAboveBefore;

std::string programPath()
{
    char path[MAX_PATH] = "";
    DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
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

bool registerClass(const char *name, WNDPROC procedure, HBRUSH background, int extraBytes)
{
    WNDCLASSA description = {};
    description.lpfnWndProc = procedure;
    description.cbWndExtra = extraBytes;
    description.hInstance = hExeInst;
    description.hbrBackground = background;
    description.lpszClassName = name;
    return RegisterClassA(&description) != 0;
}

bool registerClasses()
{
    auto workspace = reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(COLOR_APPWORKSPACE + 1));
    auto white = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    return registerClass(mainClassName, mainProcedure, workspace, 0)
        && registerClass(windowClassName, windowProcedure, white, sizeof(LONG_PTR)) && registerDialogClasses();
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
    OffsetRect(&frame, std::max<LONG>((area.right - frame.right) / 2, 0),
               std::max<LONG>((area.bottom - frame.bottom) / 2, 0));
    return frame;
}

bool makeMainWindow(const HostKitOptions &options, const std::string &title)
{
    constexpr DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    RECT frame = mainFrame(options, style);
    setDesktopBrush(options.background);
    hWndMain = CreateWindowExA(0, mainClassName, title.c_str(), style, frame.left, frame.top, frame.right - frame.left,
                               frame.bottom - frame.top, nullptr, nullptr, hExeInst, nullptr);
    return hWndMain != nullptr;
}

void destroyMainWindow()
{
    if (HWND native = std::exchange(hWndMain, nullptr))
        DestroyWindow(native);
    unregisterClasses();
}

// The library keeps its limits beyond its end.
void setLimits(const HostKitOptions &options)
{
    UInt64 purgeAbove = 0, refuseAbove = 0;
    MTBX_GetMemUsageLimits(&purgeAbove, &refuseAbove);
    if (options.purgeAbove || options.refuseAbove)
        MTBX_SetMemUsageLimits(options.purgeAbove ? options.purgeAbove : purgeAbove,
                               options.refuseAbove ? options.refuseAbove : refuseAbove);
}

void startLibrary(const HostKitOptions &options, const std::string &settings)
{
    MTBX_GetMemUsageLimits(&purgeAboveBefore, &refuseAboveBefore);
    MTBX_SetZPPrefsFile(settings.c_str());
    MTBX_InitializeMemorySubsystem();
    setLimits(options);
    startPurging();
    InitResources();
}

// False when memory was too short for a part of it.
bool startToolbox()
{
    InitGraf(&qd.thePort);
    if (!gDesktopWindow || !qd.thePort)
        return false;
    InitFonts();
    InitWindows();
    TEInit();
    InitDialogs();
    InitCursor();
    InstallMsgToEventConverter(convertKeyMessage);
    HFONT font = nullptr;
    return MTBX_GetSmallHFnt(&font) == noErr;
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
    MTBX_SetMemUsageLimits(purgeAboveBefore, refuseAboveBefore);
}

void forgetAll()
{
    forgetAllWindows();
    resetActivation(false);
    forgetEvents();
    forgetInput();
    forgetUpdates();
    forgetLoops();
    hExeInst = hCurInst = hResInst = nullptr;
    gEventMask = 0;
    gApplicationHidden = false;
    isStarted = false;
}

void setVariables(const HostKitOptions &options)
{
    hExeInst = hCurInst = GetModuleHandleA(nullptr);
    hResInst = options.resources ? options.resources : hExeInst;
    setQuitProc(options.quitProc);
    gEventMask = static_cast<SInt16>(everyEvent & ~keyUpMask);
}

OSErr start(const HostKitOptions &options)
{
    std::string settings = settingsOf(options), title = titleOf(options);
    if (settings.size() >= MAX_PATH)
        return paramErr;
    setVariables(options);
    isStarted = true;
    if (!registerClasses() || !makeMainWindow(options, title)) {
        destroyMainWindow();
        forgetAll();
        return memFullErr;
    }
    noteDesktopSize();
    startLibrary(options, settings);
    if (!startToolbox()) {
        HostKitStop();
        return memFullErr;
    }
    ShowWindow(hWndMain, SW_SHOW);
    UpdateWindow(hWndMain);
    resetActivation(GetForegroundWindow() == hWndMain); // the program starts, it does not resume
    return noErr;
}

} // namespace
} // namespace hostkit

using namespace hostkit;

OSErr HostKitStart(const HostKitOptions *options)
{
    if (hWndMain)
        return paramErr;
    try {
        return start(options ? *options : HostKitOptions{});
    } catch (const std::bad_alloc &) {
        return memFullErr;
    }
}

void HostKitStop()
{
    if (!isStarted)
        return;
    disposeWindows();
    stopToolbox();
    stopLibrary();
    destroyMainWindow();
    forgetAll();
}
