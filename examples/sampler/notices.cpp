// Notices to the user, and the picture about the program: small windows that go away with a click or a key. Alerts and
// dialogs will take their place.
#include "sampler.h"

#include <algorithm>

namespace {

constexpr SInt16 aboutPicture = 500;

struct Notice {
    WindowPtr window = nullptr;
    std::string text; // empty for the picture
};
Notice notice;

Rect centred(SInt16 width, SInt16 height)
{
    RECT desktop = {};
    GetClientRect(hWndMain, &desktop);
    auto left = static_cast<SInt16>(std::max<int>((desktop.right - width) / 2, 0));
    auto top = static_cast<SInt16>(std::max<int>((desktop.bottom - height) / 3, 24));
    return {top, left, static_cast<SInt16>(top + height), static_cast<SInt16>(left + width)};
}

void show(const std::string &title, const std::string &text, SInt16 width, SInt16 height)
{
    closeNotices();
    Rect place = centred(width, height);
    notice.text = text;
    notice.window =
        NewCWindow(nullptr, &place, PascalText(title), true, movableDBoxProc, reinterpret_cast<WindowPtr>(-1), true, 0);
}

void setFont(SInt16 size, SInt16 face)
{
    TextFont(GetSysFont());
    TextSize(size);
    TextFace(face);
}

size_t fittingLength(const std::string &text, SInt16 room)
{
    size_t fitting = 0;
    for (size_t blank = text.find(' ');; blank = text.find(' ', blank + 1)) {
        size_t length = std::min(blank, text.size());
        if (fitting && TextWidth(text.data(), 0, static_cast<SInt16>(length)) > room)
            return fitting;
        fitting = length;
        if (blank == std::string::npos)
            return fitting;
    }
}

void drawWrapped(std::string text, Rect box)
{
    constexpr SInt16 lineHeight = 18;
    for (SInt16 line = static_cast<SInt16>(box.top + lineHeight); !text.empty() && line < box.bottom;
         line = static_cast<SInt16>(line + lineHeight)) {
        size_t length = fittingLength(text, static_cast<SInt16>(box.right - box.left));
        MoveTo(box.left, line);
        DrawText(text.data(), 0, static_cast<SInt16>(length));
        text.erase(0, std::min(length + 1, text.size()));
    }
}

void drawAbout(const Rect &port)
{
    if (PicHandle picture = GetPicture(aboutPicture)) {
        Rect frame;
        QDGetPictureBounds(picture, &frame);
        OffsetRect(&frame, static_cast<SInt16>((port.right - frame.right + frame.left) / 2 - frame.left),
                   static_cast<SInt16>(14 - frame.top));
        DrawPicture(picture, &frame);
    }
    setFont(22, bold);
    MoveTo(static_cast<SInt16>((port.right - StringWidth(PascalText("Sampler"))) / 2),
           static_cast<SInt16>(port.bottom - 44));
    DrawString(PascalText("Sampler"));
    setFont(12, normal);
    PascalText line("A browser and paint program on MTBX");
    MoveTo(static_cast<SInt16>((port.right - StringWidth(line)) / 2), static_cast<SInt16>(port.bottom - 22));
    DrawString(line);
}

} // namespace

void showNotice(const std::string &text)
{
    show("Notice", text, 360, 84);
}

void showAbout()
{
    show("About Sampler", "", 300, 250);
}

bool isNotice(WindowPtr window)
{
    return window && window == notice.window;
}

void drawNotice(WindowPtr window)
{
    Rect port = window->portRect;
    EraseRect(&port);
    TextMode(srcOr);
    if (notice.text.empty()) {
        drawAbout(port);
        return;
    }
    setFont(13, normal);
    InsetRect(&port, 16, 10);
    drawWrapped(notice.text, port);
}

void closeNotices()
{
    if (!notice.window)
        return;
    SetPort(nullptr);
    DisposeWindow(notice.window);
    notice = {};
}
