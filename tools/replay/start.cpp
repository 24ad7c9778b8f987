// Begins a replay before main does, on the thread that will run it.
#include "input_state.h"
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
        replay::watchInputState();
        win32::screen::startReplay();
    }
} start;

} // namespace
