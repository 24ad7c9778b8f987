#include "program_thread.h"

#include "replay.h"

#include <algorithm>

namespace replay {
namespace {

enum Question : UINT { HasWork = WM_APP, IsLockOn, Quit };
constexpr LRESULT none = 0, yes = 1, no = 2; // 0 is what Windows answers for a thread that does not
constexpr UINT longestQuestion = 1000;

HWND listener;
DWORD thread;
bool (*idleTest)();

bool isQueueEmpty()
{
    constexpr UINT work = QS_INPUT | QS_POSTMESSAGE | QS_ALLPOSTMESSAGE | QS_PAINT;
    return HIWORD(GetQueueStatus(work)) == 0 && (!idleTest || idleTest());
}

LRESULT CALLBACK answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case HasWork: return isQueueEmpty() ? no : yes;
    case IsLockOn: return GetKeyState(static_cast<int>(wParam)) & 1 ? yes : no;
    case Quit: PostQuitMessage(0); return yes;
    default: return DefWindowProcA(window, message, wParam, lParam);
    }
}

LRESULT ask(Question question, WPARAM argument, UINT longest)
{
    DWORD_PTR result = none;
    bool isAnswered = SendMessageTimeoutA(listener, question, argument, 0, SMTO_NORMAL, longest, &result) != 0;
    return isAnswered ? static_cast<LRESULT>(result) : none;
}

} // namespace

void takeProgramThread()
{
    WNDCLASSA description{};
    description.lpfnWndProc = answer;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "ReplayListener";
    RegisterClassA(&description);
    listener = CreateWindowExA(0, description.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                               description.hInstance, nullptr);
    thread = GetCurrentThreadId();
}

DWORD programThread()
{
    return thread;
}

Found workOfProgram(std::chrono::milliseconds longest)
{
    LRESULT answer = ask(HasWork, 0, static_cast<UINT>(std::max<long long>(longest.count(), 1)));
    return answer == none ? Found::NoAnswer : answer == yes ? Found::Work : Found::Nothing;
}

bool isLockOnInProgram(BYTE virtualKey)
{
    return ask(IsLockOn, virtualKey, longestQuestion) == yes;
}

void postQuitToProgram()
{
    ask(Quit, 0, longestQuestion);
}

} // namespace replay

void Replay_SetIdleTest(bool (*isIdle)())
{
    replay::idleTest = isIdle;
}
