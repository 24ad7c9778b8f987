// Messages: posted, sent, filtered, timed, waited for.
#include "TestWindows.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <atomic>
#include <thread>

namespace {

int timerCalls;

void CALLBACK countTimer(HWND, UINT, UINT_PTR, DWORD)
{
    ++timerCalls;
}

class Messages : public testing::Test {
protected:
    void SetUp() override { TestWindows::drain(); }

    static std::vector<UINT> takeAll(HWND window = nullptr, UINT first = 0, UINT last = 0)
    {
        std::vector<UINT> result;
        MSG message;
        while (PeekMessageA(&message, window, first, last, PM_REMOVE))
            result.push_back(message.message);
        return result;
    }

    TestWindows windows_;
    HWND frame_ = windows_.make(WS_POPUP, {0, 0, 200, 200});
    HWND child_ = windows_.makeChild(frame_, {0, 0, 50, 50}, 0);
};

TEST_F(Messages, ComeInTheirOrderAndStayUntilTheyAreTaken)
{
    PostMessageA(frame_, WM_APP + 1, 2, 3);
    PostMessageA(child_, WM_APP + 2, 0, 0);
    PostMessageA(nullptr, WM_APP + 3, 0, 0);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.hwnd, frame_);
    EXPECT_EQ(message.message, UINT{WM_APP + 1});
    EXPECT_EQ(message.wParam, 2u);
    EXPECT_EQ(message.lParam, 3);
    EXPECT_EQ(takeAll(), (std::vector<UINT>{WM_APP + 2, WM_APP + 3}));
}

TEST_F(Messages, FiltersTakeByNumberAndByWindowWithItsChildren)
{
    PostMessageA(child_, WM_APP + 5, 0, 0);
    PostMessageA(frame_, WM_APP + 1, 0, 0);
    PostMessageA(nullptr, WM_APP + 2, 0, 0);
    PostMessageA(frame_, WM_APP + 9, 0, 0);
    EXPECT_EQ(takeAll(nullptr, WM_APP + 1, WM_APP + 4), (std::vector<UINT>{WM_APP + 1, WM_APP + 2}));
    PostMessageA(nullptr, WM_APP + 2, 0, 0);
    EXPECT_EQ(takeAll(reinterpret_cast<HWND>(-1)), (std::vector<UINT>{WM_APP + 2}));
    EXPECT_EQ(takeAll(child_), (std::vector<UINT>{WM_APP + 5}));
    PostMessageA(child_, WM_APP + 5, 0, 0);
    EXPECT_EQ(takeAll(frame_), (std::vector<UINT>{WM_APP + 9, WM_APP + 5}));
}

TEST_F(Messages, QuitComesLastAndEndsGetMessage)
{
    PostQuitMessage(42);
    PostMessageA(frame_, WM_APP, 0, 0);
    MSG message;
    EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, UINT{WM_APP});
    EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 42u);
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST_F(Messages, GoWithTheirWindow)
{
    PostMessageA(child_, WM_APP, 0, 0);
    SetTimer(child_, 1, 10, nullptr);
    DestroyWindow(child_);
    Sleep(30);
    EXPECT_TRUE(takeAll(nullptr, WM_APP, WM_APP).empty());
    EXPECT_TRUE(takeAll(nullptr, WM_TIMER, WM_TIMER).empty());
}

TEST_F(Messages, QueueStatusTellsWhatWaitsAndWhatIsNew)
{
    GetQueueStatus(QS_ALLINPUT | QS_ALLPOSTMESSAGE);
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), 0u);
    PostMessageA(frame_, WM_APP, 0, 0);
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), static_cast<DWORD>(MAKELONG(QS_POSTMESSAGE, QS_POSTMESSAGE)));
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), static_cast<DWORD>(MAKELONG(0, QS_POSTMESSAGE)));
    takeAll();
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), 0u);
}

TEST_F(Messages, SendReachesTheProcedureAtOnceAndNests)
{
    windows_.handler = [&](const TestWindows::Noted &noted, LRESULT &result) {
        if (noted.message != WM_APP)
            return false;
        result = noted.wParam ? SendMessageA(child_, WM_APP, noted.wParam - 1, 0) + 1 : 100;
        return true;
    };
    EXPECT_EQ(SendMessageA(frame_, WM_APP, 5, 0), 105);
    EXPECT_FALSE(InSendMessage());
}

