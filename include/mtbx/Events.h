/* The Event Manager: its record. */
#ifndef MTBX_EVENTS_H
#define MTBX_EVENTS_H

#include <mtbx/MacTypes.h>

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

#ifdef __cplusplus
}
#endif

#endif
