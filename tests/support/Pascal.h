// Pascal strings for tests.
#pragma once

#include <mtbx/MacTypes.h>

#include <cstring>
#include <string>

class Pascal {
public:
    explicit Pascal(const std::string &text = "")
    {
        bytes_[0] = static_cast<unsigned char>(text.size());
        memcpy(bytes_ + 1, text.data(), text.size());
    }

    operator StringPtr() { return bytes_; }
    std::string text() const { return std::string(reinterpret_cast<const char *>(bytes_ + 1), bytes_[0]); }

private:
    Str255 bytes_;
};

inline std::string pascalText(const unsigned char *bytes)
{
    return std::string(reinterpret_cast<const char *>(bytes + 1), bytes[0]);
}
