// Text at the pen: bytes in lines, strings, single characters.
#include "Text_internal.h"

#include <mtbx/Fonts.h>
#include <mtbx/MTBXGlobals.h>

#include <algorithm>
#include <cstring>

namespace {

// A basic port has its origin in the context, and pixels of the host's in its bitmap, for one drawing only.
class BasicPortScope {
public:
    BasicPortScope(const GrafPort &port, HDC context) : port_(port), context_(context)
    {
        if (isColorPort(port))
            return;
        if (size_t size = bitmapSize())
            SetBitmapBits(port.portBitmap, static_cast<DWORD>(size), port.portBits.baseAddr);
        formerBitmap_ = SelectObject(context, port.portBitmap);
        SetWindowOrgEx(context, port.portRect.left, port.portRect.top, &formerOrigin_);
    }
    ~BasicPortScope()
    {
        if (isColorPort(port_))
            return;
        SetWindowOrgEx(context_, formerOrigin_.x, formerOrigin_.y, nullptr);
        if (formerBitmap_)
            SelectObject(context_, formerBitmap_);
        if (size_t size = bitmapSize())
            GetBitmapBits(port_.portBitmap, static_cast<LONG>(size), port_.portBits.baseAddr);
    }
    BasicPortScope(const BasicPortScope &) = delete;
    BasicPortScope &operator=(const BasicPortScope &) = delete;

private:
    size_t bitmapSize() const
    {
        BITMAP bitmap = {};
        bool isThere = port_.portBits.baseAddr && GetObjectA(port_.portBitmap, sizeof bitmap, &bitmap);
        return isThere ? static_cast<size_t>(bitmap.bmHeight) * static_cast<size_t>(bitmap.bmWidthBytes) : 0;
    }

    const GrafPort &port_;
    HDC context_;
    HGDIOBJ formerBitmap_ = nullptr;
    POINT formerOrigin_ = {};
};

struct Line {
    const char *start;
    SInt32 length;
    bool hasBreak;
};

// The line at a place before the end, with the line end behind it. Trail bytes end no line.
Line lineAt(const char *start, const char *end)
{
    const char *place = start;
    while (place < end) {
        auto byte = static_cast<BYTE>(*place);
        if (byte == '\r' || byte == '\n')
            return {start, static_cast<SInt32>(place - start), true};
        place += byte >= 0x80 && IsDBCSLeadByte(byte) ? 2 : 1;
    }
    return {start, static_cast<SInt32>(end - start), false};
}

void drawLine(const GrafPort &port, HDC context, const Line &line)
{
    enum { centered = DT_SINGLELINE | DT_VCENTER };
    if (S_use_DrawTextB)
        DrawTextA(context, line.start, line.length, &S_drawTextR, centered);
    else
        TextOutA(context, port.pnLoc.h, port.pnLoc.v, line.start, line.length);
}

void moveDownOneLine(GrafPort &port)
{
    FontInfo info;
    GetFontInfo(&info);
    port.pnLoc.v = static_cast<SInt16>(port.pnLoc.v + info.ascent + info.descent + info.leading);
}

void drawLines(GrafPort &port, HDC context, const char *text, const char *end)
{
    Line line = {text, 0, false};
    do {
        line = lineAt(text, end);
        drawLine(port, context, line);
        if (line.hasBreak)
            moveDownOneLine(port);
        text = line.start + line.length + 1;
    } while (text < end);
    MTBX_AdvancePen(port, MTBX_MeasureText(context, line.start, line.length).width);
}

// So many bytes are drawn at most.
SInt16 cutCount(SInt16 byteCount)
{
    constexpr SInt16 mostBytes = 32765;
    return std::clamp<SInt16>(byteCount, 0, mostBytes);
}

} // namespace

void MacDrawText(const void *text, SInt16 firstByte, SInt16 byteCount)
{
    const char *start = static_cast<const char *>(text) + firstByte;
    if (MTBX_TextHook(byteCount, start, {1, 1}, {1, 1}))
        return;
    HDC context = currentContext();
    if (!context)
        return;
    GrafPort &port = *qd.thePort;
    BasicPortScope basicPort(port, context);
    SetTextAlign(context, S_use_DrawTextB ? TA_LEFT | TA_TOP : TA_BASELINE);
    MTBX_SelectFont(&port);
    drawLines(port, context, start, start + strnlen(start, static_cast<size_t>(cutCount(byteCount))));
}

void DrawString(ConstStr255Param text)
{
    if (qd.thePort && qd.thePort->txMode == srcXor)
        MTBX_DrawStringTurnedOver(text);
    else
        MacDrawText(text, 1, text[0]);
}

void DrawChar(SInt16 character)
{
    HDC context = currentContext();
    if (!context)
        return;
    GrafPort &port = *qd.thePort;
    auto code = static_cast<UInt16>(character);
    const char bytes[2] = {static_cast<char>(code >> 8), static_cast<char>(code)};
    bool isLong = code >> 8 != 0 && code >> 8 != 0xFF;
    const char *start = isLong ? bytes : bytes + 1;
    SInt32 length = isLong ? 2 : 1;
    SetTextAlign(context, TA_BASELINE);
    SInt16 error = MTBX_SelectFont(&port);
    if (error == kFontNoError)
        TextOutA(context, port.pnLoc.h, port.pnLoc.v, start, length);
    else
        qdErrorValue = error;
    MTBX_AdvancePen(port, MTBX_MeasureText(context, start, length).width);
}
