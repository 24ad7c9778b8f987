// Text between the program's clipboard and the desktop's. Line ends are those of each side.
#pragma once

#include "sdl_library.h"

#include <windows.h>

#include <string>

namespace win32::screen {

class DisplayClipboard {
public:
    explicit DisplayClipboard(const Sdl &sdl) : sdl_(sdl) {}

    // The program's text to the desktop, when it is another than before. What is only promised stays so until the user
    // goes elsewhere.
    void share();
    void sharePromised();
    // The desktop's text to the program. False when the program has its clipboard open: try again.
    bool fetch();

private:
    void give(const std::u16string &text);

    const Sdl &sdl_;
    DWORD generation_ = 0; // of the program's clipboard, as far as it was shared
    std::string common_;   // the text that both sides have, in the desktop's form
    bool hasPromise_ = false;
};

} // namespace win32::screen
