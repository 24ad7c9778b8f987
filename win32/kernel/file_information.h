// What Win32 tells of a file: attributes, times and size.
#pragma once

#include <windows.h>

#include <string>

namespace win32 {

struct FileInformation {
    DWORD attributes;
    FILETIME created, accessed, written;
    uint64_t size;
};

// A link counts as what it points to, and by itself only when that is missing. False with errno set.
bool fileInformation(const char *unixPath, FileInformation &result);

// Read-only goes into the access rights, the rest into an extended attribute, where the file system has
// them. False with errno set.
bool setFileAttributes(const char *unixPath, DWORD attributes);

// Whether nobody may write to a file with these access rights: that is how Win32 sees "read-only", for
// the superuser too.
bool isReadOnly(unsigned mode);

} // namespace win32
