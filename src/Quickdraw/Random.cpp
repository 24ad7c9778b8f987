// Random numbers, shaped from the C library's generator.
#include <mtbx/Quickdraw.h>

#include <cstdlib>

namespace {

// From 0 to 32767, whatever the range of rand.
SInt32 draw()
{
    constexpr int perStep = RAND_MAX / 32768 + 1;
    return rand() / perStep;
}

} // namespace

SInt16 Random()
{
    SInt32 magnitude = draw();
    return static_cast<SInt16>(draw() > 16383 ? -magnitude : magnitude);
}
