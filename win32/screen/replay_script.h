// A replay as text: one step a line. Reading and writing; playing is replay_player's.
#pragma once

#include "key_table.h"

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace win32::screen {

enum class MouseButton : uint8_t { Left, Right, Middle };

struct Step {
    enum class Kind : uint8_t {
        Screen,      // text: the mode
        Limit,       // number: seconds that a wait may last
        Move,        // point
        Press,       // button
        Release,     // button
        Click,       // point, button
        DoubleClick, // point, button
        Wheel,       // number: notches, away from the user when above 0
        Key,         // keys: all pressed in order, then released
        KeyDown,     // keys: one
        KeyUp,       // keys: one
        Type,        // text in UTF-8
        WaitIdle,
        WaitTime,    // number: milliseconds
        WaitWindow,  // text: the title, with * for any characters
        WaitGone,    // text: the same
        Screenshot,  // text: the file; flag: without the cursor
        ExpectPixel, // point, color
        ExpectFront, // text: the title
        ExpectCount, // number: of windows with this title; text
        Repeat,      // number: how often the steps up to its End are played
        End,
        Close,
        Quit
    };

    Kind kind = Kind::Quit;
    POINT point{};
    int number = 0;
    MouseButton button = MouseButton::Left;
    bool flag = false;
    COLORREF color = 0;
    std::string text{};
    std::vector<const Key *> keys{};
    size_t partner = 0; // of Repeat and End: which step the other one is

    // Where it stands, and how it is written there; for messages.
    int line = 0;
    std::string source{};
};

struct Script {
    std::vector<Step> steps;
    // Empty when the text is in order, else what is wrong in which line.
    std::string problem;
    int problemLine = 0;
    std::string problemSource;
};

Script readScript(std::string_view text);

// The step as a line without its end. Reading it gives the same step.
std::string writeStep(const Step &step);

} // namespace win32::screen
