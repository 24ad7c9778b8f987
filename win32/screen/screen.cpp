#include "screen.h"

#include "damage.h"
#include "display.h"
#include "kernel/kernel_internal.h"
#include "replay_player.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <mutex>

namespace win32::screen {
namespace {

using gdi::Box;

constexpr const char *defaultMode = "1024x768x32";
constexpr int mostPixels = 1 << 26;

struct Screen {
    ~Screen() { free(surface.bits); }

    std::string mode;
    gdi::Surface surface;
    gdi::ColorTable colors;
    std::vector<Monitor> monitors;
    Damage damage;
};

// The twenty colours that stay, half of them at each end, and grays between them until a palette is
// realized.
void fillSystemColors(gdi::ColorTable &table)
{
    constexpr RGBQUAD first[] = {{0, 0, 0, 0},       {0, 0, 0x80, 0},    {0, 0x80, 0, 0},       {0, 0x80, 0x80, 0},
                                 {0x80, 0, 0, 0},    {0x80, 0, 0x80, 0}, {0x80, 0x80, 0, 0},    {0xc0, 0xc0, 0xc0, 0},
                                 {0xc0, 0xdc, 0xc0, 0}, {0xf0, 0xca, 0xa6, 0}};
    constexpr RGBQUAD last[] = {{0xf0, 0xfb, 0xff, 0}, {0xa4, 0xa0, 0xa0, 0}, {0x80, 0x80, 0x80, 0}, {0, 0, 0xff, 0},
                                {0, 0xff, 0, 0},       {0, 0xff, 0xff, 0},    {0xff, 0, 0, 0},       {0xff, 0, 0xff, 0},
                                {0xff, 0xff, 0, 0},    {0xff, 0xff, 0xff, 0}};
    for (int i = 0; i < 256; ++i)
        table.colors[i] = {static_cast<BYTE>(i), static_cast<BYTE>(i), static_cast<BYTE>(i), 0};
    memcpy(table.colors, first, sizeof first);
    memcpy(table.colors + 256 - std::size(last), last, sizeof last);
    table.count = 256;
    table.changed();
}

struct MonitorMode {
    int width = 0;
    int height = 0;
    int depth = 0; // 0: that of the first monitor
};

// "1024x768" or "1024x768x32", and the place behind it.
bool readMonitor(const char *&text, MonitorMode &mode)
{
    int length = 0;
    if (sscanf(text, "%5dx%5d%n", &mode.width, &mode.height, &length) != 2)
        return false;
    text += length;
    if (*text == 'x') {
        length = 0;
        if (sscanf(text, "x%2d%n", &mode.depth, &length) != 1)
            return false;
        text += length;
    }
    bool isKnownDepth = mode.depth == 0 || mode.depth == 1 || mode.depth == 8 || mode.depth == 16 || mode.depth == 32;
    return mode.width > 0 && mode.height > 0 && isKnownDepth;
}

bool readMode(const std::string &text, std::vector<MonitorMode> &modes)
{
    const char *place = text.c_str();
    do {
        MonitorMode mode;
        if (!readMonitor(place, mode))
            return false;
        modes.push_back(mode);
    } while (*place++ == ',');
    return place[-1] == 0;
}

// One text for all spellings of a mode; empty for none.
std::string spelledOut(const std::string &text)
{
    std::vector<MonitorMode> modes;
    if (!readMode(text, modes))
        return {};
    std::string result;
    for (const MonitorMode &mode : modes) {
        result += (result.empty() ? "" : ",") + std::to_string(mode.width) + "x" + std::to_string(mode.height);
        if (&mode == &modes.front())
            result += "x" + std::to_string(mode.depth ? mode.depth : 32);
    }
    return result;
}

gdi::PixelFormat formatOf(int depth)
{
    return depth == 16 ? gdi::bitfieldsFormat(16, 0xf800, 0x07e0, 0x001f)
           : depth == 1 ? gdi::monochromeFormat()
                        : gdi::rgbFormat(depth);
}

std::unique_ptr<Screen> makeScreen(const std::string &text)
{
    std::vector<MonitorMode> modes;
    if (!readMode(text, modes))
        return nullptr;
    auto screen = std::make_unique<Screen>();
    screen->mode = spelledOut(text);
    gdi::Surface &surface = screen->surface;
    int64_t width = 0;
    for (const MonitorMode &mode : modes) {
        auto left = static_cast<int>(width);
        width += mode.width;
        surface.height = std::max(surface.height, mode.height);
        if (width * surface.height > mostPixels)
            return nullptr;
        screen->monitors.push_back({{left, 0, left + mode.width, mode.height},
                                    "\\\\.\\DISPLAY" + std::to_string(screen->monitors.size() + 1)});
    }
    surface.width = static_cast<int>(width);
    surface.format = formatOf(modes.front().depth ? modes.front().depth : 32);
    surface.stride = static_cast<ptrdiff_t>(gdi::dibStride(width, surface.format.bitsPerPixel));
    surface.bits = static_cast<uint8_t *>(calloc(static_cast<size_t>(surface.stride), static_cast<size_t>(surface.height)));
    if (!surface.bits)
        return nullptr;
    fillSystemColors(screen->colors);
    if (surface.format.layout == gdi::PixelLayout::Index8)
        surface.colors = &screen->colors;
    if (wantsDisplay())
        surface.listener = &screen->damage;
    return screen;
}

// Held while the screen is exchanged, and by threads that do not draw.
std::mutex &exchanging()
{
    static auto *made = new std::mutex;
    return *made;
}

// Never destroyed: whoever draws may do so to the end of the process.
std::unique_ptr<Screen> &current()
{
    static auto made = [] {
        const char *asked = getenv("WIN32_SCREEN");
        std::string ofReplay = asked ? std::string() : replayedScreenMode();
        if (!ofReplay.empty())
            asked = ofReplay.c_str();
        std::unique_ptr<Screen> screen = asked ? makeScreen(asked) : nullptr;
        if (asked && !screen)
            fprintf(stderr, "%s is no screen mode: \"%s\"; using %s\n", ofReplay.empty() ? "WIN32_SCREEN" : "The replay's",
                    asked, defaultMode);
        if (!screen)
            screen = makeScreen(defaultMode);
        return new std::unique_ptr<Screen>(std::move(screen));
    }();
    return *made;
}

} // namespace

const gdi::Surface &surface()
{
    return current()->surface;
}

const std::vector<Monitor> &monitors()
{
    return current()->monitors;
}

gdi::ColorTable &systemColors()
{
    return current()->colors;
}

bool setMode(const std::string &mode)
{
    std::unique_ptr<Screen> screen = makeScreen(mode);
    if (!screen)
        return fail(ERROR_INVALID_PARAMETER, false);
    // Contexts on the screen of before keep its pixels; they draw where nobody sees it.
    static auto &retired = *new std::vector<std::unique_ptr<Screen>>;
    retired.reserve(retired.size() + 1);
    std::unique_ptr<Screen> &place = current();
    std::lock_guard lock(exchanging());
    retired.push_back(std::exchange(place, std::move(screen)));
    if (place->surface.listener)
        place->surface.listener->damaged(place->surface.box());
    return true;
}

gdi::Surface surfaceNow()
{
    std::unique_ptr<Screen> &place = current();
    std::lock_guard lock(exchanging());
    return place->surface;
}

Size screenSize()
{
    gdi::Surface surface = surfaceNow();
    return {surface.width, surface.height};
}

std::string modeText()
{
    std::unique_ptr<Screen> &place = current();
    std::lock_guard lock(exchanging());
    return place->mode;
}

void beep()
{
    fputc('\a', stderr);
}

namespace {
bool isRightButtonFirst = false;
}

bool areButtonsSwapped()
{
    return isRightButtonFirst;
}

void swapButtons(bool isSwapped)
{
    isRightButtonFirst = isSwapped;
}

bool isScreenMode(const std::string &text)
{
    return spelledOut(text) == modeText();
}

DamagedBoxes takeDamage()
{
    std::unique_ptr<Screen> &place = current();
    std::lock_guard lock(exchanging());
    return place->damage.take();
}

} // namespace win32::screen
