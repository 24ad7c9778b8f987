// The command line of the tool.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace classic {

enum ExitCode {
    exitDone = 0,
    exitFailed = 1, // nothing was written, or a check found something
    exitUsage = 2
};

int run(const std::vector<std::string> &arguments, std::ostream &output, std::ostream &errors);

} // namespace classic
