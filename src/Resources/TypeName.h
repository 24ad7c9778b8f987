// A resource type as Win32 names it: the string type in a module, and the section in a text file.
#pragma once

#include <mtbx/MacTypes.h>

namespace resources {

class TypeName {
public:
    // Blanks at the end do not count. Win32 takes a name that begins with a digit for a number, so such a name
    // begins with an underscore.
    explicit TypeName(ResType type)
    {
        char characters[] = {static_cast<char>(type >> 24), static_cast<char>(type >> 16), static_cast<char>(type >> 8),
                             static_cast<char>(type)};
        int length = 4;
        while (length > 1 && characters[length - 1] == ' ')
            --length;
        char *end = text_;
        if (characters[0] >= '0' && characters[0] <= '9')
            *end++ = '_';
        for (int place = 0; place < length; ++place)
            *end++ = characters[place];
        *end = 0;
    }

    const char *text() const { return text_; }

private:
    char text_[6];
};

} // namespace resources
