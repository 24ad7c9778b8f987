// Win32 paths on a Unix file system.
#pragma once

#include <windows.h>

#include <cerrno>
#include <string>
#include <string_view>

namespace win32 {

// A Win32 path made absolute: its drive, and its components in the spelling of the caller.
struct FullPath {
    char drive = 0;            // upper case
    std::string components;    // each with a backslash before it; empty for the root
    bool mustBeFolder = false; // a separator stands behind the last name

    std::string text() const { return std::string(1, drive) + ":" + (components.empty() ? "\\" : components); }
    bool hasWildcard() const { return components.find_first_of("*?") != std::string::npos; }
    // The place of the backslash before the last component, npos for the root.
    size_t lastSeparator() const;
    // The last component.
    std::string_view name() const { return std::string_view(components).substr(lastSeparator() + 1); }
};

// Whether the text tells more than a name: a folder or a drive.
bool hasFolderOrDrive(const char *path);

// Makes a path absolute and settles "." and "..", slashes, and blanks and dots at the end of names. False,
// with the last error set, for paths that cannot name anything: null, too long, on no drive, on the network.
bool fullPath(const char *path, FullPath &result);

// The Unix path in the caller's own spelling of case.
std::string literalUnixPath(const FullPath &path);

// The Unix path of what is on disk under this name in any case, as far as there is something; what is
// missing at the end keeps the caller's spelling.
std::string unixPathOnDisk(const FullPath &path);

// Both steps: the Unix path that a Win32 path names. The file need not exist; a wildcard names nothing.
bool unixPath(const char *path, std::string &result);

// The Win32 path of an absolute Unix path.
std::string win32Path(const std::string &path);

// Runs an operation of the system on a Win32 path: with the literal spelling, and when that is not there,
// with the one on disk. The operation gives a negative number and errno on failure, and so does this; the
// last error is then set.
template <class Operation> int onPath(const char *path, Operation operation);

// ERROR_FILE_NOT_FOUND when the folder exists that would hold the path, else ERROR_PATH_NOT_FOUND.
DWORD missingError(const std::string &unixPath);

// The last error for a failed operation on a path.
DWORD pathError(int errnoValue, const std::string &unixPath);

// The folder behind drive C:, with no slash at its end.
const std::string &driveCFolder();

// Copies a result the way GetSystemDirectoryA and its kin do: the length when it fits, otherwise the size
// needed with its terminator.
UINT copyPathResult(const std::string &path, char *buffer, UINT size);

// The literal path of a file or folder that may be there; false with ERROR_INVALID_NAME for wildcards, and for a
// file that is spelled as a folder.
bool namesOneThing(const FullPath &path, std::string &literal);

template <class Operation> int onPath(const char *path, Operation operation)
{
    FullPath full;
    if (!fullPath(path, full))
        return -1;
    std::string literal;
    if (!namesOneThing(full, literal))
        return -1;
    int result = operation(literal.c_str());
    if (result >= 0)
        return result;
    int reason = errno;
    if (reason == ENOENT || reason == ENOTDIR) {
        std::string onDisk = unixPathOnDisk(full);
        if (onDisk != literal) {
            literal = onDisk;
            result = operation(literal.c_str());
            reason = errno;
        }
    }
    if (result < 0)
        SetLastError(pathError(reason, literal));
    return result;
}

} // namespace win32
