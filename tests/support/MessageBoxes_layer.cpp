#include "MessageBoxes.h"

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
}

} // namespace

MessageBoxes::MessageBoxes(std::deque<int> answersToCome) : answers(std::move(answersToCome))
{
    Win32Control_AnswerMessageBoxes(answerBox, this);
}

MessageBoxes::~MessageBoxes()
{
    Win32Control_AnswerMessageBoxes(nullptr, nullptr);
}
