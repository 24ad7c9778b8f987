// Begins a replay before main does, on the thread that will run it.
#include "button_looks.h"
#include "program_thread.h"
#include "screen/replay_player.h"

#include <cstdlib>

namespace {

struct Start {
    Start()
    {
        if (!getenv("WIN32_REPLAY"))
            return;
        replay::takeProgramThread();
        replay::countButtonLooks();
        win32::screen::startReplay();
    }
} start;

} // namespace
