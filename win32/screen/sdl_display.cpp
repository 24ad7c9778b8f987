#include "sdl_display.h"

#include "display.h"
#include "display_cursor.h"
#include "gdi/convert.h"
#include "injection.h"
#include "kernel/paths.h"
#include "screen.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace win32::screen {
namespace {

constexpr int retryTime = 50; // ms, for a clipboard that the program has open
constexpr float usualDensity = 96;

// SDL is to leave alone what belongs to the program and the desktop.
void setHints(const Sdl &sdl)
{
    sdl.SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    sdl.SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    sdl.SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    sdl.SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    sdl.SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    sdl.SetHint(SDL_HINT_APP_NAME, program_invocation_short_name);
}

int wantedFactor(const Sdl &sdl, Size screen)
{
    const char *asked = getenv("WIN32_DISPLAY_SCALE");
    constexpr int largest = 16;
    if (asked && *asked)
        return std::clamp(atoi(asked), 1, largest);
    float density = usualDensity;
    sdl.GetDisplayDPI(0, nullptr, &density, nullptr);
    SDL_Rect room{0, 0, screen.width, screen.height};
    sdl.GetDisplayUsableBounds(0, &room);
    return firstFactor(screen.width, screen.height, room.w, room.h, density);
}

SDL_Rect rectOf(const gdi::Box &box)
{
    return {box.x1, box.y1, box.x2 - box.x1, box.y2 - box.y1};
}

bool isSame(const gdi::Box &one, const gdi::Box &other)
{
    return one.x1 == other.x1 && one.y1 == other.y1 && one.x2 == other.x2 && one.y2 == other.y2;
}

bool buttonOf(Uint8 sdlButton, MouseButton &button)
{
    switch (sdlButton) {
    case SDL_BUTTON_LEFT: button = MouseButton::Left; return true;
    case SDL_BUTTON_RIGHT: button = MouseButton::Right; return true;
    case SDL_BUTTON_MIDDLE: button = MouseButton::Middle; return true;
    default: return false;
    }
}

} // namespace

SdlDisplay::SdlDisplay(const Sdl &sdl) : sdl_(sdl), clipboard_(sdl)
{
}

SdlDisplay *SdlDisplay::open(std::string &problem)
{
    const Sdl *sdl = loadSdl(problem);
    if (!sdl)
        return nullptr;
    setHints(*sdl);
    if (sdl->Init(SDL_INIT_VIDEO) != 0) {
        problem = sdl->GetError();
        return nullptr;
    }
    auto *display = new (std::nothrow) SdlDisplay(*sdl);
    if (display && display->makeWindow(problem))
        return display;
    delete display;
    sdl->Quit();
    return nullptr;
}

