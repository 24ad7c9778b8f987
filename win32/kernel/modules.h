// The modules that calls can name: the program and the layer's own.
#pragma once

#include "resource_directory.h"

#include <windows.h>

#include <mutex>

namespace win32 {

struct ModuleFunction {
    const char *name;
    FARPROC address;
};

struct Module {
    const char *name; // lower case, without ".dll"; null for the program
    const ModuleFunction *functions;
    size_t functionCount;
    HMODULE handle = nullptr;
    ResourceDirectory resources{};
};

// The module of a handle, the program for null. Null with the last error set for any other value.
Module *findModule(HMODULE handle);

} // namespace win32
