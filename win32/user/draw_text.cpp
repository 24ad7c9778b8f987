// DrawTextA: text in a rectangle, in lines, aligned and cut.
#include "gdi/box.h"
#include "kernel/kernel_internal.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

using namespace win32;
using namespace win32::gdi;

namespace {

constexpr std::string_view ellipsis = "...";
constexpr size_t none = std::string_view::npos;

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

bool isLineEnd(char character)
{
    return character == '\r' || character == '\n';
}

size_t characterLength(std::string_view text)
{
    return text.size() > 1 && IsDBCSLeadByte(static_cast<BYTE>(text[0])) && text[1] ? 2 : 1;
}

int widthOf(HDC context, std::string_view text)
{
    SIZE extent{};
    if (!text.empty())
        GetTextExtentPoint32A(context, text.data(), static_cast<int>(text.size()), &extent);
    return extent.cx;
}

// The bytes of a text that fit into a width.
size_t fitting(HDC context, std::string_view text, int width)
{
    int count = 0;
    SIZE extent;
    if (width > 0)
        GetTextExtentExPointA(context, text.data(), static_cast<int>(text.size()), width, &count, nullptr, &extent);
    return static_cast<size_t>(count);
}

// Text without the ampersands that mark letters; where it has none, the text itself.
class PlainText {
public:
    PlainText(std::string_view text, bool hasPrefixes)
    {
        underlined.clear();
        if (!hasPrefixes || text.find('&') == none) {
            plain = text;
            return;
        }
        buffer().clear();
        while (!text.empty()) {
            // A last one marks nothing and is shown.
            if (text[0] == '&' && text.size() > 1) {
                text.remove_prefix(1);
                if (text[0] != '&')
                    underlined.push_back(buffer().size());
            }
            size_t length = characterLength(text);
            buffer().append(text.substr(0, length));
            text.remove_prefix(length);
        }
        plain = buffer();
    }

    std::string_view plain;
    // Places of marked letters.
    std::vector<size_t> &underlined = marks();

private:
    // Kept from call to call.
    static std::string &buffer()
    {
        thread_local std::string kept;
        return kept;
    }
    static std::vector<size_t> &marks()
    {
        thread_local std::vector<size_t> kept;
        return kept;
    }
};

struct Line {
    std::string_view text;
    size_t start; // in the plain text
    size_t next;
    bool isLast;
};

class TextBlock {
public:
    TextBlock(HDC context, RECT &rect, UINT flags, const DRAWTEXTPARAMS *params);

    explicit operator bool() const { return isValid_; }
    bool hasPrefixes() const { return !(flags_ & DT_NOPREFIX); }
    int draw(const PlainText &text);
    // The text as an ellipsis has shortened it; nothing when it was not.
    const std::string &shortened() const { return shortened_; }
    size_t drawnBytes() const { return drawnBytes_; }

private:
    Line lineFrom(std::string_view text, size_t start) const;
    size_t wrapped(std::string_view line) const;
    size_t partOfWord(std::string_view word) const;
    int advanced(std::string_view text, int x) const;
    std::string_view withEllipsis(const Line &line);
    void putLine(std::string_view text, int y);
    void underline(std::string_view text, size_t place, int y);
    int startOf(int width) const;
    void setRect(int width, int height);
    int width() const { return wrappingDifference(area_.right, area_.left); }

