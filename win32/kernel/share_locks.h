// Share modes, held by advisory locks on bytes far beyond any file's end: whoever has the file open shows
// there what it does and what it denies, in this process and in others alike.
#pragma once

#include <windows.h>

namespace win32 {

// Enters an open file with its access and share modes. False when what it wants is denied by another, or
// what it denies is done by another. On a file system without locks everything is granted.
bool enterShareModes(int file, DWORD access, DWORD share);

// Whether somebody has the file open without letting it be deleted, or written to.
bool deniesDeletion(const char *unixPath);
bool deniesWriting(const char *unixPath);

} // namespace win32
