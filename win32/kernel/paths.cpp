#include "paths.h"

#include "kernel_internal.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <cstring>

namespace win32 {
namespace {

std::string environmentValue(const char *name)
{
    const char *value = getenv(name);
    return value ? value : "";
}

std::string currentFolder()
{
    char folder[PATH_MAX];
    return getcwd(folder, sizeof folder) ? folder : "/";
}

void makeFolders(const std::string &path)
{
    for (size_t slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1))
        mkdir(path.substr(0, slash).c_str(), 0777);
    mkdir(path.c_str(), 0777);
}

std::string findDriveCFolder()
{
    std::string folder = environmentValue("WIN32_DRIVE_C");
    if (folder.empty()) {
        folder = environmentValue("XDG_DATA_HOME");
        if (folder.empty())
            folder = environmentValue("HOME") + "/.local/share";
        folder += "/win32/drive_c";
    }
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    makeFolders(folder + "/windows/system32");
    return folder;
}

bool isSeparator(char character)
{
    return character == '\\' || character == '/';
}

// Resolves "." and ".." by the text alone, as Win32 does before it looks at the disk.
void appendComponents(std::string &result, size_t rootLength, const char *path)
{
    while (*path) {
        size_t length = strcspn(path, "\\/");
        if (length == 2 && path[0] == '.' && path[1] == '.') {
            size_t slash = result.rfind('/');
            result.resize(slash != std::string::npos && slash >= rootLength ? slash : rootLength);
        } else if (length > 0 && !(length == 1 && path[0] == '.')) {
            result += '/';
            result.append(path, length);
        }
        path += length;
        path += *path ? 1 : 0;
    }
}

} // namespace

const std::string &driveCFolder()
{
    static const std::string folder = findDriveCFolder();
    return folder;
}

bool unixPath(const char *path, std::string &result)
{
    std::string root;
    std::string start;
    if (isSeparator(path[0]) && isSeparator(path[1]))
        return fail(ERROR_BAD_NETPATH, false);
    if (path[0] && path[1] == ':') {
        char drive = lowerAscii(path[0]);
        if (drive != 'c' && drive != 'z')
            return fail(ERROR_PATH_NOT_FOUND, false);
        root = drive == 'c' ? driveCFolder() : "";
        path += 2;
        start = root;
    } else if (!isSeparator(path[0])) {
        start = currentFolder();
        if (start == "/")
            start.clear();
    }
    result = start;
    appendComponents(result, root.size(), path);
    if (result.empty())
        result = "/";
    return true;
}

std::string win32Path(const std::string &path)
{
    const std::string &driveC = driveCFolder();
    bool onDriveC = path.starts_with(driveC) && (path.size() == driveC.size() || path[driveC.size()] == '/');
    std::string result = onDriveC ? "C:" + path.substr(driveC.size()) : "Z:" + path;
    for (char &character : result) {
        if (character == '/')
            character = '\\';
    }
    if (result.size() == 2)
        result += '\\';
    return result;
}

UINT copyPathResult(const std::string &path, char *buffer, UINT size)
{
    if (!buffer || size <= path.size())
        return static_cast<UINT>(path.size() + 1);
    memcpy(buffer, path.c_str(), path.size() + 1);
    return static_cast<UINT>(path.size());
}

} // namespace win32
