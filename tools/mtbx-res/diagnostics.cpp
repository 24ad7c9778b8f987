#include "diagnostics.h"

#include <windows.h>

#include <cstdio>

namespace tool {

bool Diagnostics::fail(const std::string &file, const std::string &text, std::optional<uint64_t> offset)
{
    print(file, text, offset);
    exitCode_ = exitFailed;
    return false;
}

// A damaged file may have thousands of faults, all of one cause.
void Diagnostics::leftOut(const std::string &file, const std::string &text, std::optional<uint64_t> offset)
{
    constexpr unsigned mostTold = 50;
    if (leftOutCount_ < mostTold)
        print(file, text, offset);
    else if (leftOutCount_ == mostTold)
        print(file, "there is more of this kind, which is not told", std::nullopt);
    ++leftOutCount_;
    if (exitCode_ == exitDone)
        exitCode_ = exitPartly;
}

void Diagnostics::note(const std::string &file, const std::string &text)
{
    if (notes_.insert(text).second)
        print(file, "note: " + text, std::nullopt);
}

void Diagnostics::print(const std::string &file, const std::string &text, std::optional<uint64_t> offset)
{
    auto shown = shownNames_.find(file);
    stream_ << "mtbx-res: " << (shown != shownNames_.end() ? shown->second : file) << ": ";
    if (offset) {
        char place[32];
        snprintf(place, sizeof place, "at 0x%llx: ", static_cast<unsigned long long>(*offset));
        stream_ << place;
    }
    stream_ << text << '\n';
}

std::string errorText(unsigned long error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND: return "no such file";
    case ERROR_PATH_NOT_FOUND: return "no such folder";
    case ERROR_ACCESS_DENIED: return "access is denied";
    case ERROR_SHARING_VIOLATION: return "another program has the file open";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return "the disk is full";
    case ERROR_WRITE_PROTECT: return "the disk is write-protected";
    case ERROR_INVALID_NAME: return "this is no name of a file";
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return "the file is there already";
    case ERROR_NOT_ENOUGH_MEMORY: return "there is not enough memory";
    default: return "the system reports error " + std::to_string(error);
    }
}

} // namespace tool
