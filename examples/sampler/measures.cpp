// What the program tells of itself, for measurements and tests.
#include "sampler.h"

#include <chrono>
#include <cstdio>

namespace {

UInt64 bytesAtStart;

UInt64 bytesInUse()
{
    UInt64 bytes = 0;
    MTBX_SyncMemUsageWithOS();
    MTBX_TotalMemoryUsed(&bytes);
    return bytes;
}

// One update from the invalid rectangle to the drawn window.
void redraw(WindowPtr window)
{
    EventRecord event;
    SetPort(window);
    InvalRect(&window->portRect);
    while (WaitNextEvent(updateMask, &event, 0, nullptr))
        handleEvent(event);
}

} // namespace

void measureRedraws(int count)
{
    Document *document = frontDocument();
    if (!document)
        return;
    using Clock = std::chrono::steady_clock;
    redraw(document->window);
    Clock::time_point start = Clock::now();
    for (int i = 0; i < count; ++i)
        redraw(document->window);
    GdiFlush();
    double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    Rect view = viewOf(*document);
    printf("redraws: %.0f a second of %d by %d\n", count / seconds, view.right - view.left, view.bottom - view.top);
}

void noteMemory()
{
    bytesAtStart = bytesInUse();
}

void report()
{
    printf("handled: mouse %u, keys %u, updates %u, activations %u, other %u\n", handled[mouseDown],
           handled[keyDown] + handled[autoKey], handled[updateEvt], handled[activateEvt], handled[osEvt]);
    auto kilobytes = [](UInt64 bytes) { return static_cast<unsigned long>(bytes / 1024); };
    printf("memory: %lu KB at the start, %lu KB at the end\n", kilobytes(bytesAtStart), kilobytes(bytesInUse()));
}
