#include "folder_cache.h"

#include "file_names.h"

#include <dirent.h>
#include <sys/stat.h>

#include <ctime>
#include <list>
#include <mutex>
#include <unordered_map>

namespace win32 {
namespace {

constexpr size_t keptFolders = 64;

// The kernel's clock for file times goes in steps of some milliseconds. What changes within a step leaves
// the time as it is, so a folder read soon after its last change is read once more after this time.
constexpr int64_t youngNanoseconds = 20'000'000;

struct Folder {
    dev_t device = 0;
    ino_t inode = 0;
    int64_t modified = 0;
    int64_t readAt = 0;
    std::unordered_map<std::string, std::string> nameByFolded;

    bool isSettled() const { return readAt - modified > youngNanoseconds; }
};

std::mutex cacheMutex;
std::list<Folder> folders; // most recently used first

int64_t nanoseconds(const timespec &time)
{
    return static_cast<int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

int64_t now()
{
    timespec time{};
    clock_gettime(CLOCK_REALTIME_COARSE, &time);
    return nanoseconds(time);
}

void readFolder(const std::string &path, Folder &folder)
{
    folder.nameByFolded.clear();
    DIR *directory = opendir(path.c_str());
    if (!directory)
        return;
    try {
        while (const dirent *entry = readdir(directory))
            folder.nameByFolded.try_emplace(names::folded(entry->d_name), entry->d_name);
    } catch (...) {
        closedir(directory);
        throw;
    }
    closedir(directory);
}

Folder *keptFolder(const struct stat &status)
{
    for (auto it = folders.begin(); it != folders.end(); ++it) {
        if (it->inode == status.st_ino && it->device == status.st_dev) {
            folders.splice(folders.begin(), folders, it);
            return &*it;
        }
    }
    return nullptr;
}

bool isCurrent(const Folder &folder, const struct stat &status)
{
    return folder.modified == nanoseconds(status.st_mtim)
           && (folder.isSettled() || now() - folder.readAt < youngNanoseconds);
}

// With the mutex held. Null when there is no such folder.
Folder *currentFolder(const std::string &path)
{
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return nullptr;
    Folder *folder = keptFolder(status);
    if (folder && isCurrent(*folder, status))
        return folder;
    if (folder)
        folders.pop_front();
    Folder fresh;
    fresh.device = status.st_dev;
    fresh.inode = status.st_ino;
    fresh.modified = nanoseconds(status.st_mtim);
    fresh.readAt = now();
    readFolder(path, fresh);
    folders.push_front(std::move(fresh));
    if (folders.size() > keptFolders)
        folders.pop_back();
    return &folders.front();
}

} // namespace

std::string findInFolder(const std::string &path, std::string_view diskName)
{
    std::lock_guard lock(cacheMutex);
    Folder *folder = currentFolder(path);
    if (!folder)
        return {};
    auto found = folder->nameByFolded.find(names::folded(diskName));
    return found == folder->nameByFolded.end() ? std::string() : found->second;
}

void noteMade(std::string_view unixPath) noexcept
try {
    size_t slash = unixPath.rfind('/');
    std::string path(slash ? unixPath.substr(0, slash) : "/");
    std::string_view diskName = unixPath.substr(slash + 1);
    std::lock_guard lock(cacheMutex);
    struct stat status;
    if (stat(path.c_str(), &status) != 0)
        return;
    Folder *folder = keptFolder(status);
    if (!folder)
        return;
    folder->nameByFolded.try_emplace(names::folded(diskName), diskName);
    folder->modified = nanoseconds(status.st_mtim);
} catch (...) {
    // Without this note the folder is read again.
}

} // namespace win32
