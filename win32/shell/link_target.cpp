#include "link_target.h"

#include "folders.h"
#include "kernel/code_pages.h"
#include "kernel/drives.h"
#include "kernel/file_names.h"
#include "kernel/kernel_internal.h"
#include "kernel/paths.h"

#include <shlobj.h>

#include <algorithm>
#include <cstdlib>

namespace win32 {
namespace {

bool isNetworkPath(std::string_view path)
{
    return path.starts_with("\\\\") || path.starts_with("//");
}

// Names on disk that Win32 spells otherwise come back by win32FromLinkPath. A backslash in one cannot: it
// would part the name in two.
bool pathOnDisk(const FullPath &full, std::u16string &result)
{
    std::string path = unixPathOnDisk(full).substr(driveFolder(full.drive)->size());
    if (path.find('\\') != std::string::npos)
        return false;
    std::replace(path.begin(), path.end(), '/', '\\');
    if (!path.starts_with('\\'))
        path.insert(0, 1, '\\');
    return utf16FromUtf8(std::string(1, full.drive) + ":" + path, result);
}

struct FolderVariable {
    std::string_view name; // in lower case
    int folder;
};

constexpr FolderVariable folderVariables[] = {
    {"allusersprofile", CSIDL_COMMON_APPDATA},
    {"appdata", CSIDL_APPDATA},
    {"localappdata", CSIDL_LOCAL_APPDATA},
    {"programdata", CSIDL_COMMON_APPDATA},
    {"programfiles", CSIDL_PROGRAM_FILES},
    {"systemroot", CSIDL_WINDOWS},
    {"userprofile", CSIDL_PROFILE},
    {"windir", CSIDL_WINDOWS},
};

bool variableValue(std::string_view name, std::string &value)
{
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(), lowerAscii);
    for (const FolderVariable &variable : folderVariables) {
        if (variable.name == lower) {
            value = folderPath(variable.folder);
            return true;
        }
    }
    const char *found = lower == "systemdrive" ? "C:" : getenv(std::string(name).c_str());
    value = found ? found : "";
    return found != nullptr;
}

char16_t lowerUnit(char16_t unit)
{
    return unit < 0x80 ? static_cast<char16_t>(lowerAscii(static_cast<char>(unit))) : unit;
}

bool isSameName(std::u16string_view left, std::u16string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char16_t first, char16_t second) { return lowerUnit(first) == lowerUnit(second); });
}

// How much of the path is folders that the other path begins with too, the last backslash included.
size_t sharedLength(std::u16string_view path, std::u16string_view other)
{
    size_t shared = 0;
    for (;;) {
        size_t end = path.find(u'\\', shared);
        if (end == std::u16string_view::npos || !isSameName(path.substr(0, end + 1), other.substr(0, end + 1)))
            return shared;
        shared = end + 1;
    }
}

} // namespace

std::string win32FromLinkPath(std::u16string_view path)
{
    bool hasDrive = path.size() >= 2 && path[1] == ':';
    if (!hasDrive)
        return ansiFromUtf16(path);
    std::string result = ansiFromUtf16(path.substr(0, 2));
    for (size_t place = 2; place < path.size();) {
        size_t end = std::min(path.find_first_of(u"\\/", place), path.size());
        std::u16string_view name = path.substr(place, end - place);
        bool isStep = name == u"." || name == u"..";
        result += isStep ? ansiFromUtf16(name) : names::ansiFromDisk(utf8FromUtf16(name));
        result += end < path.size() ? "\\" : "";
        place = end + 1;
    }
    return result;
}

std::string win32FromName(std::u16string_view name)
{
    std::string result = ansiFromUtf16(name);
    return utf16FromAnsi(result) == name ? result : win32FromLinkPath(name);
}

bool linkPathFromWin32(const std::string &path, std::u16string &result)
{
    FullPath full;
    if (isNetworkPath(path)) {
        result = utf16FromAnsi(path);
        return path.size() < MAX_PATH || fail(ERROR_FILENAME_EXCED_RANGE, false);
    }
    if (!fullPath(path.c_str(), full))
        return false;
    if (!pathOnDisk(full, result))
        result = utf16FromAnsi(full.text());
    return true;
}

std::string withVariables(std::string_view text)
{
    std::string result, value;
    while (!text.empty()) {
        size_t start = std::min(text.find('%'), text.size());
        result += text.substr(0, start);
        text.remove_prefix(start);
        size_t end = text.find('%', 1);
        if (end == std::string_view::npos) {
            result += text;
            break;
        }
        // The percent sign behind a name that is none may begin one.
        bool isKnown = variableValue(text.substr(1, end - 1), value);
        result += isKnown ? std::string_view(value) : text.substr(0, end);
        text.remove_prefix(isKnown ? end + 1 : end);
    }
    return result;
}

std::u16string relativePath(std::u16string_view path, std::u16string_view from)
{
    size_t shared = sharedLength(from, path);
    if (shared == 0 || path.starts_with(u"\\\\"))
        return {};
    auto levels = std::count(from.begin() + static_cast<ptrdiff_t>(shared), from.end(), u'\\');
    std::u16string result = levels == 0 ? u".\\" : u"";
    for (; levels > 0; --levels)
        result += u"..\\";
    return result.append(path.substr(shared));
}

} // namespace win32
