// Searching a folder.
#include "faults.h"
#include "file_information.h"
#include "file_names.h"
#include "kernel_object.h"
#include "paths.h"

#include <dirent.h>

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
    std::string disk;
    std::string ansi;    // empty when it is the same
    std::string sortKey; // in upper case

    const std::string &shown() const { return ansi.empty() ? disk : ansi; }
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
        fillData(information, name.shown(), data);
        return true;
    }
    return fail(ERROR_NO_MORE_FILES, false);
}

char upperAscii(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 32) : character;
}

// The order is that of a Windows disk: by name in upper case.
bool comesBefore(const FoundName &left, const FoundName &right)
{
    int order = left.sortKey.compare(right.sortKey);
    return order != 0 ? order < 0 : left.disk < right.disk;
}

bool isDots(const FoundName &name)
{
    return name.disk == "." || name.disk == "..";
}

FoundName foundName(const char *disk)
{
    FoundName name{disk, {}, {}};
    if (isDots(name))
        return name;
    name.ansi = names::ansiFromDisk(name.disk);
    if (name.ansi == name.disk)
        name.ansi.clear();
    name.sortKey = names::folded(name.disk);
    std::transform(name.sortKey.begin(), name.sortKey.end(), name.sortKey.begin(), upperAscii);
    return name;
}

void readNames(DIR *directory, const std::string &pattern, bool isRoot, std::vector<FoundName> &found)
{
    while (const dirent *entry = readdir(directory)) {
        FoundName name = foundName(entry->d_name);
        // What is too long for the record of a search cannot be told.
        bool isTold = name.shown().size() < MAX_PATH && !(isRoot && isDots(name));
        if (isTold && names::fitsPattern(name.shown(), pattern))
            found.push_back(std::move(name));
    }
    // "." and ".." come before all.
    auto firstName = std::partition(found.begin(), found.end(), isDots);
    std::sort(found.begin(), firstName, comesBefore);
    std::sort(firstName, found.end(), comesBefore);
}

// A name without wildcards: one look at the disk, no reading of its folder.
bool findOne(const FullPath &full, WIN32_FIND_DATAA &data)
{
    std::string path = literalUnixPath(full);
    FileInformation information;
    bool found = fileInformation(path.c_str(), information);
    if (!found && (errno == ENOENT || errno == ENOTDIR)) {
        path = unixPathOnDisk(full);
        found = fileInformation(path.c_str(), information);
    }
    if (!found)
        return fail(pathError(errno, path), false);
    fillData(information, names::ansiFromDisk(std::string_view(path).substr(path.rfind('/') + 1)), data);
    return true;
}

bool findMatching(FullPath full, Search &search)
{
    std::string pattern(full.name());
    full.components.resize(full.lastSeparator());
    if (full.hasWildcard())
        return fail(ERROR_INVALID_NAME, false);
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
bool beginSearch(LPCSTR path, Search &search, WIN32_FIND_DATAA &data)
{
    FullPath full;
    if (!fullPath(path, full))
        return false;
    if (full.mustBeFolder || full.components.empty())
        return fail(ERROR_FILE_NOT_FOUND, false);
    if (!full.hasWildcard())
        return findOne(full, data);
    if (path[strlen(path) - 1] == '.')
        full.components += '.';
    if (!findMatching(full, search))
        return false;
    return takeNext(search, data) || fail(ERROR_FILE_NOT_FOUND, false);
}

} // namespace

HANDLE FindFirstFileA(LPCSTR path, LPWIN32_FIND_DATAA data)
{
    if (faults::fails("FindFirstFileA"))
        return INVALID_HANDLE_VALUE;
    return guarded(INVALID_HANDLE_VALUE, [&] {
        Ref<Search> search(new Search);
        if (!beginSearch(path, *search, *data))
            return INVALID_HANDLE_VALUE;
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
