// Window classes.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace win32::user {

struct WindowClass {
    ATOM atom = 0;
    std::string name;
    UINT style = 0;
    WNDPROC procedure = nullptr;
    int extraBytes = 0;  // of the class
    int windowBytes = 0; // of each window
    HINSTANCE instance = nullptr;
    HICON icon = nullptr;
    HICON smallIcon = nullptr;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr;
    std::string menuName;        // when it is a name
    ULONG_PTR menuNumber = 0;    // when it is a number
    std::vector<BYTE> extra;
    int windowCount = 0;
    bool isSystem = false;
};

// By name or by atom (a value below 0x10000). A class of the module is found before one of the system. Null
// with ERROR_CANNOT_FIND_WND_CLASS.
WindowClass *findClass(LPCSTR name, HINSTANCE instance);

// The classes of the system, registered at first use.
void registerSystemClasses();
void registerStaticClass();
void registerButtonClass();
void registerMenuClass();
// For registerSystemClasses: one of them. The name may be a number.
void addSystemClass(LPCSTR name, UINT style, WNDPROC procedure, int windowBytes, HCURSOR cursor, HBRUSH background);

} // namespace win32::user
