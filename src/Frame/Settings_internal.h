// Settings that are read without writing a default back. All lie in one section of the host's
// settings file.
#pragma once

#include <mtbx/MTBXEnvironment.h>

// The length of the text in the buffer, which is always terminated.
UInt32 MTBX_GetProfileString(const char *key, const char *defaultText, char *buffer, UInt32 size);
OSErr MTBX_SetProfileString(const char *key, const char *value);
SInt32 MTBX_GetProfileInt(const char *key, SInt32 defaultValue);
