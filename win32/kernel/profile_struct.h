// Data as the text of a profile's value: two hexadecimal digits for each byte, and a last byte that is the sum
// of those before it.
#pragma once

#include <windows.h>

#include <string>

namespace win32 {

inline std::string profileStruct(const BYTE *data, UINT size)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve((size_t{size} + 1) * 2);
    BYTE sum = 0;
    auto append = [&](BYTE byte) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    };
    for (UINT place = 0; place < size; ++place) {
        append(data[place]);
        sum = static_cast<BYTE>(sum + data[place]);
    }
    append(sum);
    return text;
}

} // namespace win32
