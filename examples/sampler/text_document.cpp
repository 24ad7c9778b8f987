// Text files, laid out on a page: a line that begins with # or ## is a heading, one with > is set in italics, and one
// with four blanks in a fixed face; all others are paragraphs.
#include "sampler.h"

#include <algorithm>

namespace {

constexpr SInt16 pageWidth = 560, margin = 24, lowestRow = 32000;

struct Manner {
    const char *font;
    SInt16 size;
    SInt16 face;
    SInt16 indent;
    SInt16 above;
};

constexpr Manner body = {"Times New Roman", 16, normal, 0, 4};
constexpr Manner title = {"Arial", 30, bold, 0, 6};
constexpr Manner heading = {"Arial", 20, bold, 0, 16};
constexpr Manner quotation = {"Times New Roman", 16, italic, 28, 6};
constexpr Manner fixedText = {"Courier New", 14, normal, 12, 0};

bool startsWith(const std::string &line, const char *begin)
{
    return line.rfind(begin, 0) == 0;
}

const Manner &mannerOf(std::string &line)
{
    struct Mark {
        const char *begin;
        const Manner &manner;
    };
    static const Mark marks[] = {{"## ", heading}, {"# ", title}, {"> ", quotation}, {"    ", fixedText}};
    for (const Mark &mark : marks) {
        if (startsWith(line, mark.begin)) {
            line.erase(0, std::string(mark.begin).size());
            return mark.manner;
        }
    }
    return body;
}

void setFont(const Manner &manner)
{
    SInt16 family = 0;
    GetFNum(PascalText(manner.font), &family);
    TextFont(family);
    TextSize(manner.size);
    TextFace(manner.face);
}

std::vector<std::string> linesOf(const char *text, Size length)
{
    std::vector<std::string> lines(1);
    for (Size i = 0; i < length; ++i) {
        char each = text[i];
        if (each == '\r' && i + 1 < length && text[i + 1] == '\n')
            continue;
        if (each == '\r' || each == '\n')
            lines.emplace_back();
        else if (each == '\t')
            lines.back() += "    ";
        else if (static_cast<unsigned char>(each) >= ' ')
            lines.back() += each;
    }
    return lines;
}

// The page as it is drawn, or only measured.
class Page {
public:
    explicit Page(bool isDrawn) : isDrawn_(isDrawn) {}

    void add(std::string line)
    {
        const Manner &manner = mannerOf(line);
        setFont(manner);
        GetFontInfo(&font_);
        bottom_ += manner.above;
        do {
            if (bottom_ > lowestRow)
                return;
            size_t fitting = &manner == &fixedText ? line.size() : fittingLength(line, manner);
            put(line.substr(0, fitting), manner);
            line.erase(0, fitting);
            line.erase(0, line.find_first_not_of(' ') == std::string::npos ? line.size() : line.find_first_not_of(' '));
        } while (!line.empty());
        if (isDrawn_ && &manner == &title)
            rule();
    }
    SInt16 height() const { return static_cast<SInt16>(bottom_ + margin); }

private:
    static SInt16 widthOf(const std::string &text, size_t length)
    {
        return TextWidth(text.data(), 0, static_cast<SInt16>(length));
    }

    // Up to the last blank that leaves the rest within the margins; a long word is cut.
    static size_t fittingLength(const std::string &line, const Manner &manner)
    {
        constexpr size_t longest = 2000;
        SInt16 room = static_cast<SInt16>(pageWidth - 2 * margin - manner.indent);
        size_t most = std::min(line.size(), longest);
        if (most == line.size() && widthOf(line, most) <= room)
            return most;
        size_t low = 1, high = most;
        while (low < high) {
            size_t middle = (low + high + 1) / 2;
            if (widthOf(line, middle) <= room)
                low = middle;
            else
                high = middle - 1;
        }
        size_t blank = line.rfind(' ', low);
        return blank == std::string::npos || blank == 0 ? low : blank;
    }

    void put(const std::string &text, const Manner &manner)
    {
        if (isDrawn_) {
            MoveTo(static_cast<SInt16>(margin + manner.indent), static_cast<SInt16>(bottom_ + font_.ascent));
            DrawText(text.data(), 0, static_cast<SInt16>(text.size()));
        }
        bottom_ += font_.ascent + font_.descent + font_.leading + 2;
    }

    void rule() const
    {
        PenSize(1, 2);
        MoveTo(margin, static_cast<SInt16>(bottom_ + 1));
        LineTo(pageWidth - margin, static_cast<SInt16>(bottom_ + 1));
        PenNormal();
    }

    bool isDrawn_;
    int bottom_ = margin;
    FontInfo font_{};
};

OSErr readText(const std::string &path, std::vector<std::string> &lines)
{
    Handle text = NewHandle(0);
    if (!text)
        return memFullErr;
    OSErr error = readFile(path, text);
    if (error == noErr)
        lines = linesOf(*text, GetHandleSize(text));
    DisposeHandle(text);
    return error;
}

SInt16 layOut(const std::vector<std::string> &lines, bool isDrawn)
{
    Page page(isDrawn);
    for (const std::string &line : lines)
        page.add(line);
    return page.height();
}

} // namespace

OSErr renderText(const std::string &path, GWorldPtr &world)
try {
    std::vector<std::string> lines;
    OSErr error = readText(path, lines);
    if (error != noErr)
        return error;
    // One bit a pixel: long texts stay small. It is measured in a world of its own, since fonts need a port.
    Rect bounds = {0, 0, 1, pageWidth};
    error = NewGWorld(&world, 1, &bounds, nullptr, nullptr, 0);
    if (error != noErr)
        return error;
    SetPort(world);
    bounds.bottom = layOut(lines, false);
    if (static_cast<SInt32>(UpdateGWorld(&world, 1, &bounds, nullptr, nullptr, 0)) != noErr) {
        DisposeGWorld(world);
        world = nullptr;
        return memFullErr;
    }
    SetPort(world);
    EraseRect(&bounds);
    layOut(lines, true);
    return noErr;
} catch (const std::bad_alloc &) {
    return memFullErr;
}
