#include "Replays.h"

#include <cstdlib>

int playReplay(const std::string &program, const std::string &folder, const std::string &environment,
               const std::string &arguments)
{
    std::string command = "cd /d \"" + folder + "\" && set WIN32_REPLAY=steps&& ";
    for (size_t place = 0; place < environment.size();) {
        size_t end = environment.find(' ', place);
        command += "set " + environment.substr(place, end - place) + "&& ";
        place = end + 1;
    }
    // The shell takes the outer pair of quotes off.
    return system(
        ('"' + command + '"' + folderOfProgram() + program + ".exe\" " + arguments + " > output 2> errors\"").c_str());
}
