/* The Dialog Manager. */
#ifndef MTBX_DIALOGS_H
#define MTBX_DIALOGS_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Both do nothing. */
MTBX_API void InitDialogs(void);
MTBX_API void MTBX_ShutdownDialogs(void);

#ifdef __cplusplus
}
#endif

#endif
