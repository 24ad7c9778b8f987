#include "paths.h"

#include "code_page_table.h"
#include "drives.h"
#include "file_names.h"
#include "folder_cache.h"
#include "kernel_internal.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstring>

namespace win32 {
namespace {

bool isSeparator(char character)
{
    return character == '\\' || character == '/';
}

// The length of the first component, which a separator or the end of the text follows. The second byte of
// a double-byte character is no separator.
size_t componentLength(const char *path)
{
    const CodePage &page = activeCodePage();
    if (!page.isDoubleByte())
        return strcspn(path, "\\/");
    size_t length = 0;
    while (path[length] && !isSeparator(path[length]))
        length += page.isLeadByte(static_cast<unsigned char>(path[length])) && path[length + 1] ? 2 : 1;
    return length;
}

size_t lastComponent(const std::string &components)
{
    size_t last = 0;
    for (size_t place = 0; place < components.size(); place += 1 + componentLength(components.c_str() + place + 1))
        last = place;
    return last;
}

// Blanks and dots at the end of a name do not count. A trail byte is never one of them.
std::string_view withoutEnd(std::string_view name)
{
    while (!name.empty() && (name.back() == ' ' || name.back() == '.'))
        name.remove_suffix(1);
    return name;
}

void appendComponents(std::string &components, const char *path)
{
    while (*path) {
        size_t length = componentLength(path);
        std::string_view name(path, length);
        path += length;
        path += *path ? 1 : 0;
        if (name == "..") {
            components.resize(lastComponent(components));
        } else if (std::string_view kept = withoutEnd(name); !kept.empty()) {
            components += '\\';
            components += kept;
        }
    }
}

std::string currentUnixFolder()
{
    char folder[PATH_MAX];
    return getcwd(folder, sizeof folder) ? folder : "/";
}

// Calls visit with each component and whether it is the last.
template <class Visit> void eachComponent(const std::string &components, Visit visit)
{
    for (size_t place = 0; place < components.size();) {
        size_t length = componentLength(components.c_str() + place + 1);
        visit(std::string_view(components).substr(place + 1, length));
        place += 1 + length;
    }
}

bool existsOnDisk(const std::string &path)
{
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

// The name on disk of an entry of the folder; the literal one when there is none.
std::string nameOnDisk(const std::string &folder, std::string_view ansiName)
{
    std::string literal = names::diskFromAnsi(ansiName);
    if (existsOnDisk(folder + '/' + literal))
        return literal;
    std::string found = findInFolder(folder.empty() ? "/" : folder, literal);
    if (!found.empty())
        return found;
    std::string unescaped;
    if (names::unescape(ansiName, unescaped) && existsOnDisk(folder + '/' + unescaped))
        return unescaped;
    return literal;
}

bool endsInSeparator(const char *path)
{
    bool ends = false;
    while (*path) {
        path += componentLength(path);
        ends = *path;
        path += ends;
    }
    return ends;
}

} // namespace

size_t FullPath::lastSeparator() const
{
    return components.empty() ? std::string::npos : lastComponent(components);
}

bool hasFolderOrDrive(const char *path)
{
    return path[componentLength(path)] || (path[0] && path[1] == ':');
}

bool fullPath(const char *path, FullPath &result)
{
    if (!path || !*path)
        return fail(ERROR_PATH_NOT_FOUND, false);
    if (strnlen(path, MAX_PATH) >= MAX_PATH)
        return fail(ERROR_FILENAME_EXCED_RANGE, false);
    if (isSeparator(path[0]) && isSeparator(path[1]))
        return fail(ERROR_BAD_NETPATH, false);
    bool hasDrive = path[1] == ':';
    std::string current = hasDrive && isSeparator(path[2]) ? std::string() : currentUnixFolder();
    char currentDrive = current.empty() ? '\0' : driveOfPath(current);
    result.drive = hasDrive ? static_cast<char>(path[0] & ~0x20) : currentDrive;
    const std::string *folder = driveFolder(hasDrive ? path[0] : currentDrive);
    if (!folder)
        return fail(ERROR_PATH_NOT_FOUND, false);
    if (hasDrive)
        path += 2;
    result.components.clear();
    if (!isSeparator(*path) && result.drive == currentDrive) {
        std::string win32Current = win32Path(current);
        appendComponents(result.components, win32Current.c_str() + 2);
    }
    appendComponents(result.components, path);
    if (result.components.size() + 3 > MAX_PATH)
        return fail(ERROR_FILENAME_EXCED_RANGE, false);
    result.mustBeFolder = !result.components.empty() && endsInSeparator(path);
    return true;
}

std::string literalUnixPath(const FullPath &path)
{
    const std::string &folder = *driveFolder(path.drive);
    std::string result;
    result.reserve(folder.size() + path.components.size() + 16);
    result = folder;
    eachComponent(path.components, [&](std::string_view name) {
        result += '/';
        names::appendDisk(result, name);
    });
    return result.empty() ? "/" : result;
}

std::string unixPathOnDisk(const FullPath &path)
{
    std::string result = *driveFolder(path.drive);
    eachComponent(path.components, [&](std::string_view name) {
        std::string found = nameOnDisk(result, name);
        result += '/';
        result += found;
    });
    return result.empty() ? "/" : result;
}

bool unixPath(const char *path, std::string &result)
{
    FullPath full;
    if (!fullPath(path, full))
        return false;
    if (full.hasWildcard())
        return fail(ERROR_INVALID_NAME, false);
    result = literalUnixPath(full);
    if (!existsOnDisk(result))
        result = unixPathOnDisk(full);
    return true;
}

bool namesOneThing(const FullPath &path, std::string &literal)
{
    if (path.hasWildcard())
        return fail(ERROR_INVALID_NAME, false);
    literal = literalUnixPath(path);
    if (!path.mustBeFolder)
        return true;
    struct stat status;
    if (stat(literal.c_str(), &status) != 0 && stat(unixPathOnDisk(path).c_str(), &status) != 0)
        return true; // missing: for the caller to find out
    return S_ISDIR(status.st_mode) || fail(ERROR_INVALID_NAME, false);
}

std::string win32Path(const std::string &path)
{
    char drive = driveOfPath(path);
    size_t start = driveFolder(drive)->size();
    std::string result = {drive, ':'};
    while (start < path.size()) {
        size_t end = std::min(path.find('/', start + 1), path.size());
        if (end > start + 1)
            result += '\\' + names::ansiFromDisk(std::string_view(path).substr(start + 1, end - start - 1));
        start = end;
    }
    return result.size() == 2 ? result + '\\' : result;
}

DWORD missingError(const std::string &unixPath)
{
    size_t slash = unixPath.rfind('/');
    struct stat status;
    std::string folder = slash == 0 ? "/" : unixPath.substr(0, slash);
    bool folderExists = stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    return folderExists ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

DWORD pathError(int errnoValue, const std::string &unixPath)
{
    return errnoValue == ENOENT || errnoValue == ENOTDIR ? missingError(unixPath) : errorFromErrno(errnoValue);
}

const std::string &driveCFolder()
{
    return *driveFolder('C');
}

UINT copyPathResult(const std::string &path, char *buffer, UINT size)
{
    if (!buffer || size <= path.size())
        return static_cast<UINT>(path.size() + 1);
    memcpy(buffer, path.c_str(), path.size() + 1);
    return static_cast<UINT>(path.size());
}

} // namespace win32
