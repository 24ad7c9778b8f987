// Plays replays on programs that lie beside that of the tests.
#pragma once

#include "TemporaryFolder.h"

#include <string>

// The exit code of a program that is played the replay "steps" of a folder, there; what it prints goes to "output" and
// "errors". environment: more variables, NAME=VALUE and a blank after each.
int playReplay(const std::string &program, const std::string &folder, const std::string &environment,
               const std::string &arguments);

class Replays {
public:
    // A line in the sketch program, drawn in green with a thick pen.
    static constexpr const char *sketchedLine = "screen 640x480x32\n"
                                                "wait window \"Sk*\"\n"
                                                "click 60 130\n" // green
                                                "wheel 5\n"
                                                "move 150 150\n"
                                                "press\n"
                                                "move 250 250\n"
                                                "move 350 150\n"
                                                "release\n"
                                                "expect pixel 250 249 208020\n"
                                                "expect pixel 151 151 208020\n"
                                                "expect pixel 150 200 ffffff\n";

    struct Result {
        int status;
        std::string errors;
        std::string output;
    };

    Result play(const std::string &program, const std::string &steps, const std::string &environment = "",
                const std::string &arguments = "") const
    {
        folder.write("steps", steps);
        int status = playReplay(program, folder.path(), environment, arguments);
        return {status, printed("errors"), printed("output")};
    }

    std::string printed(const std::string &name) const
    {
        std::string text = folder.read(name);
        std::erase(text, '\r');
        return text;
    }

    TemporaryFolder folder{"replay"};
};
