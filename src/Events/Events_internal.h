// What the files of the Event Manager share.
#pragma once

#include <mtbx/Events.h>

// Lets the system bring its account of the queue's input up to date.
void pollMessageQueue();

// Looks for the first message with a number of this range and leaves it in the queue. A system that asks the
// thread to quit says so whatever the range; that is not such a message.
inline bool peekMessage(MSG &message, UINT first, UINT last)
{
    return PeekMessageA(&message, nullptr, first, last, PM_NOREMOVE | PM_NOYIELD) && message.message >= first
           && message.message <= last;
}
inline bool peekMessage(UINT first, UINT last)
{
    MSG message;
    return peekMessage(message, first, last);
}

// Takes the first message with this one's window and number out of the queue, and into the record.
inline bool removeMessage(MSG &message)
{
    return PeekMessageA(&message, message.hwnd, message.message, message.message, PM_REMOVE) != 0;
}
