// Names of files: the ANSI spelling that Win32 calls use, and the UTF-8 spelling on disk.
//
// A disk name that Win32 cannot spell (bytes that are not UTF-8, characters that the code page lacks or
// that Win32 forbids, blanks and dots at the end) is shown with each such byte as "%" and two hexadecimal
// digits, and a "%" in it as "%25". A Win32 name is looked for literally first and so decoded second.
#pragma once

#include <string>
#include <string_view>

namespace win32::names {

std::string diskFromAnsi(std::string_view name);
void appendDisk(std::string &path, std::string_view ansiName);
std::string ansiFromDisk(std::string_view name);

// The disk name that an escaped spelling stands for; false when the name has no escape.
bool unescape(std::string_view ansiName, std::string &diskName);

// A key under which names that differ only in case are equal.
std::string folded(std::string_view diskName);

// Whether a name may be given to a new file: no character below a blank and none of < > : " / \ | ? *
bool isAllowed(std::string_view ansiName);

// Whether the name fits a pattern of "*" and "?" by the rules of FindFirstFile: "*.*" fits every name, a
// pattern that ends in a dot fits names without one, and "?" fits nothing too at the end of a name or
// before a dot.
bool fitsPattern(std::string_view ansiName, std::string_view pattern);

} // namespace win32::names
