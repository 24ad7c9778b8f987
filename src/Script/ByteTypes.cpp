// Bytes of double-byte text.
#include "Script_internal.h"

SInt16 script::byteType(const char *text, SInt16 offset, UInt32 codePage)
{
    auto isLeadByte = [&](SInt32 place) { return IsDBCSLeadByteEx(codePage, static_cast<BYTE>(text[place])) != FALSE; };
    SInt32 place = 0;
    while (place < offset)
        place += isLeadByte(place) ? 2 : 1;
    if (place > offset)
        return smLastByte;
    return isLeadByte(place) ? smFirstByte : smSingleByte;
}

SInt16 CharByte(const char *text, SInt16 offset)
{
    return script::byteType(text, offset, CP_ACP);
}
