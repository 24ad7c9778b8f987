// The text state of ports, and the font that their contexts hold for it.
#include "Text_internal.h"

#include <mtbx/Fonts.h>

namespace {

enum { nothingDone = 1 };

void setDirty(GrafPort &port)
{
    port.portFontDirty = 1;
}

template <class Field, class Value> void change(Field GrafPort::*field, Value value)
{
    GrafPtr port = qd.thePort;
    if (!port || port->*field == static_cast<Field>(value))
        return;
    port->*field = static_cast<Field>(value);
    setDirty(*port);
}

// The spare context serves all ports that have none, so another port's font may be in it meanwhile.
bool isInForce(const GrafPort &port, HDC context)
{
    bool hasOwnContext = contextOf(port);
    return !port.portFontDirty
           && (hasOwnContext || !port.portFont || GetCurrentObject(context, OBJ_FONT) == port.portFont);
}

// Where the spare context serves, there is nothing to put back for the port.
void select(GrafPort &port, HDC context, HFONT font)
{
    HGDIOBJ former = SelectObject(context, font);
    if (former && port.portSavedFont == nothingSaved && context == contextOf(port))
        port.portSavedFont = former;
}

SInt16 adopt(GrafPort &port, HDC context, FontInstance *instance)
{
    HFONT font = nullptr;
    SInt16 code = MTBX_LockHFnt(&instance, &font);
    if (code != kFontNoError)
        return code;
    select(port, context, font);
    FontInstance *former = port.portFontInstance;
    port.portFontInstance = instance;
    port.portFont = font;
    return former ? MTBX_UnlockHFnt(&former) : code;
}

void leaveSpareContext(HFONT font)
{
    if (fallbackDC && GetCurrentObject(fallbackDC, OBJ_FONT) == font)
        SelectObject(fallbackDC, GetStockObject(SYSTEM_FONT));
}

SInt16 release(GrafPort &port)
{
    if (FontInstance *instance = port.portFontInstance) {
        HFONT font = port.portFont;
        port.portFontInstance = nullptr;
        port.portFont = nullptr;
        leaveSpareContext(font);
        if (SInt16 code = MTBX_UnlockHFnt(&instance))
            return code;
    }
    if (port.portSavedFont == nothingSaved)
        return kFontNoError;
    HDC context = contextOf(port);
    if (!context)
        return nothingDone;
    SelectObject(context, port.portSavedFont);
    port.portSavedFont = nothingSaved;
    return kFontNoError;
}

} // namespace

SInt16 MTBX_SelectFont(GrafPtr port)
{
    if (!port)
        return kFontBadParameter;
    HDC own = contextOf(*port), context = own ? own : fallbackDC;
    if (isInForce(*port, context)) [[likely]]
        return kFontNoError;
    FontInstance *instance = nullptr;
    SInt16 code = MTBX_GetHFntFromFNum(port->txFont, port->txSize, port->txFace, &instance);
    if (code == kFontNoError) {
        if (instance != port->portFontInstance)
            code = adopt(*port, context, instance);
        else if (!own)
            select(*port, context, port->portFont);
    }
    port->portFontDirty = 0;
    return code;
}

SInt16 MTBX_UnselectFont(GrafPtr port)
{
    if (!port)
        return nothingDone;
    SInt16 code = port->portSavedFont ? release(*port) : SInt16{nothingDone};
    setDirty(*port);
    return code;
}

void TextFont(SInt16 font)
{
    change(&GrafPort::txFont, font);
}

void TextFace(SInt16 face)
{
    change(&GrafPort::txFace, face);
}

void TextSize(SInt16 size)
{
    change(&GrafPort::txSize, size);
}

void TextMode(SInt16 mode)
{
    GrafPtr port = qd.thePort;
    if (!port)
        return;
    port->txMode = mode;
    setDirty(*port);
    if (HDC context = contextOf(*port))
        SetBkMode(context, mode == srcOr ? TRANSPARENT : OPAQUE);
}

void MTBX_StartText()
{
    portFontCalls = {MTBX_SelectFont, MTBX_UnselectFont};
}
