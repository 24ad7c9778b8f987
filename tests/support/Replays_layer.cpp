#include "Replays.h"

#include <algorithm>
#include <cstdlib>
#include <sys/wait.h>

namespace {

// Of a path on drive Z:, as those of programs and temporary folders are.
std::string unixPath(std::string path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    return path.substr(2);
}

} // namespace

int playReplay(const std::string &program, const std::string &folder, const std::string &environment,
               const std::string &arguments)
{
    std::string command = "cd '" + unixPath(folder) + "' && env -u WIN32_SCREEN WIN32_DISPLAY=none WIN32_REPLAY=steps "
                          + environment + "'" + unixPath(folderOfProgram()) + program + "' " + arguments
                          + " > output 2> errors";
    int status = system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
