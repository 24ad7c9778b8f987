// What start-up needs of cursors.
#pragma once

// Lets the cursor cache know of handles that leave the resource chain.
void MTBX_StartCursors();
// Ends all cursors of the cache.
void MTBX_StopCursors();
