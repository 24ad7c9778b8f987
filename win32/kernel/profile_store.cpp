#include "profile_store.h"

#include "descriptor.h"
#include "kernel_internal.h"
#include "paths.h"
#include "replaced_file.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <list>
#include <mutex>

namespace win32::profiles {
namespace {

constexpr off_t maximumFileSize = 64 << 20;
constexpr size_t cachedFiles = 16;

// What tells one state of a file from another.
struct Stamp {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = -1; // -1: no file that can be read
    timespec modified{};

    bool operator==(const Stamp &other) const
    {
        return device == other.device && inode == other.inode && size == other.size
               && modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
    }
};

struct CachedFile {
    std::string path;
    Stamp stamp;
    ProfileFile file;
    DWORD readError = NO_ERROR; // why there is no content
};

std::mutex storeMutex;
std::list<CachedFile> cache; // most recently used first

Stamp stampOf(const struct stat &status)
{
    if (!S_ISREG(status.st_mode) || status.st_size > maximumFileSize)
        return {};
    return {status.st_dev, status.st_ino, status.st_size, status.st_mtim};
}

bool isUtf16(std::string_view content)
{
    return content.starts_with("\xff\xfe") || content.starts_with("\xfe\xff");
}

// The stamp is that of the file that was read, not of its path: another process may put a new
// file there meanwhile.
bool readFile(const char *path, std::string &content, Stamp &stamp)
{
    Descriptor file(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status;
    if (file < 0 || fstat(file, &status) != 0)
        return fail(errorFromErrno(errno), false);
    stamp = stampOf(status);
    if (stamp.size < 0)
        return fail(ERROR_ACCESS_DENIED, false);
    content.resize(static_cast<size_t>(stamp.size));
    size_t length = 0;
    while (length < content.size()) {
        ssize_t count = ::read(file, content.data() + length, content.size() - length);
        if (count < 0 && errno == EINTR)
            continue;
        // What was read so far must not pass for the whole: it would be written back as that.
        if (count <= 0)
            return fail(count < 0 ? errorFromErrno(errno) : DWORD{ERROR_READ_FAULT}, false);
        length += static_cast<size_t>(count);
    }
    return true;
}

// A path without a folder is one in the Windows folder.
std::string wholePath(LPCSTR path)
{
    if (!path)
        path = "win.ini";
    return hasFolderOrDrive(path) ? path : "C:\\windows\\" + std::string(path);
}

bool resolve(LPCSTR path, std::string &result)
{
    return unixPath(wholePath(path).c_str(), result);
}

bool isMissing(DWORD error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

Stamp stampOfPath(const std::string &path, DWORD &error)
{
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        error = errorFromErrno(errno);
        return {};
    }
    Stamp stamp = stampOf(status);
    error = stamp.size < 0 ? ERROR_ACCESS_DENIED : NO_ERROR;
    return stamp;
}

// With the mutex held. Always gives an entry: an unreadable file is an empty one that tells its error.
CachedFile &current(const std::string &path)
{
    CachedFile fresh{path, {}, ProfileFile()};
    fresh.stamp = stampOfPath(path, fresh.readError);
    for (auto it = cache.begin(); it != cache.end(); ++it) {
        if (it->path != path)
            continue;
        cache.splice(cache.begin(), cache, it);
        if (it->stamp == fresh.stamp && it->readError == fresh.readError)
            return *it;
        cache.pop_front();
        break;
    }
    std::string content;
    if (!fresh.readError && !readFile(path.c_str(), content, fresh.stamp))
        fresh.readError = GetLastError();
    if (!fresh.readError && isUtf16(content))
        fresh.readError = ERROR_NOT_SUPPORTED;
    if (fresh.readError)
        fresh.stamp = {};
    else
        fresh.file = ProfileFile(content);
    cache.push_front(std::move(fresh));
    if (cache.size() > cachedFiles)
        cache.pop_back();
    return cache.front();
}

// With the mutex held: the entry of a file that is there as the path spells it and was read before. One question
// to the system then does, and that is the case of all calls but the first.
CachedFile *unchanged(LPCSTR path)
{
    FullPath full;
    if (!fullPath(wholePath(path).c_str(), full) || full.hasWildcard())
        return nullptr;
    std::string literal = literalUnixPath(full);
    auto known = std::find_if(cache.begin(), cache.end(), [&](const CachedFile &file) { return file.path == literal; });
    DWORD error;
    if (known == cache.end() || known->readError || !(stampOfPath(literal, error) == known->stamp))
        return nullptr;
    cache.splice(cache.begin(), cache, known);
    return &*known;
}

// The stamp tells which content was changed: when the file on disk is another one by now, changedByOthers says
// that the change is to be made anew.
bool replaceUnlessChanged(const std::string &path, const std::string &content, Stamp &stamp, bool &changedByOthers)
{
    struct stat made;
    bool replaced = replaceFile(path, content, made, [&] {
        DWORD error;
        changedByOthers = !(stampOfPath(path, error) == stamp);
        return !changedByOthers;
    });
    if (replaced)
        stamp = stampOf(made);
    return replaced;
}

// Holds the folder against other processes that change a profile in it at the same time.
class FolderLock {
public:
    explicit FolderLock(const std::string &path)
        : folder_(open(path.substr(0, path.rfind('/') + 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        // Another process holds the lock for the time of one write. One that never lets go must not stop
        // this one for good.
        constexpr int tries = 5000;
        bool held = false, isTaken = true;
        for (int attempt = 0; folder_ >= 0 && !held && isTaken && attempt < tries; ++attempt) {
            held = flock(folder_, LOCK_EX | LOCK_NB) == 0;
            isTaken = !held && errno == EWOULDBLOCK;
            if (isTaken)
                usleep(1000);
        }
        isRefused_ = folder_ >= 0 && !held && isTaken;
    }

    // A folder that cannot be locked at all is no reason not to write.
    bool isRefused() const { return isRefused_; }

private:
    Descriptor folder_;
    bool isRefused_ = false;
};

enum class Outcome { Done, Failed, ChangedByOthers };

// With the mutex and the folder's lock held.
Outcome changeOnce(const std::string &path, const std::function<void(ProfileFile &)> &change)
{
    CachedFile &cached = current(path);
    // What cannot be read must not be taken for empty and overwritten.
    if (cached.readError && !isMissing(cached.readError))
        return fail(cached.readError, Outcome::Failed);
    std::string before = cached.file.content();
    // Until the new content is on disk the entry in the cache is not to be believed, and nothing that
    // could fail may come after that.
    std::list<CachedFile> taken;
    taken.splice(taken.begin(), cache, cache.begin());
    change(cached.file);
    std::string after = cached.file.content();
    // Removing from a file that is not there makes none.
    if (after == before)
        return Outcome::Done;
    bool changedByOthers = false;
    if (!replaceUnlessChanged(path, after, cached.stamp, changedByOthers))
        return changedByOthers ? Outcome::ChangedByOthers : Outcome::Failed;
    cached.readError = NO_ERROR;
    if (!cached.file.isStale())
        cache.splice(cache.begin(), taken);
    return Outcome::Done;
}

} // namespace

void read(LPCSTR path, const std::function<void(const ProfileFile &)> &read)
{
    std::lock_guard lock(storeMutex);
    std::string resolved;
    if (CachedFile *known = unchanged(path))
        read(known->file);
    else if (resolve(path, resolved))
        read(current(resolved).file);
    else
        read(ProfileFile());
}

bool change(LPCSTR path, const std::function<void(ProfileFile &)> &change)
{
    std::string resolved;
    if (!resolve(path, resolved))
        return false;
    resolved = withoutLinks(resolved);
    std::lock_guard lock(storeMutex);
    FolderLock folderLock(resolved);
    if (folderLock.isRefused())
        return fail(ERROR_SHARING_VIOLATION, false);
    Outcome outcome = Outcome::ChangedByOthers;
    for (int attempt = 0; outcome == Outcome::ChangedByOthers && attempt < 100; ++attempt)
        outcome = changeOnce(resolved, change);
    return outcome == Outcome::ChangedByOthers ? fail(ERROR_SHARING_VIOLATION, false) : outcome == Outcome::Done;
}

void forget(LPCSTR path)
{
    std::string resolved;
    if (!resolve(path, resolved))
        return;
    std::lock_guard lock(storeMutex);
    cache.remove_if([&](const CachedFile &cached) { return cached.path == resolved; });
}

} // namespace win32::profiles
