#include "pointer.h"

#include "held_buttons.h"
#include "screen/send_input.h"

#include <chrono>
#include <mutex>
#include <thread>

namespace replay {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// How long the mouse must rest. Wine asks the desktop for its pointer a tenth of a second after the last input; a drag
// is not meddled with unless it pauses.
constexpr milliseconds rest{60}, restInDrag{300}, lookInterval{10};
// How long the next move waits until the program has been told of the pointer's.
constexpr milliseconds wayOfPointer{15};

class Pointer {
public:
    Pointer()
    {
        std::thread([this] { follow(); }).detach();
    }

    void move(POINT point)
    {
        std::lock_guard lock(mutex_);
        win32::screen::sendMove(point, allMonitors());
        place_ = point;
        lastMove_ = Clock::now();
        isBehind_ = true;
    }

private:
    static RECT allMonitors()
    {
        LONG left = GetSystemMetrics(SM_XVIRTUALSCREEN), top = GetSystemMetrics(SM_YVIRTUALSCREEN);
        return {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN), top + GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    }

    [[noreturn]] void follow()
    {
        for (;;) {
            std::this_thread::sleep_for(lookInterval);
            std::lock_guard lock(mutex_);
            if (!isBehind_ || Clock::now() - lastMove_ < (holdsButton() ? restInDrag : rest))
                continue;
            SetCursorPos(place_.x, place_.y);
            std::this_thread::sleep_for(wayOfPointer);
            isBehind_ = false;
        }
    }

    std::mutex mutex_;
    POINT place_{};
    Clock::time_point lastMove_;
    bool isBehind_ = false;
};

} // namespace

void moveMouse(POINT point)
{
    static auto *pointer = new Pointer; // its thread ends with the process
    pointer->move(point);
}

} // namespace replay
