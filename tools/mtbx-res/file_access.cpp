#include "file_access.h"

#include <windows.h>

#include <algorithm>

namespace tool {
namespace {

class File {
public:
    File(const std::string &path, DWORD access, DWORD disposition)
        : handle_(
            CreateFileA(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
    }
    ~File() { close(); }
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE handle() const { return handle_; }
    void close()
    {
        if (isOpen())
            CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE handle_;
};

constexpr size_t largestTransfer = 1 << 26;

bool readAll(HANDLE file, Bytes &content)
{
    for (size_t place = 0; place < content.size();) {
        DWORD count = static_cast<DWORD>(std::min(content.size() - place, largestTransfer));
        if (!ReadFile(file, content.data() + place, count, &count, nullptr))
            return false;
        if (count == 0) {
            content.resize(place); // the file shrank meanwhile
            return true;
        }
        place += count;
    }
    return true;
}

bool writeAll(HANDLE file, std::span<const std::byte> content)
{
    while (!content.empty()) {
        DWORD count = static_cast<DWORD>(std::min(content.size(), largestTransfer));
        if (!WriteFile(file, content.data(), count, &count, nullptr))
            return false;
        if (count == 0) {
            SetLastError(ERROR_DISK_FULL);
            return false;
        }
        content = content.subspan(count);
    }
    return FlushFileBuffers(file);
}

// A name beside the path that no file has yet.
std::string freeName(const std::string &path, const char *suffix)
{
    std::string name = path + suffix;
    for (int number = 2; fileExists(name); ++number)
        name = path + suffix + std::to_string(number);
    return name;
}

// Puts a file in the place of another, which is kept until that is done.
bool putInPlace(const std::string &written, const std::string &path)
{
    if (!fileExists(path))
        return MoveFileA(written.c_str(), path.c_str());
    std::string old = freeName(path, ".old");
    if (!MoveFileA(path.c_str(), old.c_str()))
        return false;
    if (MoveFileA(written.c_str(), path.c_str())) {
        DeleteFileA(old.c_str());
        return true;
    }
    DWORD error = GetLastError();
    MoveFileA(old.c_str(), path.c_str());
    SetLastError(error);
    return false;
}

} // namespace

bool fileExists(const std::string &path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool readFile(const std::string &path, Bytes &content, Diagnostics &diagnostics)
{
    DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return diagnostics.fail(path, errorText(GetLastError()));
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return diagnostics.fail(path, "this is a folder");
    File file(path, GENERIC_READ, OPEN_EXISTING);
    LARGE_INTEGER size;
    if (!file.isOpen() || !GetFileSizeEx(file.handle(), &size))
        return diagnostics.fail(path, errorText(GetLastError()));
    constexpr LONGLONG largestFile = LONGLONG{1} << 31;
    if (size.QuadPart > largestFile)
        return diagnostics.fail(path, "the file is larger than 2 GB");
    content.resize(static_cast<size_t>(size.QuadPart));
    return readAll(file.handle(), content) || diagnostics.fail(path, errorText(GetLastError()));
}

bool writeFile(const std::string &path, std::span<const std::byte> content, const FileCheck &check,
               Diagnostics &diagnostics)
{
    std::string written = freeName(path, ".new");
    File file(written, GENERIC_WRITE, CREATE_NEW);
    if (!file.isOpen())
        return diagnostics.fail(path, errorText(GetLastError()));
    bool isWritten = writeAll(file.handle(), content);
    DWORD error = GetLastError();
    file.close();
    if (isWritten && check && !check(written)) {
        DeleteFileA(written.c_str());
        return false;
    }
    if (isWritten && putInPlace(written, path))
        return true;
    if (isWritten)
        error = GetLastError();
    DeleteFileA(written.c_str());
    return diagnostics.fail(path, errorText(error));
}

std::string extensionOf(const std::string &path)
{
    size_t dot = path.find_last_of("./\\");
    std::string extension = dot != std::string::npos && path[dot] == '.' ? path.substr(dot) : "";
    for (char &character : extension)
        character = character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
    return extension;
}

} // namespace tool
