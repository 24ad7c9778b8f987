// The table of user-visible strings that a host may translate, and string resources.
#include "Strings_internal.h"

#include <mtbx/MTBXEnvironment.h>
#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacErrors.h>

#include <jrnl/jrnl.h>

#include <array>
#include <cstdlib>
#include <cstring>

namespace {

constexpr SInt32 birthLevel = 10;

using StringTable = std::array<const char *, kMTBXStringCount>;

StringTable strings = {
    "",
    "All Files",
    "Zephant Error",
    "Could not append file extension to filename.",
    "Zephant allocated more memory to support a large file selection.  Please retry import.",
    "Error occured while attempting to draw the text.  Most likely memory is low.",
    "VERTICAL_FONT_HEIGHT_ADJUSTMENT=0",
    "\tCtrl+",
    "Unable to create Windows %d bit DIBSection",
    "Display driver does not support %s as required by Zephant.  \n\nShutting down.",
    "Zephant Fatal Error",
    "memory allocation failed",
    "attempting to purge illegal or locked memory",
    "illegal parameter specified",
    "attempting to unlock a font that is not locked",
    "specified face name is too long",
    "illegal FNum specified in parameter",
    "font could not be created",
    "attempting to delete a font that is locked",
    "attempting to delete an HFONT which is selected into an HDC",
    "Unknown Error",
    "Zephant Warning",
    "Orvane Zephant requires your display be reconfigured to support more than 256-colors.\n"
    "If you proceed screen colors may appear incorrect.\n\nDo you wish to continue?",
    "Orvane Zephant requires your display be reconfigured to support more than 256-colors.",
    "File path '%s' is too long.",
};

StringTable savedStrings; // null entries until MTBX_StringBirth

bool isIndex(SInt32 index)
{
    return index >= 0 && index < kMTBXStringCount;
}

} // namespace

const char *MTBX_GetStringConstant(SInt32 index)
{
    const char *text = strings[isIndex(index) ? static_cast<size_t>(index) : 0];
    return text ? text : "";
}

SInt32 MTBX_GetStringConstantInt(SInt32 index)
{
    const char *text = MTBX_GetStringConstant(index);
    const char *equals = strrchr(text, '=');
    return equals ? static_cast<SInt32>(strtol(equals + 1, nullptr, 0)) : 0;
}

OSErr MTBX_SetStringConstant(SInt16 index, const char *text)
{
    if (!isIndex(index))
        return paramErr;
    strings[static_cast<size_t>(index)] = text;
    return noErr;
}

OSErr MTBX_StringBirth()
{
    JRNL_Log(birthLevel, "MTBX", "Birth", "MTBX String Birth");
    if (savedStrings[0])
        return paramErr;
    savedStrings = strings;
    return noErr;
}

OSErr MTBX_StringDeath()
{
    JRNL_Log(birthLevel, "MTBX", "Death", "MTBX String Death");
    if (!savedStrings[0])
        return paramErr;
    strings = savedStrings;
    return noErr;
}

void MTBX_LoadWinString(UInt32 id, char *buffer, SInt16 bufferSize, const char *defaultText)
{
    if (LoadStringA(hResInst, id, buffer, bufferSize) == 0)
        memmove(buffer, defaultText, strlen(defaultText) + 1);
}