bool SdlDisplay::makeWindow(std::string &problem)
{
    // Copying to the X server as it is costs the least: there is no scene to render.
    const char *driver = sdl_.GetCurrentVideoDriver();
    if (driver && strcmp(driver, "x11") == 0)
        sdl_.SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    Size size = screenSize();
    int factor = wantedFactor(sdl_, size);
    // In parentheses, since Windows has a macro of this name.
    window_ =
        (sdl_.CreateWindow)(program_invocation_short_name, SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                            size.width * factor, size.height * factor, SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
    if (!window_) {
        problem = sdl_.GetError();
        return false;
    }
    layout_ = DisplayLayout::of(size.width, size.height, size.width * factor, size.height * factor);
    constexpr int leastWidth = 160, leastHeight = 120;
    sdl_.SetWindowMinimumSize(window_, leastWidth, leastHeight);
    wakeEvent_ = sdl_.RegisterEvents(1);
    sdl_.StartTextInput();
    SDL_DisplayMode mode{};
    constexpr int usualRate = 60;
    bool hasRate = sdl_.GetWindowDisplayMode(window_, &mode) == 0 && mode.refresh_rate > 0;
    frameTime_ = std::chrono::duration_cast<Clock::duration>(std::chrono::seconds(1))
                 / (hasRate ? mode.refresh_rate : usualRate);
    return true;
}

void SdlDisplay::run()
{
    bool mustFetch = true;
    while (!isEnding_) {
        SDL_Event event;
        int wait = mustFetch ? std::min<unsigned>(retryTime, static_cast<unsigned>(millisecondsToWait()))
                             : millisecondsToWait();
        bool hasEvent = sdl_.WaitEventTimeout(&event, wait) != 0;
        try {
            for (; hasEvent; hasEvent = sdl_.PollEvent(&event) != 0) {
                mustFetch |= event.type == SDL_CLIPBOARDUPDATE
                             || (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_FOCUS_GAINED);
                handle(event);
            }
            keys_.settle();
            bool isDue = (isAwake_ || needsWhole_) && Clock::now() >= nextFrame_;
            if (isDue)
                refresh();
            else
                refreshCursor(); // which may be an animated one
            if (mustFetch)
                mustFetch = !clipboard_.fetch();
        } catch (const std::bad_alloc &) { // the next frame may have more luck
            needsWhole_ = true;
            nextFrame_ = Clock::now() + std::chrono::seconds(1);
        }
    }
    sdl_.DestroyWindow(window_);
    sdl_.Quit();
}

// Until something is to be shown; -1: until something happens.
int SdlDisplay::millisecondsToWait() const
{
    bool hasWork = isAwake_ || (needsWhole_ && isVisible_);
    if (!hasWork)
        return shownCursorStays();
    auto left = std::chrono::ceil<std::chrono::milliseconds>(nextFrame_ - Clock::now()).count();
    return static_cast<int>(std::max<long>(left, 0));
}

void SdlDisplay::wake()
{
    if (isAwake_.exchange(true))
        return;
    SDL_Event event{};
    event.type = wakeEvent_;
    sdl_.PushEvent(&event);
}

void SdlDisplay::end()
{
    isEnding_ = true;
    isAwake_ = false;
    wake();
}

namespace {
constexpr uint64_t requestBit = uint64_t{1} << 63;
}

void SdlDisplay::movePointer(POINT point)
{
    pointerRequest_ =
        requestBit | static_cast<uint64_t>(point.x & 0xffffff) << 24 | static_cast<uint64_t>(point.y & 0xffffff);
    wake();
}

// Only where the user has the pointer in the window already.
void SdlDisplay::handlePointerRequest()
{
    uint64_t request = pointerRequest_.exchange(0);
    if (!(request & requestBit))
        return;
    POINT screenPoint{static_cast<LONG>(request >> 24 & 0xffffff), static_cast<LONG>(request & 0xffffff)};
    int x = 0, y = 0;
    sdl_.GetMouseState(&x, &y);
    POINT now = pointOf(x, y);
    if (now.x == screenPoint.x && now.y == screenPoint.y)
        return;
    SDL_Surface *target = sdl_.GetWindowSurface(window_);
    int width = 1, height = 1;
    sdl_.GetWindowSize(window_, &width, &height);
    POINT place = layout_.toWindow(screenPoint);
    if (target && hasPointer_)
        sdl_.WarpMouseInWindow(window_, place.x * width / target->w, place.y * height / target->h);
}

// Mouse positions are in the units of the window, which are larger than pixels on dense desktops.
POINT SdlDisplay::pointOf(int x, int y) const
{
    int width = 1, height = 1;
    sdl_.GetWindowSize(window_, &width, &height);
    SDL_Surface *target = sdl_.GetWindowSurface(window_);
    if (!target || width <= 0 || height <= 0)
        return layout_.toScreen(x, y);
    return layout_.toScreen(x * target->w / width, y * target->h / height);
}

void SdlDisplay::handle(const SDL_Event &event)
{
    if (event.type != SDL_TEXTINPUT)
        keys_.settle();
    switch (event.type) {
    case SDL_MOUSEMOTION:
        injectMove(pointOf(event.motion.x, event.motion.y));
        isAwake_ = true; // another cursor may show there
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP: button(event.button); break;
    case SDL_MOUSEWHEEL: handleWheel(event.wheel); break;
    case SDL_KEYDOWN: keys_.keyDown(event.key.keysym.scancode, event.key.keysym.sym, event.key.keysym.mod); break;
    case SDL_KEYUP: keys_.keyUp(event.key.keysym.scancode, event.key.keysym.mod); break;
    case SDL_TEXTINPUT: keys_.text(event.text.text); break;
    case SDL_DROPBEGIN:
    case SDL_DROPFILE:
    case SDL_DROPTEXT:
    case SDL_DROPCOMPLETE: handleDrop(event.drop); break;
    case SDL_WINDOWEVENT: handleWindow(event.window); break;
    default: break;
    }
}

void SdlDisplay::button(const SDL_MouseButtonEvent &event)
{
    MouseButton button;
    if (!buttonOf(event.button, button))
        return;
    bool isDown = event.type == SDL_MOUSEBUTTONDOWN;
    unsigned bit = 1u << static_cast<unsigned>(button);
    if (!isDown && !(buttonsDown_ & bit))
        return;
    buttonsDown_ = isDown ? buttonsDown_ | bit : buttonsDown_ & ~bit;
    injectMove(pointOf(event.x, event.y));
    injectButton(button, isDown ? Press::Down : Press::Up);
}

// Programs count whole notches; parts of one are gathered.
void SdlDisplay::handleWheel(const SDL_MouseWheelEvent &event)
{
    float turned = event.direction == SDL_MOUSEWHEEL_FLIPPED ? -event.preciseY : event.preciseY;
    if (turned * wheelRest_ < 0)
        wheelRest_ = 0;
    wheelRest_ += turned;
    float whole = std::trunc(wheelRest_);
    wheelRest_ -= whole;
    if (whole != 0)
        injectWheel(static_cast<int>(std::clamp(whole, -100.0f, 100.0f)));
}

void SdlDisplay::handleDrop(const SDL_DropEvent &event)
{
    if (event.type == SDL_DROPBEGIN)
        dropped_.clear();
    if (event.type == SDL_DROPFILE && event.file)
        dropped_.push_back(win32Path(event.file));
    if (event.type == SDL_DROPFILE || event.type == SDL_DROPTEXT)
        sdl_.free(event.file);
    if (event.type != SDL_DROPCOMPLETE || dropped_.empty())
        return;
    int x = 0, y = 0;
    sdl_.GetMouseState(&x, &y);
    if (FileDropReceiver receiver = fileDropReceiver())
        receiver(pointOf(x, y), std::exchange(dropped_, {}));
}

void SdlDisplay::handleWindow(const SDL_WindowEvent &event)
{
    switch (event.event) {
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SIZE_CHANGED: needsWhole_ = true; break;
    case SDL_WINDOWEVENT_SHOWN:
    case SDL_WINDOWEVENT_RESTORED:
    case SDL_WINDOWEVENT_MAXIMIZED:
        isVisible_ = true;
        needsWhole_ = true;
        break;
    case SDL_WINDOWEVENT_HIDDEN:
    case SDL_WINDOWEVENT_MINIMIZED: isVisible_ = false; break;
    case SDL_WINDOWEVENT_ENTER: hasPointer_ = true; break;
    case SDL_WINDOWEVENT_LEAVE: hasPointer_ = false; break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
        releaseEverything();
        clipboard_.sharePromised();
        break;
    case SDL_WINDOWEVENT_CLOSE: injectClose(); break;
    default: break;
    }
}

void SdlDisplay::releaseEverything()
{
    keys_.releaseAll();
    for (MouseButton each : {MouseButton::Left, MouseButton::Right, MouseButton::Middle}) {
        if (buttonsDown_ & 1u << static_cast<unsigned>(each))
            injectButton(each, Press::Up);
    }
    buttonsDown_ = 0;
}

void SdlDisplay::refresh()
{
    // What comes from here on wakes the display again.
    isAwake_ = false;
    nextFrame_ = Clock::now() + frameTime_;
    handlePointerRequest();
    clipboard_.share();
    refreshCursor();
    if (!isVisible_)
        return;
    DamagedBoxes damage = takeDamage();
    gdi::Surface screen = surfaceNow();
    matchScreen(screen);
    if (frame_)
        present(screen, damage);
}

void SdlDisplay::matchScreen(const gdi::Surface &screen)
{
    if (frame_ && frame_->w == screen.width && frame_->h == screen.height)
        return;
    if (frame_) {
        int factor = std::max(layout_.factor, 1);
        sdl_.SetWindowSize(window_, screen.width * factor, screen.height * factor);
        sdl_.FreeSurface(frame_);
    }
    frame_ = sdl_.CreateRGBSurfaceWithFormat(0, screen.width, screen.height, 32, SDL_PIXELFORMAT_RGB888);
    needsWhole_ = true;
}

void SdlDisplay::present(const gdi::Surface &screen, const DamagedBoxes &damage)
{
    SDL_Surface *target = sdl_.GetWindowSurface(window_);
    if (!target)
        return;
    DisplayLayout layout = DisplayLayout::of(screen.width, screen.height, target->w, target->h);
    needsWhole_ |= !isSame(layout.shown, layout_.shown);
    layout_ = layout;
    gdi::Surface frame;
    frame.bits = static_cast<uint8_t *>(frame_->pixels);
    frame.stride = frame_->pitch;
    frame.width = frame_->w;
    frame.height = frame_->h;
    frame.format = gdi::rgbFormat(32);
    gdi::PixelConverter converter(frame, screen, {0, 0xffffff, 0});
    DamagedBoxes boxes = damage;
    if (needsWhole_) {
        boxes = {};
        boxes.add(screen.box());
        constexpr Uint8 gray = 0x20;
        sdl_.FillRect(target, nullptr, gray * 0x010101u);
    }
    std::vector<SDL_Rect> shown;
    for (const gdi::Box &each : boxes) {
        gdi::Box box = gdi::intersected(each, screen.box());
        if (gdi::isEmpty(box))
            continue;
        for (int y = box.y1; y < box.y2; ++y)
            converter.convert(screen.row(y), box.x1, box.x2 - box.x1,
                              reinterpret_cast<uint32_t *>(frame.row(y)) + box.x1);
        shown.push_back(draw(target, box));
    }
    if (needsWhole_)
        shown = {{0, 0, target->w, target->h}};
    needsWhole_ = false;
    if (!shown.empty())
        sdl_.UpdateWindowSurfaceRects(window_, shown.data(), static_cast<int>(shown.size()));
}

SDL_Rect SdlDisplay::draw(SDL_Surface *target, const gdi::Box &box)
{
    SDL_Rect from = rectOf(box), to = rectOf(layout_.toWindow(box)), result = to;
    if (layout_.factor == 1)
        sdl_.UpperBlit(frame_, &from, target, &to);
    else if (layout_.factor > 1)
        sdl_.UpperBlitScaled(frame_, &from, target, &to);
    else if (sdl_.SoftStretchLinear(frame_, nullptr, target, &to) != 0)
        sdl_.UpperBlitScaled(frame_, nullptr, target, &to);
    return result;
}

void SdlDisplay::refreshCursor()
{
    int factor = std::max(layout_.factor, 1);
    uint32_t shown = shownCursorSerial();
    if (shown == cursor_ && factor == cursorFactor_)
        return;
    cursor_ = shown;
    cursorFactor_ = factor;
    CursorPicture picture = shownCursorPicture(factor);
    SDL_Surface *surface =
        picture.serial ? sdl_.CreateRGBSurfaceWithFormatFrom(picture.pixels.data(), picture.width, picture.height, 32,
                                                             picture.width * 4, SDL_PIXELFORMAT_ARGB8888)
                       : nullptr;
    SDL_Cursor *made = surface ? sdl_.CreateColorCursor(surface, picture.hotX, picture.hotY) : nullptr;
    sdl_.FreeSurface(surface);
    sdl_.ShowCursor(picture.serial ? SDL_ENABLE : SDL_DISABLE);
    if (!made)
        return;
    sdl_.SetCursor(made);
    if (sdlCursor_)
        sdl_.FreeCursor(sdlCursor_);
    sdlCursor_ = made;
}

} // namespace win32::screen
