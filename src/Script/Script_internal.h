// What the files of the Script Manager share.
#pragma once

#include <mtbx/Script.h>

namespace script {

// The character set of a script by its number; that of Roman for a script that has no other.
UInt8 characterSetOf(ScriptCode script);

// The kind of the byte at an offset, by a walk from the start of the text; codePage 0 is the system's.
SInt16 byteType(const char *text, SInt16 offset, UInt32 codePage);

} // namespace script
