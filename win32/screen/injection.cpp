#include "injection.h"

#include "recorder.h"
#include "screen.h"
#include "user/watching.h"

namespace win32::screen {
namespace {

void note(Step::Kind kind, POINT point, int number, MouseButton button, const Key *key)
{
    if (!isRecording())
        return;
    Step step;
    step.kind = kind;
    step.point = point;
    step.number = number;
    step.button = button;
    if (key) // the table's own: the given one may follow the user's layout, and go
        step.keys.push_back(keyOfVirtualKey(key->virtualKey, key->isExtended));
    record(std::move(step));
}

} // namespace

void injectMove(POINT point)
{
    note(Step::Kind::Move, point, 0, {}, nullptr);
    Size size = screenSize();
    sendMove(point, {0, 0, size.width, size.height});
}

void injectButton(MouseButton button, Press press)
{
    note(press == Press::Up ? Step::Kind::Release : Step::Kind::Press, {}, 0, button, nullptr);
    sendButton(button, press);
}

void injectWheel(int notches)
{
    note(Step::Kind::Wheel, {}, notches, {}, nullptr);
    sendWheel(notches);
}

void injectKey(const Key &key, Press press)
{
    note(press == Press::Up ? Step::Kind::KeyUp : Step::Kind::KeyDown, {}, 0, {}, &key);
    sendKey(key, press);
}

void injectCharacter(char16_t unit)
{
    noteCharacter(unit);
    sendCharacter(unit);
}

void injectClose()
{
    note(Step::Kind::Close, {}, 0, {}, nullptr);
    if (!user::closeFrontWindow())
        user::quitThreadsWithWindows();
}

} // namespace win32::screen
