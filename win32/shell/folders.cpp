#include "folders.h"

#include "kernel/kernel_internal.h"

#include <shlobj.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using namespace win32;

struct KnownFolder {
    int number;
    bool isUsers; // below the user's own folder
    const char *name;
};

constexpr KnownFolder knownFolders[] = {
    {CSIDL_DESKTOP, true, "\\Desktop"},
    {CSIDL_PERSONAL, true, "\\My Documents"},
    {CSIDL_DESKTOPDIRECTORY, true, "\\Desktop"},
    {CSIDL_FONTS, false, "C:\\windows\\fonts"},
    {CSIDL_APPDATA, true, "\\Application Data"},
    {CSIDL_LOCAL_APPDATA, true, "\\Local Settings\\Application Data"},
    {CSIDL_COMMON_APPDATA, false, "C:\\users\\All Users\\Application Data"},
    {CSIDL_WINDOWS, false, "C:\\windows"},
    {CSIDL_SYSTEM, false, "C:\\windows\\system32"},
    {CSIDL_PROGRAM_FILES, false, "C:\\Program Files"},
    {CSIDL_PROFILE, true, ""},
};

// A name without characters that a path gives a meaning.
std::string userName()
{
    const char *name = getenv("USER");
    std::string result = name && *name ? name : "user";
    for (char &character : result) {
        if (strchr("\\/:*?\"<>|", character))
            character = '_';
    }
    return result;
}

bool isFolder(const std::string &path)
{
    DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool makeFolders(const std::string &path)
{
    for (size_t separator = path.find('\\', 3); separator != std::string::npos;
         separator = path.find('\\', separator + 1))
        CreateDirectoryA(path.substr(0, separator).c_str(), nullptr);
    CreateDirectoryA(path.c_str(), nullptr);
    return isFolder(path);
}

} // namespace

std::string win32::folderPath(int folder)
{
    for (const KnownFolder &known : knownFolders) {
        if (known.number == folder)
            return known.isUsers ? "C:\\users\\" + userName() + known.name : known.name;
    }
    return {};
}

HRESULT SHGetFolderPathA(HWND, int folder, HANDLE, DWORD type, LPSTR path)
{
    if (!path || type > SHGFP_TYPE_DEFAULT)
        return E_INVALIDARG;
    path[0] = 0;
    return guarded(E_OUTOFMEMORY, [&]() -> HRESULT {
        constexpr int numberMask = 0xff;
        std::string found = folderPath(folder & numberMask);
        if (found.empty())
            return E_INVALIDARG;
        bool isThere = folder & CSIDL_FLAG_CREATE ? makeFolders(found) : isFolder(found);
        if (found.size() >= MAX_PATH || (!isThere && (folder & CSIDL_FLAG_CREATE)))
            return E_FAIL;
        if (!isThere && !(folder & CSIDL_FLAG_DONT_VERIFY))
            return S_FALSE;
        memcpy(path, found.c_str(), found.size() + 1);
        return S_OK;
    });
}
