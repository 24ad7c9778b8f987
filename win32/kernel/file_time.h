// Times of files: 100-nanosecond steps since 1601.
#pragma once

#include <windows.h>

#include <ctime>

namespace win32 {

FILETIME fileTimeFrom(const timespec &time);
timespec timespecFrom(const FILETIME &time);

} // namespace win32
