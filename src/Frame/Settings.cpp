// The settings file.
#include "Settings_internal.h"

#include <mtbx/MacErrors.h>

#include <cstdio>
#include <cstring>

namespace {

constexpr char section[] = "Zephant";

char settingsFile[MAX_PATH];

} // namespace

void MTBX_SetZPPrefsFile(const char *path)
{
    size_t length = strnlen(path, sizeof settingsFile - 1);
    memmove(settingsFile, path, length);
    settingsFile[length] = 0;
}

const char *MTBX_GetZPPrefsFile()
{
    return settingsFile;
}

UInt32 MTBX_GetProfileString(const char *key, const char *defaultText, char *buffer, UInt32 size)
{
    return GetPrivateProfileStringA(section, key, defaultText, buffer, size, settingsFile);
}

OSErr MTBX_SetProfileString(const char *key, const char *value)
{
    if (WritePrivateProfileStringA(section, key, value, settingsFile))
        return noErr;
    return static_cast<OSErr>(MTBX_GetLastError());
}

SInt32 MTBX_GetProfileInt(const char *key, SInt32 defaultValue)
{
    return static_cast<SInt32>(GetPrivateProfileIntA(section, key, defaultValue, settingsFile));
}

OSErr MTBX_SetProfileInt(const char *key, SInt32 value)
{
    char text[16];
    snprintf(text, sizeof text, "%d", static_cast<int>(value));
    return MTBX_SetProfileString(key, text);
}

SInt32 MTBX_GetRequiredProfileInt(const char *key, SInt32 defaultValue)
{
    char text[16];
    if (MTBX_GetProfileString(key, "", text, sizeof text) == 0) {
        MTBX_SetProfileInt(key, defaultValue);
        return defaultValue;
    }
    return MTBX_GetProfileInt(key, defaultValue);
}
