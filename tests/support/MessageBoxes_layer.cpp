#include "MessageBoxes.h"

<<<<<<< HEAD
#include <win32/control.h>
#include <windows.h>

namespace {

int answerBox(LPCSTR text, LPCSTR caption, UINT, void *context)
{
    MessageBoxes &boxes = *static_cast<MessageBoxes *>(context);
    boxes.shown.push_back({caption, text});
    if (boxes.answers.empty())
        return IDOK;
    int answer = boxes.answers.front();
    boxes.answers.pop_front();
    return answer;
=======
#include <windows.h>

#include <utility>

namespace {

MessageBoxes *current = nullptr;
UINT_PTR timer = 0;

std::string textOf(HWND window)
{
    char text[1024] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

// Runs inside the loop of a box that is open.
void CALLBACK answerBox(HWND, UINT, UINT_PTR, DWORD)
{
    constexpr int textOfBox = 0xFFFF;
    HWND box = GetActiveWindow();
    HWND text = box ? GetDlgItem(box, textOfBox) : nullptr;
    if (!text)
        return;
    current->shown.push_back({textOf(box), textOf(text)});
    int answer = IDOK;
    if (!current->answers.empty()) {
        answer = current->answers.front();
        current->answers.pop_front();
    }
    EndDialog(box, answer);
>>>>>>> qd2
}

} // namespace

MessageBoxes::MessageBoxes(std::deque<int> answersToCome) : answers(std::move(answersToCome))
{
<<<<<<< HEAD
    Win32Control_AnswerMessageBoxes(answerBox, this);
=======
    current = this;
    timer = SetTimer(nullptr, 0, 10, answerBox);
>>>>>>> qd2
}

MessageBoxes::~MessageBoxes()
{
<<<<<<< HEAD
    Win32Control_AnswerMessageBoxes(nullptr, nullptr);
=======
    KillTimer(nullptr, timer);
    current = nullptr;
>>>>>>> qd2
}
