// Names as small numbers: of classes, properties, registered messages and clipboard formats. Names differ
// by more than case.
#pragma once

#include <windows.h>

#include <string>

namespace win32::user::atoms {

// The atom of a name, made at first use: 0xC000 and up. 0 with ERROR_NOT_ENOUGH_MEMORY when there are none left,
// with ERROR_INVALID_PARAMETER for an empty or too long name.
ATOM add(LPCSTR name);
// 0 for a name that nobody has added.
ATOM find(LPCSTR name);
// The spelling in which it was added; empty for what is no atom of a name.
std::string nameOf(ATOM atom);

// The same for an argument that is a name or, below 0x10000, an atom itself.
ATOM addNameOrAtom(LPCSTR name);
ATOM findNameOrAtom(LPCSTR name);

} // namespace win32::user::atoms
