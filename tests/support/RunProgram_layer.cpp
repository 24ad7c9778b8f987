#include "RunProgram.h"
#include "TemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <sys/wait.h>

namespace {

// Of a path on drive Z:, as those of programs and temporary folders are.
std::string quotedUnixPath(std::string path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    return "'" + path.substr(2) + "'";
}

} // namespace

int runProgram(const std::string &name, const std::vector<std::string> &arguments, const std::string &outputPath)
{
    std::string command = quotedUnixPath(folderOfProgram() + name);
    for (const std::string &argument : arguments)
        command += " '" + argument + "'";
    int status = system((command + " > " + quotedUnixPath(outputPath) + " 2>&1").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
