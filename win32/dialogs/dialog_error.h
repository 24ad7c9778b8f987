// What CommDlgExtendedError tells, for each thread.
#pragma once

#include <windows.h>

namespace win32::dialogs {

extern thread_local DWORD lastDialogError;

} // namespace win32::dialogs
