// What other managers need of the Resource Manager.
#pragma once

#include <mtbx/Resources.h>

// The number of the open file that stands for hResInst; 0 when there is none.
SInt16 MTBX_HostResourceFile();

// The path of an open resource file; empty for a number that has none. The buffer holds 260 bytes.
void MTBX_ResFilePath(SInt16 refNum, char *path);
