#include "import_table.h"

#include <psapi.h>

#include <string>

namespace replay {
namespace {

// A view of a module in memory.
template <class Part> Part *partOf(HMODULE module, DWORD offset)
{
    return reinterpret_cast<Part *>(reinterpret_cast<char *>(module) + offset);
}

void replace(FARPROC *place, FARPROC function)
{
    DWORD protection;
    if (!VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection))
        return;
    *place = function;
    VirtualProtect(place, sizeof *place, protection, &protection);
}

// Where a module has the addresses of what it takes from others.
void replaceIn(HMODULE module, FARPROC function, FARPROC other)
{
    auto *headers = partOf<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(partOf<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY &imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.VirtualAddress == 0)
        return;
    auto *library = partOf<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
    for (; library->FirstThunk; ++library) {
        for (auto *place = partOf<FARPROC>(module, library->FirstThunk); *place; ++place) {
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

FARPROC replaceImport(LPCSTR module, LPCSTR name, FARPROC other)
{
    FARPROC function = GetProcAddress(GetModuleHandleA(module), name);
    HMODULE modules[1024];
    DWORD size = 0;
    if (!function || !EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &size))
        return function;
    std::string folder = folderOf(nullptr);
    for (DWORD i = 0; i < size / sizeof *modules && i < std::size(modules); ++i) {
        if (folderOf(modules[i]) == folder)
            replaceIn(modules[i], function, other);
    }
    return function;
}

} // namespace replay
