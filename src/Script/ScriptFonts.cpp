// The character sets of scripts, of which two are those of fonts in use, and what follows from them.
#include "Script_internal.h"

#include "Quickdraw/Quickdraw_internal.h"

namespace {

constexpr ScriptCode highestScript = 30;

UInt8 characterSetOfFont(HGDIOBJ font)
{
    LOGFONTA description{};
    GetObjectA(font, sizeof description, &description);
    return description.lfCharSet;
}

UInt8 characterSetOfSystem()
{
    return characterSetOfFont(GetStockObject(SYSTEM_FONT));
}

// That of the current port's font, which is selected to be the one that its text state asks for.
UInt8 characterSetOfPort()
{
    GrafPtr port = qd.thePort;
    if (!port || !port->portFont || !portFontCalls.select)
        return characterSetOfSystem();
    portFontCalls.select(port);
    UInt8 characterSet = characterSetOfFont(port->portFont);
    portFontCalls.unselect(port);
    return characterSet;
}

} // namespace

UInt8 MTBX_MacScriptToCharSet(ScriptCode script)
{
    if (script == smCurrentScript)
        return characterSetOfPort();
    if (script == smSystemScript)
        return characterSetOfSystem();
    bool isScript = script >= smRoman && script <= highestScript;
    return isScript ? script::characterSetOf(script) : UInt8{0};
}

UInt32 MTBX_MacScriptToCodePage(ScriptCode script)
{
    return MTBX_CharsetToCodePage(MTBX_MacScriptToCharSet(script));
}

SInt16 CharacterByteType(const char *text, SInt16 offset, ScriptCode script)
{
    return script::byteType(text, offset, MTBX_MacScriptToCodePage(script));
}
