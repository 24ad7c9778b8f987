// Conversion between the active code page, UTF-16 and UTF-8, for the layer's own use.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace win32 {

// Characters that the code page lacks become question marks.
std::string ansiFromUtf16(std::u16string_view text);

// Bytes that the code page lacks become question marks; UTF-8 that is malformed, U+FFFD.
std::u16string utf16FromAnsi(std::string_view text);

std::string utf8FromUtf16(std::u16string_view text);

// Nothing when the bytes are not UTF-8.
bool utf16FromUtf8(std::string_view text, std::u16string &result);

} // namespace win32
