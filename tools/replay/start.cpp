// Begins a replay before main does, on the thread that will run it.
#include "program_thread.h"
#include "screen/replay_player.h"

namespace {

struct Start {
    Start()
    {
        replay::takeProgramThread();
        win32::screen::startReplay();
    }
} start;

} // namespace
