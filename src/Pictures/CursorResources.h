// Cursors of the Macintosh form as native ones.
#pragma once

#include <mtbx/MacTypes.h>

// Makes a cursor of a CURS resource; null when it is too short or the system refuses. The words of its picture and
// mask are then stored high byte first.
HCURSOR MTBX_CreateResourceCursor(Handle resource);
// A resource that goes is converted anew when it comes again.
void MTBX_ForgetCursorResource(Handle resource);
// Frees what the conversion keeps.
void MTBX_FreeCursorMasks();
