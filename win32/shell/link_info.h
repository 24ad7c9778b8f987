// The part of a link file that tells on which volume or network share its target lies.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace win32 {

// False when a length or an offset points outside. The path is empty when the part names none.
bool readLinkInfo(std::string_view info, std::u16string &path);

std::string writeLinkInfo(std::u16string_view path);

} // namespace win32
