// Searching a folder.
#include "faults.h"
#include "file_information.h"
#include "file_names.h"
#include "kernel_object.h"
#include "paths.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace {

using namespace win32;

struct FoundName {
    std::string sortKey;
    std::string ansi;
    std::string disk;
};

class Search : public KernelObject {
public:
    Search() : KernelObject(HandleKind::Search) {}

    std::mutex mutex;
    std::string folder; // with a slash at its end
    std::vector<FoundName> names;
    size_t next = 0;
};

void fillData(const FileInformation &information, const std::string &name, WIN32_FIND_DATAA &data)
{
    memset(&data, 0, sizeof data);
    data.dwFileAttributes = information.attributes;
    data.ftCreationTime = information.created;
    data.ftLastAccessTime = information.accessed;
    data.ftLastWriteTime = information.written;
    data.nFileSizeHigh = static_cast<DWORD>(information.size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(information.size);
    memcpy(data.cFileName, name.c_str(), std::min(name.size(), sizeof data.cFileName - 1));
}

// Entries that vanished since the folder was read are passed over.
bool takeNext(Search &search, WIN32_FIND_DATAA &data)
{
    while (search.next < search.names.size()) {
        const FoundName &name = search.names[search.next++];
        FileInformation information;
        if (!fileInformation((search.folder + name.disk).c_str(), information))
            continue;
        fillData(information, name.ansi, data);
        return true;
    }
    return fail(ERROR_NO_MORE_FILES, false);
}

// The order is that of a Windows disk: by name in upper case, "." and ".." before all.
std::string sortKey(const std::string &diskName)
{
    if (diskName == "." || diskName == "..")
        return std::string(diskName.size(), '\0');
    std::string key = names::folded(diskName);
    std::transform(key.begin(), key.end(), key.begin(), [](char character) {
        return character >= 'a' && character <= 'z' ? static_cast<char>(character - 32) : character;
    });
    return key;
}

// Names that do not fit the record of a search cannot be told.
bool isShortEnough(const std::string &ansi)
{
    return ansi.size() < MAX_PATH;
}

void readNames(DIR *directory, const std::string &pattern, bool isRoot, std::vector<FoundName> &found)
{
    while (const dirent *entry = readdir(directory)) {
        std::string disk = entry->d_name;
        bool isDots = disk == "." || disk == "..";
        if (isDots && isRoot)
            continue;
        std::string ansi = isDots ? disk : names::ansiFromDisk(disk);
        if (isShortEnough(ansi) && names::fitsPattern(ansi, pattern))
            found.push_back({sortKey(disk), std::move(ansi), std::move(disk)});
    }
    std::sort(found.begin(), found.end(), [](const FoundName &left, const FoundName &right) {
        return left.sortKey != right.sortKey ? left.sortKey < right.sortKey : left.disk < right.disk;
    });
}

// A name without wildcards: one look at the disk, no reading of its folder.
bool findOne(const FullPath &full, Search &search)
{
    std::string path = literalUnixPath(full);
    struct stat status;
    if (lstat(path.c_str(), &status) != 0) {
        path = unixPathOnDisk(full);
        if (lstat(path.c_str(), &status) != 0)
            return fail(pathError(errno, path), false);
    }
    size_t slash = path.rfind('/');
    search.folder = path.substr(0, slash + 1);
    std::string disk = path.substr(slash + 1);
    search.names.push_back({"", names::ansiFromDisk(disk), disk});
    return true;
}

bool findMatching(FullPath full, Search &search)
{
    size_t last = full.components.rfind('\\');
    std::string pattern = full.components.substr(last + 1);
    full.components.resize(last);
    std::string folder = unixPathOnDisk(full);
    std::unique_ptr<DIR, int (*)(DIR *)> directory(opendir(folder.c_str()), closedir);
    if (!directory)
        return fail(errno == EACCES ? DWORD{ERROR_ACCESS_DENIED} : DWORD{ERROR_PATH_NOT_FOUND}, false);
    search.folder = folder == "/" ? folder : folder + '/';
    readNames(directory.get(), pattern, full.components.empty(), search.names);
    return !search.names.empty() || fail(ERROR_FILE_NOT_FOUND, false);
}

// The pattern's own end counts: "name." asks for names without a dot, and a separator at the end asks for
// nothing at all.
bool beginSearch(LPCSTR path, Search &search)
{
    FullPath full;
    if (!fullPath(path, full))
        return false;
    size_t length = strlen(path);
    bool endsInSeparator = path[length - 1] == '\\' || path[length - 1] == '/';
    if (endsInSeparator || full.components.empty())
        return fail(ERROR_FILE_NOT_FOUND, false);
    if (!strpbrk(path, "*?"))
        return findOne(full, search);
    if (path[length - 1] == '.')
        full.components += '.';
    return findMatching(full, search);
}

} // namespace

HANDLE FindFirstFileA(LPCSTR path, LPWIN32_FIND_DATAA data)
{
    if (faults::fails("FindFirstFileA"))
        return INVALID_HANDLE_VALUE;
    return guarded(INVALID_HANDLE_VALUE, [&] {
        Ref<Search> search(new Search);
        if (!beginSearch(path, *search))
            return INVALID_HANDLE_VALUE;
        if (!takeNext(*search, *data))
            return fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
        search->addReference();
        HANDLE handle = handleFor(search.get());
        return handle ? handle : INVALID_HANDLE_VALUE;
    });
}

BOOL FindNextFileA(HANDLE handle, LPWIN32_FIND_DATAA data)
{
    return guarded(FALSE, [&]() -> BOOL {
        Ref<Search> search = acquireObject<Search>(handle, HandleKind::Search);
        if (!search)
            return FALSE;
        std::lock_guard lock(search->mutex);
        return takeNext(*search, *data);
    });
}

BOOL FindClose(HANDLE handle)
{
    auto search = static_cast<KernelObject *>(handles::remove(handle, HandleKind::Search));
    if (search)
        search->release();
    return search != nullptr;
}
