// Conversion between the active code page and UTF-16.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace win32 {

// Characters that the code page lacks become question marks.
std::string ansiFromUtf16(std::u16string_view text);

} // namespace win32
