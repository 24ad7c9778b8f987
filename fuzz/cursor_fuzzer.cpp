// Files and resources of cursors and icons from anywhere: nothing is read behind them, and what is made of them holds
// together.
#include "user/cursor_files.h"

#include <cstdlib>

using namespace win32::user;

namespace {

void require(bool holds)
{
    if (!holds)
        abort();
}

void check(Cursor *cursor)
{
    if (!cursor)
        return;
    for (const auto &picture : cursor->pictures)
        check(picture.get());
    uint64_t duration = 0;
    for (const Cursor::Step &step : cursor->steps) {
        require(step.picture < cursor->pictures.size() && step.milliseconds > 0);
        duration += step.milliseconds;
    }
    require(duration == cursor->duration && (duration > 0 || !cursor->pixels.empty()));
    require(cursor->width > 0 && cursor->height > 0);
    require(duration > 0 || cursor->pixels.size() == static_cast<size_t>(cursor->width) * static_cast<size_t>(cursor->height));
    resize(*cursor, 32, 32);
    require(duration > 0 || cursor->pixels.size() == 32 * 32);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Bytes bytes(data, size);
    for (PictureKind kind : {PictureKind::Icon, PictureKind::Cursor}) {
        check(readPicture(bytes, kind).get());
        chooseFromGroup(bytes, kind, 32);
    }
    check(readPictureFile(bytes, 32).get());
    check(readAnimation(bytes, 32).get());
    return 0;
}
