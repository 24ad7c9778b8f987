// An open file.
#pragma once

#include "kernel_object.h"

#include <mutex>

namespace win32 {

class FileObject : public KernelObject {
public:
    FileObject(int descriptor, DWORD access, DWORD flags)
        : KernelObject(HandleKind::File), descriptor_(descriptor), access_(access), flags_(flags)
    {
    }
    ~FileObject() override;

    void closed() override;

    int descriptor() const { return descriptor_; }
    bool isOverlapped() const { return flags_ & FILE_FLAG_OVERLAPPED; }
    bool canRead() const { return access_ & (GENERIC_READ | GENERIC_ALL); }
    bool canWrite() const { return access_ & (GENERIC_WRITE | GENERIC_ALL); }

    // A file opened without buffering takes whole sectors only.
    bool allows(const void *buffer, DWORD size, int64_t offset) const;

    std::mutex mutex; // guards the position
    int64_t position = 0;

private:
    const int descriptor_;
    const DWORD access_;
    const DWORD flags_;
};

inline Ref<FileObject> acquireFile(HANDLE handle)
{
    return acquireObject<FileObject>(handle, HandleKind::File);
}

// Moves bytes between the file and the buffer until all are moved, the file ends, or an error comes.
// The result is the last error's value, 0 for none; count is what was moved.
DWORD transferNow(const FileObject &file, bool writes, void *buffer, DWORD size, int64_t offset, DWORD &count);

// Starts a transfer that a thread of the layer does. False with the last error when it cannot start.
bool startTransfer(Ref<FileObject> file, bool writes, void *buffer, DWORD size, LPOVERLAPPED overlapped,
                   LPOVERLAPPED_COMPLETION_ROUTINE routine);

// Ends the transfers of a file that have not begun, and waits for those that have.
void cancelTransfers(const FileObject &file);

} // namespace win32
