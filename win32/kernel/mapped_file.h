// A file mapped for reading. When the file shrinks under the mapping its lost pages read as zeros instead
// of ending the process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace win32 {

class MappedFile {
public:
    MappedFile() = default;
    ~MappedFile();
    MappedFile(const MappedFile &) = delete;
    MappedFile &operator=(const MappedFile &) = delete;

    // False with errno set; EISDIR and the like for what is no regular file.
    bool map(const char *unixPath);

    std::span<const std::byte> bytes() const { return {static_cast<const std::byte *>(address_), size_}; }
    bool isFile(uint64_t device, uint64_t inode) const { return address_ && device_ == device && inode_ == inode; }

private:
    void *address_ = nullptr;
    size_t size_ = 0;
    uint64_t device_ = 0, inode_ = 0;
};

} // namespace win32
