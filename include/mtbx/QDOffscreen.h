/* Offscreen worlds: their pixels. */
#ifndef MTBX_QDOFFSCREEN_H
#define MTBX_QDOFFSCREEN_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The pixels' memory, null for a PixMap that has none of its own. */
MTBX_API Ptr GetPixBaseAddr(PixMapHandle pixMap);
/* Pixels never move: true, and nothing happens. */
MTBX_API Boolean LockPixels(PixMapHandle pixMap);
MTBX_API void UnlockPixels(PixMapHandle pixMap);

#ifdef __cplusplus
}
#endif

#endif
