/* The Process Manager. */
#ifndef MTBX_PROCESSES_H
#define MTBX_PROCESSES_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Ends the process with exit code 0. None of the library's shut-down calls run. */
MTBX_API DECLSPEC_NORETURN void ExitToShell(void);

#ifdef __cplusplus
}
#endif

#endif
