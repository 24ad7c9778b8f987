#include "RunProgram.h"
#include "TemporaryFolder.h"

#include <cstdlib>

int runProgram(const std::string &name, const std::vector<std::string> &arguments, const std::string &outputPath)
{
    std::string command = '"' + folderOfProgram() + name + ".exe\"";
    for (const std::string &argument : arguments)
        command += " \"" + argument + '"';
    // The shell takes the outer pair of quotes off.
    return system(('"' + command + " > \"" + outputPath + "\" 2>&1\"").c_str());
}
