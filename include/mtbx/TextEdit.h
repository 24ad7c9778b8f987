/* TextEdit. */
#ifndef MTBX_TEXTEDIT_H
#define MTBX_TEXTEDIT_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Does nothing. */
MTBX_API void TEInit(void);

#ifdef __cplusplus
}
#endif

#endif