    HDC context_;
    RECT &rect_;
    RECT area_; // within the margins
    UINT flags_;
    bool isValid_ = false;
    TEXTMETRICA metrics_{};
    int lineHeight_ = 0;
    int tabWidth_ = 1;
    int leftMargin_ = 0;
    int rightMargin_ = 0;
    std::string shortened_;
    size_t drawnBytes_ = 0;
};

TextBlock::TextBlock(HDC context, RECT &rect, UINT flags, const DRAWTEXTPARAMS *params)
    : context_(context), rect_(rect), area_(rect), flags_(flags)
{
    isValid_ = GetTextMetricsA(context, &metrics_) != FALSE;
    int tabLength = 8;
    if (flags & DT_TABSTOP) {
        tabLength = params ? params->iTabLength : static_cast<int>(flags >> 8 & 0xff);
        if (!params)
            flags_ &= ~0xff00u;
        tabLength = std::clamp(tabLength, 1, 0x10000);
    }
    tabWidth_ = std::max(static_cast<int>(std::min<int64_t>(int64_t{tabLength} * metrics_.tmAveCharWidth, INT_MAX)), 1);
    if (params) {
        leftMargin_ = params->iLeftMargin;
        rightMargin_ = params->iRightMargin;
        area_.left = wrappingSum(area_.left, leftMargin_);
        area_.right = wrappingDifference(area_.right, rightMargin_);
    }
    lineHeight_ = wrappingSum(metrics_.tmHeight, flags_ & DT_EXTERNALLEADING ? metrics_.tmExternalLeading : 0);
}

// Where text ends that begins at x, counted from the start of its line.
int TextBlock::advanced(std::string_view text, int x) const
{
    if (!(flags_ & DT_EXPANDTABS))
        return wrappingSum(x, widthOf(context_, text));
    while (true) {
        size_t tab = text.find('\t');
        x = wrappingSum(x, widthOf(context_, text.substr(0, tab)));
        if (tab == none)
            return x;
        x = wrappingSum(x, wrappingDifference(tabWidth_, x % tabWidth_));
        text.remove_prefix(tab + 1);
    }
}

size_t TextBlock::partOfWord(std::string_view word) const
{
    return std::max(fitting(context_, word, width()), characterLength(word));
}

size_t wordLength(std::string_view text)
{
    size_t length = characterLength(text);
    if (length == 2)
        return length; // lines may break between any two of these
    while (length < text.size() && !isBlank(text[length]) && characterLength(text.substr(length)) == 1)
        ++length;
    return length;
}

// How much of the text, which has no line end, goes into one line.
size_t TextBlock::wrapped(std::string_view line) const
{
    size_t place = 0;
    int x = 0;
    while (place < line.size()) {
        size_t length = isBlank(line[place]) ? 1 : wordLength(line.substr(place));
        std::string_view word = line.substr(place, length);
        int end = advanced(word, x);
        if (end > width() && !isBlank(word[0])) {
            if (place > 0)
                return place;
            return flags_ & DT_EDITCONTROL ? partOfWord(word) : length;
        }
        place += length;
        x = end;
    }
    return place;
}

Line TextBlock::lineFrom(std::string_view text, size_t start) const
{
    std::string_view rest = text.substr(start);
    if (flags_ & DT_SINGLELINE)
        return {rest, start, text.size(), true};
    size_t end = 0;
    while (end < rest.size() && !isLineEnd(rest[end]))
        end += characterLength(rest.substr(end));
    size_t length = flags_ & DT_WORDBREAK ? wrapped(rest.substr(0, end)) : end;
    size_t next = length;
    if (length == end) {
        if (next < rest.size())
            next += rest.substr(next).starts_with("\r\n") ? 2 : 1;
    } else {
        while (next < end && isBlank(rest[next]))
            ++next;
        while (length > 0 && isBlank(rest[length - 1]))
            --length;
    }
    return {rest.substr(0, length), start, start + next, start + next >= text.size()};
}

// The line, cut where it is too long and dots are asked for.
std::string_view TextBlock::withEllipsis(const Line &line)
{
    bool isWanted = (flags_ & DT_WORD_ELLIPSIS) || (line.isLast && (flags_ & (DT_END_ELLIPSIS | DT_PATH_ELLIPSIS)));
    if (!isWanted || advanced(line.text, 0) <= width())
        return line.text;
    int room = wrappingDifference(std::max(width(), 0), widthOf(context_, ellipsis));
    std::string_view tail;
    if (flags_ & DT_PATH_ELLIPSIS) {
        size_t separator = line.text.rfind('\\');
        if (separator != none && separator > 0)
            tail = line.text.substr(separator);
    }
    std::string_view head = line.text.substr(0, line.text.size() - tail.size());
    size_t kept = fitting(context_, head, wrappingDifference(room, widthOf(context_, tail)));
    shortened_.assign(head.substr(0, kept)).append(ellipsis).append(tail);
    return shortened_;
}

int TextBlock::startOf(int lineWidth) const
{
    int room = wrappingDifference(width(), lineWidth);
    if (flags_ & DT_CENTER)
        return wrappingSum(area_.left, room >> 1);
    return flags_ & DT_RIGHT ? wrappingSum(area_.left, room) : area_.left;
}

void TextBlock::putLine(std::string_view text, int y)
{
    int start = startOf(advanced(text, 0));
    UINT options = flags_ & DT_NOCLIP ? 0 : ETO_CLIPPED;
    int x = 0;
    while (!text.empty()) {
        size_t tab = flags_ & DT_EXPANDTABS ? text.find('\t') : none;
        std::string_view piece = text.substr(0, tab);
        if (!piece.empty())
            ExtTextOutA(context_, wrappingSum(start, x), y, options, &rect_, piece.data(),
                        static_cast<UINT>(piece.size()), nullptr);
        if (tab == none)
            break;
        x = advanced(text.substr(0, tab + 1), x);
        text.remove_prefix(tab + 1);
    }
}

// The line below a marked letter is a box in the text's colour.
void TextBlock::underline(std::string_view text, size_t place, int y)
{
    std::string_view letter = text.substr(place);
    letter = letter.substr(0, characterLength(letter));
    int start = startOf(advanced(text, 0));
    int left = wrappingSum(start, advanced(text.substr(0, place), 0));
    int top = wrappingSum(wrappingSum(y, metrics_.tmAscent), 1);
    Box line{left, top, wrappingSum(left, widthOf(context_, letter)), wrappingSum(top, 1)};
    if (!(flags_ & DT_NOCLIP))
        line = intersected(line, boxOf(rect_));
    if (isEmpty(line))
        return;
    RECT box = rectOf(line);
    COLORREF before = SetBkColor(context_, GetTextColor(context_));
    ExtTextOutA(context_, 0, 0, ETO_OPAQUE, &box, nullptr, 0, nullptr);
    SetBkColor(context_, before);
}

void TextBlock::setRect(int textWidth, int height)
{
    rect_.right = wrappingSum(wrappingSum(area_.left, textWidth), rightMargin_);
    rect_.bottom = wrappingSum(rect_.top, height);
}

int TextBlock::draw(const PlainText &text)
{
    bool isMeasured = (flags_ & DT_CALCRECT) != 0;
    int y = rect_.top;
    if (flags_ & DT_SINGLELINE) {
        if (flags_ & DT_BOTTOM)
            y = wrappingDifference(rect_.bottom, lineHeight_);
        else if (flags_ & DT_VCENTER)
            y = wrappingSum(rect_.top, wrappingDifference(rect_.bottom, rect_.top) / 2 - lineHeight_ / 2);
    }
    int widest = 0;
    auto mark = text.underlined.begin();
    for (size_t start = 0; start < text.plain.size();) {
        bool isCut = !isMeasured && !(flags_ & DT_NOCLIP)
                     && (flags_ & DT_EDITCONTROL ? wrappingSum(y, lineHeight_) : y) > rect_.bottom;
        if (isCut && !(flags_ & DT_SINGLELINE))
            break;
        Line line = lineFrom(text.plain, start);
        std::string_view shown = withEllipsis(line);
        if (isMeasured)
            widest = std::max(widest, advanced(shown, 0));
        else if (!(flags_ & DT_PREFIXONLY))
            putLine(shown, y);
        // Of several marks in a line the last one counts.
        size_t marked = none;
        for (; mark != text.underlined.end() && *mark < line.next; ++mark)
            marked = *mark - line.start;
        if (marked < shown.size() && !isMeasured && !(flags_ & DT_HIDEPREFIX))
            underline(shown, marked, y);
        y = wrappingSum(y, lineHeight_);
        start = line.next;
        drawnBytes_ = line.next;
    }
    if (isMeasured)
        setRect(widest, wrappingDifference(y, rect_.top));
    return wrappingDifference(y, rect_.top);
}

// Flags that a Windows program sets together with DT_MODIFYSTRING leave room for the dots behind its text.
int drawText(HDC context, const char *text, int count, char *modified, RECT *rect, UINT flags, DRAWTEXTPARAMS *params)
{
    if (!text || !rect || count < -1 || (params && params->cbSize != sizeof *params))
        return fail(ERROR_INVALID_PARAMETER, 0);
    std::string_view whole(text, count < 0 ? strlen(text) : static_cast<size_t>(count));
    if (whole.empty())
        return 0;
    return guarded(0, [&] {
        TextBlock block(context, *rect, flags, params);
        if (!block)
            return 0;
        PlainText plain(whole, block.hasPrefixes());
        int height = block.draw(plain);
        if (params)
            params->uiLengthDrawn = static_cast<UINT>(std::min(block.drawnBytes(), whole.size()));
        if (modified && (flags & DT_MODIFYSTRING) && !block.shortened().empty())
            memcpy(modified, block.shortened().c_str(),
                   std::min(block.shortened().size(), whole.size() + ellipsis.size()) + 1);
        return height;
    });
}

} // namespace

int DrawTextA(HDC context, LPCSTR text, int count, LPRECT rect, UINT flags)
{
    return drawText(context, text, count, const_cast<LPSTR>(text), rect, flags, nullptr);
}

int DrawTextExA(HDC context, LPSTR text, int count, LPRECT rect, UINT flags, LPDRAWTEXTPARAMS params)
{
    return drawText(context, text, count, text, rect, flags, params);
}
