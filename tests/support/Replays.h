// Plays replays on programs that lie beside that of the tests.
#pragma once

#include "TemporaryFolder.h"

#include <string>

// The exit code of a program that is played the replay "steps" of a folder, there; what it prints goes to "errors".
// environment: more variables, NAME=VALUE and a blank after each.
int playReplay(const std::string &program, const std::string &folder, const std::string &environment);

class Replays {
public:
    struct Result {
        int status;
        std::string errors;
    };

    Result play(const std::string &program, const std::string &steps, const std::string &environment = "") const
    {
        folder.write("steps", steps);
        int status = playReplay(program, folder.path(), environment);
        std::string errors = folder.read("errors");
        std::erase(errors, '\r');
        return {status, errors};
    }

    TemporaryFolder folder{"replay"};
};