TEST_F(Messages, AnotherThreadSendsThroughTheQueueAndGetsTheAnswer)
{
    DWORD own = GetCurrentThreadId();
    std::atomic<bool> wasOwn{false}, wasInSend{false};
    windows_.handler = [&](const TestWindows::Noted &noted, LRESULT &result) {
        if (noted.message != WM_APP)
            return false;
        wasOwn = GetCurrentThreadId() == own;
        wasInSend = InSendMessage() != FALSE;
        result = static_cast<LRESULT>(noted.wParam) * 2;
        return true;
    };
    std::atomic<LRESULT> answer{0};
    HWND target = frame_;
    std::thread sender([&] {
        answer = SendMessageA(target, WM_APP, 21, 0);
        PostMessageA(target, WM_APP + 1, 0, 0);
    });
    MSG message;
    do
        GetMessageA(&message, nullptr, 0, 0);
    while (message.message != WM_APP + 1);
    sender.join();
    EXPECT_EQ(answer, 42);
    EXPECT_TRUE(wasOwn);
    EXPECT_TRUE(wasInSend);
}

TEST_F(Messages, WaitsEndWithAMessageAnObjectOrTheirTime)
{
    takeAll();
    HANDLE event = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    EXPECT_EQ(MsgWaitForMultipleObjects(1, &event, FALSE, 5, QS_ALLINPUT), DWORD{WAIT_TIMEOUT});
    SetEvent(event);
    EXPECT_EQ(MsgWaitForMultipleObjects(1, &event, FALSE, INFINITE, QS_ALLINPUT), DWORD{WAIT_OBJECT_0});
    ResetEvent(event);
    HWND target = frame_;
    std::thread poster([target] {
        Sleep(20);
        PostMessageA(target, WM_APP, 0, 0);
    });
    EXPECT_EQ(MsgWaitForMultipleObjects(1, &event, FALSE, INFINITE, QS_POSTMESSAGE), DWORD{WAIT_OBJECT_0 + 1});
    poster.join();
    // What was looked at once is no news any more.
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
    EXPECT_EQ(MsgWaitForMultipleObjects(1, &event, FALSE, 5, QS_POSTMESSAGE), DWORD{WAIT_TIMEOUT});
    CloseHandle(event);
}

TEST_F(Messages, TimersComeAgainAndAgainUntilTheyAreKilled)
{
    ASSERT_NE(SetTimer(frame_, 7, 15, nullptr), 0u);
    for (int i = 0; i < 3; ++i) {
        MSG message;
        ASSERT_TRUE(GetMessageA(&message, frame_, WM_TIMER, WM_TIMER));
        EXPECT_EQ(message.wParam, 7u);
    }
    EXPECT_TRUE(KillTimer(frame_, 7));
    EXPECT_FALSE(KillTimer(frame_, 7));
    Sleep(40);
    EXPECT_TRUE(takeAll(frame_, WM_TIMER, WM_TIMER).empty());
}

TEST_F(Messages, TimerProceduresAreCalledByDispatch)
{
    timerCalls = 0;
    SetTimer(frame_, 1, 10, countTimer);
    MSG message;
    ASSERT_TRUE(GetMessageA(&message, frame_, WM_TIMER, WM_TIMER));
    DispatchMessageA(&message);
    EXPECT_EQ(timerCalls, 1);
    KillTimer(frame_, 1);
}

TEST_F(Messages, TheQueueHasALimit)
{
    int posted = 0;
    while (posted < 20000 && PostMessageA(frame_, WM_APP, static_cast<WPARAM>(posted), 0))
        ++posted;
    EXPECT_GE(posted, 9990);
    // The other Win32 at hand has no limit.
    if (posted < 20000) {
        EXPECT_EQ(GetLastError(), DWORD{ERROR_NOT_ENOUGH_QUOTA});
    }
    EXPECT_EQ(takeAll(nullptr, WM_APP, WM_APP).size(), static_cast<size_t>(posted));
    EXPECT_TRUE(PostMessageA(frame_, WM_APP, 0, 0));
}

TEST_F(Messages, KeysBecomeCharacters)
{
    BYTE state[256]{};
    SetKeyboardState(state);
    MSG key{frame_, WM_KEYDOWN, 'A', 0x001e0001, 0, {}};
    TranslateMessage(&key);
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, frame_, WM_CHAR, WM_CHAR, PM_REMOVE));
    EXPECT_EQ(message.wParam, static_cast<WPARAM>('a'));
    state[VK_SHIFT] = 0x80;
    SetKeyboardState(state);
    TranslateMessage(&key);
    ASSERT_TRUE(PeekMessageA(&message, frame_, WM_CHAR, WM_CHAR, PM_REMOVE));
    EXPECT_EQ(message.wParam, static_cast<WPARAM>('A'));
    state[VK_SHIFT] = 0;
    SetKeyboardState(state);
}

} // namespace
