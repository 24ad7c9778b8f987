// The display as a window of SDL: pixels, pointer, keys, clipboard and dropped files. Everything but the calls marked
// for other threads belongs to the display's thread.
#pragma once

#include "damage.h"
#include "display_clipboard.h"
#include "display_keys.h"
#include "display_layout.h"
#include "sdl_library.h"

#include <atomic>
#include <chrono>
#include <string>
#include <vector>

namespace win32::screen {

class SdlDisplay {
public:
    // Null with the reason when there is none to be had. Lives to the end of the process.
    static SdlDisplay *open(std::string &problem);

    // Shows and serves until it is ended.
    void run();

    // From any thread.
    void wake();
    void movePointer(POINT screenPoint);
    void end();

private:
    using Clock = std::chrono::steady_clock;

    explicit SdlDisplay(const Sdl &sdl);
    bool makeWindow(std::string &problem);

    int millisecondsToWait() const;
    void handle(const SDL_Event &event);
    void handleWindow(const SDL_WindowEvent &event);
    void handleWheel(const SDL_MouseWheelEvent &event);
    void handleDrop(const SDL_DropEvent &event);
    void handlePointerRequest();
    void button(const SDL_MouseButtonEvent &event);
    POINT pointOf(int x, int y) const;
    void releaseEverything();

    void refresh();
    void matchScreen(const gdi::Surface &screen);
    void present(const gdi::Surface &screen, const DamagedBoxes &damage);
    SDL_Rect draw(SDL_Surface *target, const gdi::Box &box);
    void refreshCursor();

    const Sdl &sdl_;
    SDL_Window *window_ = nullptr;
    Uint32 wakeEvent_ = 0;
    Clock::duration frameTime_{};
    Clock::time_point nextFrame_{};

    SDL_Surface *frame_ = nullptr; // the screen as it is shown, unscaled
    DisplayLayout layout_;
    bool needsWhole_ = true;
    bool isVisible_ = true;
    bool hasPointer_ = false;

    uint32_t cursor_ = 0; // serial of the one that the window has
    int cursorFactor_ = 0;
    SDL_Cursor *sdlCursor_ = nullptr;

    DisplayKeys keys_;
    unsigned buttonsDown_ = 0; // a bit for each
    float wheelRest_ = 0;
    std::vector<std::string> dropped_;
    DisplayClipboard clipboard_;

    std::atomic<bool> isAwake_{false}; // a wake is on its way or not served yet
    std::atomic<bool> isEnding_{false};
    std::atomic<uint64_t> pointerRequest_{0}; // bit 63, x, y
};

} // namespace win32::screen
