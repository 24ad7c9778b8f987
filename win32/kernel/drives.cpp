#include "drives.h"

#include "kernel_internal.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

namespace win32 {
namespace {

constexpr int letters = 26;
using Drives = std::array<std::optional<std::string>, letters>;

std::string environmentValue(const char *name)
{
    const char *value = getenv(name);
    return value ? value : "";
}

std::string withoutEndSlashes(std::string folder)
{
    while (!folder.empty() && folder.back() == '/')
        folder.pop_back();
    return folder;
}

void makeFolders(const std::string &path)
{
    for (size_t slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1))
        mkdir(path.substr(0, slash).c_str(), 0777);
    mkdir(path.c_str(), 0777);
}

std::string userFolder()
{
    std::string folder = environmentValue("WIN32_DRIVE_C");
    if (folder.empty()) {
        folder = environmentValue("XDG_DATA_HOME");
        if (folder.empty())
            folder = environmentValue("HOME") + "/.local/share";
        folder += "/win32/drive_c";
    }
    folder = withoutEndSlashes(folder);
    makeFolders(folder + "/windows/system32");
    return folder;
}

int letterIndex(char letter)
{
    char lower = lowerAscii(letter);
    return lower >= 'a' && lower <= 'z' ? lower - 'a' : -1;
}

// Entries that are no letter and absolute folder are passed over.
void addConfigured(Drives &drives, const std::string &setting)
{
    for (size_t start = 0; start < setting.size();) {
        size_t end = std::min(setting.find(';', start), setting.size());
        std::string entry = setting.substr(start, end - start);
        int index = entry.size() > 2 && entry[1] == '=' && entry[2] == '/' ? letterIndex(entry[0]) : -1;
        if (index >= 0)
            drives[static_cast<size_t>(index)] = withoutEndSlashes(entry.substr(2));
        start = end + 1;
    }
}

const Drives &drives()
{
    static const Drives all = [] {
        Drives result;
        result['c' - 'a'] = userFolder();
        result['z' - 'a'] = "";
        addConfigured(result, environmentValue("WIN32_DRIVES"));
        return result;
    }();
    return all;
}

bool isBelow(const std::string &path, const std::string &folder)
{
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

} // namespace

const std::string *driveFolder(char letter)
{
    int index = letterIndex(letter);
    if (index < 0 || !drives()[static_cast<size_t>(index)])
        return nullptr;
    return &*drives()[static_cast<size_t>(index)];
}

DWORD driveMask()
{
    DWORD mask = 0;
    for (size_t index = 0; index < letters; ++index)
        mask |= drives()[index] ? 1u << index : 0;
    return mask;
}

char driveOfPath(const std::string &path)
{
    char best = 'Z';
    size_t bestLength = 0;
    for (size_t index = 0; index < letters; ++index) {
        const std::optional<std::string> &folder = drives()[index];
        if (folder && folder->size() > bestLength && isBelow(path, *folder)) {
            best = static_cast<char>('A' + index);
            bestLength = folder->size();
        }
    }
    return best;
}

} // namespace win32
