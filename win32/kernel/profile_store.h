// Profile files on disk: read once, kept while they do not change, replaced whole.
#pragma once

#include "profile_file.h"

#include <windows.h>

#include <functional>
#include <string>

namespace win32::profiles {

// Calls read with the file that the Win32 path names; with an empty one when it cannot be read.
// A path without a folder is looked for in the Windows folder, a null path is "win.ini".
void read(LPCSTR path, const std::function<void(const ProfileFile &)> &read);

// Calls change with a copy of the file's present content, made new when there is none, and
// replaces the file by the result. False, with the last error set, leaves the old file as it was.
bool change(LPCSTR path, const std::function<void(ProfileFile &)> &change);

void forget(LPCSTR path);

} // namespace win32::profiles
