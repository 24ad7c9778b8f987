// What other managers need of the File Manager.
#pragma once

#include <mtbx/Files.h>

// Disposes the table of directories; their IDs mean nothing afterwards.
void MTBX_DisposeDirectoryTable();
