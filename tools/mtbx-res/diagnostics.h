// What the tool tells about a file that it cannot take as it is, and the exit code that follows.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>

namespace tool {

enum ExitCode {
    exitDone = 0,
    exitFailed = 1, // nothing was written
    exitUsage = 2,
    exitPartly = 3 // something was left out, as told
};

class Diagnostics {
public:
    explicit Diagnostics(std::ostream &stream) : stream_(stream) {}

    // A file is told of as the user spelled it.
    void setShownName(const std::string &path, const std::string &name) { shownNames_[path] = name; }

    // The command cannot go on. Always false, for the caller to return.
    bool fail(const std::string &file, const std::string &text, std::optional<uint64_t> offset = {});
    // Something is left out and the command goes on.
    void leftOut(const std::string &file, const std::string &text, std::optional<uint64_t> offset = {});
    // Worth knowing, and nothing is lost. The same is told once.
    void note(const std::string &file, const std::string &text);

    ExitCode exitCode() const { return exitCode_; }

private:
    void print(const std::string &file, const std::string &text, std::optional<uint64_t> offset);

    std::ostream &stream_;
    std::map<std::string, std::string> shownNames_;
    ExitCode exitCode_ = exitDone;
    unsigned leftOutCount_ = 0;
    std::set<std::string> notes_;
};

// What a Win32 error means.
std::string errorText(unsigned long error);

} // namespace tool
