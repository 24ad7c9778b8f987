// Keys and text of the desktop as keys of the layer.
//
// The desktop tells which key went down and, behind it, what text that makes with the user's layout. Where the text is
// what the layer makes of the key itself, the key is passed on. Where it is not, the text is, as characters without a
// key. A key that should make text and makes none (a dead key, one that an input method takes) is left out.
#pragma once

#include "key_table.h"

#include <map>
#include <string>

namespace win32::screen {

class DisplayKeys {
public:
    // The usage is the key's place, the code what the layout has there, the modifiers SDL's.
    void keyDown(int usage, int code, unsigned modifiers);
    void keyUp(int usage, unsigned modifiers);
    void text(const std::string &utf8);
    // No text follows the last key.
    void settle();
    // The desktop's keys are another's now: none stays down here.
    void releaseAll();

private:
    struct Waiting {
        int usage = 0; // 0: none waits for its text
        Key key{};
        unsigned modifiers = 0;
    };

    void press(int usage, const Key &key);
    void sendText(const std::u16string &units, bool isRightAltDown);

    std::map<int, Key> down_;
    Waiting waiting_;
    bool ignoresText_ = false; // of a key that is a command
    bool hasSeenText_ = false;
};

} // namespace win32::screen
