// A port to write on, beside the same font used through plain native calls.
#pragma once

#include "Pascal.h"
#include "ShapeCanvas.h"

#include <cstring>
#include <string>

// A native font as the library asks for it, in a context of its own.
class PlainFont {
public:
    explicit PlainFont(const char *face, int size, int style = 0) : context_(CreateCompatibleDC(nullptr))
    {
        LOGFONTA font = {};
        font.lfHeight = -size;
        font.lfWeight = style & 1 ? FW_BOLD : FW_NORMAL;
        font.lfItalic = (style & 2) != 0;
        font.lfUnderline = (style & 4) != 0;
        font.lfCharSet = DEFAULT_CHARSET;
        font.lfQuality = PROOF_QUALITY;
        strcpy(font.lfFaceName, face);
        font_ = CreateFontIndirectA(&font);
        former_ = SelectObject(context_, font_);
    }
    ~PlainFont()
    {
        SelectObject(context_, former_);
        DeleteObject(font_);
        DeleteDC(context_);
    }
    PlainFont(const PlainFont &) = delete;
    PlainFont &operator=(const PlainFont &) = delete;

    HFONT handle() const { return font_; }
    TEXTMETRICA metrics() const
    {
        TEXTMETRICA metrics = {};
        GetTextMetricsA(context_, &metrics);
        return metrics;
    }
    SIZE extent(const std::string &text) const
    {
        SIZE extent = {};
        GetTextExtentPoint32A(context_, text.data(), static_cast<int>(text.size()), &extent);
        return extent;
    }
    // What the Toolbox calls a width.
    int width(const std::string &text) const { return extent(text).cx + metrics().tmOverhang; }
    int lineHeight() const { return metrics().tmHeight + metrics().tmExternalLeading; }

private:
    HDC context_;
    HFONT font_;
    HGDIOBJ former_;
};

class TextCanvas : public ShapeCanvas {
protected:
    TextCanvas()
    {
        InitFonts();
        GetFNum(Pascal("Arial"), &arial);
        TextFont(arial);
        TextSize(12);
    }
    ~TextCanvas() override
    {
        MacSetPort(nullptr);
        MTBX_ShutdownFonts();
    }

    // TextOutA with the pen on the base line.
    void writePlainly(const PlainFont &font, int x, int y, const std::string &text)
    {
        int saved = SaveDC(context());
        SelectObject(context(), font.handle());
        SetTextAlign(context(), TA_BASELINE);
        TextOutA(context(), x, y, text.data(), static_cast<int>(text.size()));
        RestoreDC(context(), saved);
    }
    static void write(const std::string &text) { MacDrawText(text.data(), 0, static_cast<SInt16>(text.size())); }

    SInt16 arial = 0;
};
