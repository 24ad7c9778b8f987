// The modules that calls can name: the program, the layer's own, and files that were loaded.
#pragma once

#include "mapped_file.h"
#include "resource_directory.h"

#include <windows.h>

#include <string>

namespace win32 {

struct ModuleFunction {
    const char *name;
    FARPROC address;
};

struct Module {
    const char *name = nullptr; // of a module of the layer: lower case, without ".dll"
    const ModuleFunction *functions = nullptr;
    size_t functionCount = 0;
    HMODULE handle = nullptr;
    ResourceDirectory resources{};

    // Of a loaded file.
    std::string path{}; // its Win32 path
    MappedFile file{};
    void *sharedObject = nullptr; // what the system's loader gave for a shared object
    unsigned loads = 0;
};

// The module of a handle, the program for null. Null with the last error set for any other value.
Module *findModule(HMODULE handle);

} // namespace win32
