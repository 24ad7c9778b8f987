/* The Event Manager.

   The library has no message loop. The host's window procedures turn native messages into events by
   writing gTheEvent, and its main loop takes them from there with WaitNextEvent. Messages that are still in
   the calling thread's queue are only looked at (EventAvail, StillDown) or thrown away (FlushEvents). */
#ifndef MTBX_EVENTS_H
#define MTBX_EVENTS_H

#include <mtbx/MacWindows.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma pack(push, 2)

/* Longer than the published record: callers of the event calls must declare it whole. message is a
   WindowPtr for some events, so it is as wide as one. */
typedef struct EventRecord {
    UInt16 what;
    URefCon message;
    UInt32 when;
    Point where;
    UInt16 modifiers;
    HWND nativeWindow;
    HWND nativeChild;
    UInt32 nativeMessage;
    UInt32 hostWords[5];
} EventRecord;

#pragma pack(pop)

MTBX_ASSERT_OFFSET_32(EventRecord, message, 2);
MTBX_ASSERT_OFFSET_32(EventRecord, when, 6);
MTBX_ASSERT_OFFSET_32(EventRecord, where, 10);
MTBX_ASSERT_OFFSET_32(EventRecord, modifiers, 14);
MTBX_ASSERT_OFFSET_32(EventRecord, nativeWindow, 16);
MTBX_ASSERT_OFFSET_32(EventRecord, nativeChild, 20);
MTBX_ASSERT_OFFSET_32(EventRecord, nativeMessage, 24);
MTBX_ASSERT_OFFSET_32(EventRecord, hostWords, 28);
MTBX_ASSERT_SIZE_32(EventRecord, 48);

/* The pending event: written by the host's window procedures, handed over and cleared by the library.
   One slot is the whole queue. */
extern MTBX_API EventRecord gTheEvent;

typedef UInt16 EventKind;
typedef UInt16 EventMask;
typedef UInt16 EventModifiers;

enum {
    nullEvent = 0,
    mouseDown = 1,
    mouseUp = 2,
    keyDown = 3,
    keyUp = 4,
    autoKey = 5,
    updateEvt = 6,
    diskEvt = 7,
    activateEvt = 8,
    osEvt = 15,
    kHighLevelEvent = 23
};

enum {
    mDownMask = 1 << mouseDown,
    mUpMask = 1 << mouseUp,
    keyDownMask = 1 << keyDown,
    keyUpMask = 1 << keyUp,
    autoKeyMask = 1 << autoKey,
    updateMask = 1 << updateEvt,
    diskMask = 1 << diskEvt,
    activMask = 1 << activateEvt,
    highLevelEventMask = 0x0400,
    osMask = 1 << osEvt,
    everyEvent = 0xFFFF
};

/* The highest byte of an osEvt's message, and what else the message says. */
enum {
    suspendResumeMessage = 0x01,
    mouseMovedMessage = 0xFA,
    resumeFlag = 1,
    convertClipboardFlag = 2
};

/* The parts of a key event's message. */
enum { charCodeMask = 0x000000FF, keyCodeMask = 0x0000FF00 };

/* Modifiers. The Control key has the bit of the command key, Alt that of the option key. */
enum {
    activeFlag = 0x0001,
    /* Set while the button is down: the opposite of what the Macintosh has here. */
    btnState = 0x0080,
    cmdKey = 0x0100,
    shiftKey = 0x0200,
    alphaLock = 0x0400,
    optionKey = 0x0800,
    controlKey = 0x1000
};

/* One bit for each key, as the words of the big-endian map read as numbers: key k is bit
   (k & 7) + 24 - (k & 24) of word k / 32. */
typedef UInt32 KeyMap[4];

/* Takes the event from the slot. The mask, the time and the region are ignored, and it never waits: the
   host waits in its message loop. A null event, and one that the mouse moved, get the mouse's place and
   the modifiers of now; a null event keeps the message and time of the one before. False for a null
   event. */
MTBX_API Boolean WaitNextEvent(EventMask eventMask, EventRecord *theEvent, UInt32 sleep, RgnHandle mouseRgn);
MTBX_API Boolean GetNextEvent(EventMask eventMask, EventRecord *theEvent);
MTBX_API Boolean GetOSEvent(EventMask mask, EventRecord *theEvent);

/* Tells, without taking it, whether an event of the mask is in the slot or will come of the mouse-button
   and key messages in the queue. Of the slot only the kinds 1 to 8 are seen. A message gives kind, time and
   modifiers; of a key also the message, in the converter's form if there is one. A press of Shift, Control
   or Alt alone is removed from the queue. */
MTBX_API Boolean EventAvail(EventMask eventMask, EventRecord *theEvent);
MTBX_API Boolean OSEventAvail(EventMask mask, EventRecord *theEvent);

/* Removes the events of the first mask from the slot and from the queue, each kind until a message of the
   second mask is met. Paint messages are served instead of dropped, but not again and again to a window that
   stays to be painted. With everyEvent, messages that are neither of the mouse nor of the keyboard are
   delivered. Other bits than those of the mouse, the keys and updates find nothing in the queue. */
MTBX_API void FlushEvents(EventMask whichMask, EventMask stopMask);

/* Turns a native key message into an event, for EventAvail. It leaves what as 0 when the message is no
   event. */
typedef void (*MTBXMsgToEventProcPtr)(const MSG *message, EventRecord *theEvent);
/* Replaces the converter; null removes it. */
MTBX_API void InstallMsgToEventConverter(MTBXMsgToEventProcPtr converter);

/* The mouse in coordinates of the current port. */
MTBX_API void GetMouse(Point *mouseLoc);
/* Whether the mouse button is down at this moment. It is the left one, or the right one when either the
   system has the buttons swapped or G_useSecondButton is set, but not both. */
MTBX_API Boolean Button(void);
/* Whether the button has been down ever since it was pressed: no release waits in the queue. */
MTBX_API Boolean StillDown(void);
/* Knows the keys Shift (56), space (49), Alt as option (58), Control as command (55) and caps lock (57);
   all others read as up. */
MTBX_API void GetKeys(KeyMap theKeys);
/* The modifier keys and the button as they are now. */
MTBX_API EventModifiers GetModifiersState(void);
MTBX_API UInt32 GetCurrentKeyModifiers(void);
/* Returns 0. */
MTBX_API UInt32 KeyTranslate(const void *transData, UInt16 keycode, UInt32 *state);

/* Ticks, sixtieths of a second, since the system started. They begin again at 0 after 49.7 days. */
MTBX_API UInt32 TickCount(void);
/* Returns after that many ticks, without looking at messages; the count at the end goes to finalTicks, which
   may be null. */
MTBX_API void Delay(UInt32 numTicks, UInt32 *finalTicks);
/* The longest time between the clicks of a double click, in ticks. */
MTBX_API UInt32 GetDblTime(void);

/* Not implemented; returns 0. */
MTBX_API UInt32 GetCaretTime(void);
MTBX_API void *GetEvQHdr(void);
/* Does nothing: there are no desk accessories. */
MTBX_API void SystemClick(const EventRecord *theEvent, WindowPtr window);

#ifdef __cplusplus
}
#endif

#endif
