// Whole files, read and written through the File Manager.
#include "sampler.h"

namespace {

// An open file, closed at the end.
class FileInUse {
public:
    FileInUse(const FSSpec &spec, SInt8 permission) : error_(FSpOpenDF(&spec, permission, &refNum_)) {}
    ~FileInUse()
    {
        if (error_ == noErr)
            FSClose(refNum_);
    }
    FileInUse(const FileInUse &) = delete;
    FileInUse &operator=(const FileInUse &) = delete;

    OSErr error() const { return error_; }
    SInt16 refNum() const { return refNum_; }

private:
    SInt16 refNum_ = 0;
    OSErr error_;
};

OSErr writeNewFile(const std::string &path, const std::vector<char> &bytes)
{
    FSSpec spec;
    OSErr error = FSMakeFSSpec(0, 0, PascalText(path), &spec);
    if (error == noErr)
        error = FSpCreate(&spec, 'SMPL', 'BMPf', 0);
    if (error != noErr && error != dupFNErr)
        return error;
    FileInUse file(spec, fsWrPerm);
    if (file.error() != noErr)
        return file.error();
    auto count = static_cast<SInt32>(bytes.size());
    error = FSWrite(file.refNum(), &count, bytes.data());
    return error == noErr ? SetEOF(file.refNum(), count) : error;
}

} // namespace

OSErr readFile(const std::string &path, Handle data)
{
    FSSpec spec;
    OSErr error = FSMakeFSSpec(0, 0, PascalText(path), &spec);
    if (error != noErr)
        return error;
    FileInUse file(spec, fsRdPerm);
    SInt32 size = 0;
    error = file.error() == noErr ? GetEOF(file.refNum(), &size) : file.error();
    if (error != noErr)
        return error;
    SetHandleSize(data, size);
    return MemError() == noErr ? FSRead(file.refNum(), &size, *data) : MemError();
}

std::string fullPath(const std::string &path)
{
    char full[MAX_PATH];
    DWORD length = GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
    return length && length < sizeof full ? full : path;
}

bool isThere(const std::string &path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The file that is there goes only when the new one is complete.
OSErr writeFile(const std::string &path, const std::vector<char> &bytes)
{
    std::string written = path + "~";
    OSErr error = writeNewFile(written, bytes);
    if (error == noErr) {
        DeleteFileA(path.c_str());
        if (MoveFileA(written.c_str(), path.c_str()))
            return noErr;
        return static_cast<OSErr>(MTBX_GetLastError()); // the picture is in the file of the other name
    }
    DeleteFileA(written.c_str());
    return error;
}
