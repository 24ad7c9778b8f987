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

// Read-only of a file goes into the access rights, the rest into an extended attribute, where the file system
// has them. Of a folder read-only is but a mark: files can be made in it all the same. False with errno set.
bool setFileAttributes(const char *unixPath, DWORD attributes);

// Gives a file that takes the place of another one that one's extended attributes. False with errno set; a file
// system without such attributes is no failure.
bool copyKeptAttributes(const char *fromUnixPath, int to);
bool copyKeptAttributes(int from, int to);

// Why the file may not be deleted: it is a folder, read-only, or held open; NO_ERROR otherwise.
DWORD deletionRefusal(const char *unixPath);

// Whether nobody may write to a file with these access rights: that is how Win32 sees "read-only", for
// the superuser too.
bool isReadOnly(unsigned mode);

} // namespace win32
