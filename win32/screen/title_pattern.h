// Titles of windows as replays name them.
#pragma once

#include <string_view>

namespace win32::screen {

// Where * in the pattern stands for any characters.
bool matchesTitle(std::string_view pattern, std::string_view title);

} // namespace win32::screen
