/* JRNL: a small journal for diagnostics.

   A record is a level, a channel, a subject and a text. Records go to the file named by the
   environment variable JRNL_FILE, or to standard error when that is "-"; without it they are dropped.
   JRNL_LEVEL keeps out records above a level; without it all levels pass. Calls may come from any
   thread and never fail their caller. */
#ifndef JRNL_JRNL_H
#define JRNL_JRNL_H

#if defined(_WIN32)
#if defined(JRNL_BUILD)
#define JRNL_API __declspec(dllexport)
#else
#define JRNL_API __declspec(dllimport)
#endif
#else
#define JRNL_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Makes a record. Null texts count as empty. */
JRNL_API void JRNL_Log(int level, const char *channel, const char *subject, const char *text);

/* Makes a record whose text is formatted as printf does. */
JRNL_API void JRNL_sprintf(int level, const char *channel, const char *subject, const char *format, ...)
    __attribute__((format(printf, 4, 5)));

/* Hands every record to the receiver, whatever the environment says of files; null ends it. The
   receiver is called on the thread that makes the record and must not make records itself. */
typedef void (*JRNL_Receiver)(int level, const char *channel, const char *subject, const char *text, void *context);
JRNL_API void JRNL_SetReceiver(JRNL_Receiver receiver, void *context);

#ifdef __cplusplus
}
#endif

#endif
