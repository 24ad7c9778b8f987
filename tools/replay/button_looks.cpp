#include "button_looks.h"

#include "program_thread.h"

#include <windows.h>

#include <psapi.h>

#include <atomic>
#include <string>

namespace replay {
namespace {

decltype(&GetAsyncKeyState) keyState;
std::atomic<unsigned> looks{0};

bool isMouseButton(int key)
{
    return key == VK_LBUTTON || key == VK_RBUTTON || key == VK_MBUTTON;
}

SHORT WINAPI countedKeyState(int key)
{
    if (isMouseButton(key) && GetCurrentThreadId() == programThread())
        ++looks;
    return keyState(key);
}

// A view of a module in memory.
template <class Part> Part *partOf(HMODULE module, DWORD offset)
{
    return reinterpret_cast<Part *>(reinterpret_cast<char *>(module) + offset);
}

void replace(ULONG_PTR *place, ULONG_PTR function)
{
    DWORD protection;
    if (!VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection))
        return;
    *place = function;
    VirtualProtect(place, sizeof *place, protection, &protection);
}

// Where a module has the addresses of the functions that it takes from others.
void replaceImports(HMODULE module, ULONG_PTR function, ULONG_PTR other)
{
    auto *headers = partOf<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(partOf<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY &imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.VirtualAddress == 0)
        return;
    auto *library = partOf<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
    for (; library->FirstThunk; ++library) {
        for (auto *place = partOf<ULONG_PTR>(module, library->FirstThunk); *place; ++place) {
            if (*place == function)
                replace(place, other);
        }
    }
}

std::string folderOf(HMODULE module)
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(module, path, sizeof path);
    std::string text = path;
    return text.substr(0, text.rfind('\\') + 1);
}

} // namespace

void countButtonLooks()
{
    keyState = reinterpret_cast<decltype(keyState)>(GetProcAddress(GetModuleHandleA("user32.dll"), "GetAsyncKeyState"));
    HMODULE modules[1024];
    DWORD size = 0;
    if (!EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &size))
        return;
    std::string folder = folderOf(nullptr);
    for (DWORD i = 0; i < size / sizeof *modules && i < 1024; ++i) {
        if (folderOf(modules[i]) == folder)
            replaceImports(modules[i], reinterpret_cast<ULONG_PTR>(keyState),
                           reinterpret_cast<ULONG_PTR>(countedKeyState));
    }
}

unsigned buttonLooks()
{
    return looks;
}

} // namespace replay
