// How a program's compiled resources, linked into it by mtbx_add_resources, reach the layer.
#pragma once

#include <windows.h>

// Called by the object that holds the resources, before main. The bytes are those of a .res file
// and stay where they are.
EXTERN_C __declspec(dllexport) void Win32_AddProgramResources(const void *resFile, size_t size);
