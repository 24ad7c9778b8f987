#include "GdiObjects.h"

#include <win32/control.h>

DWORD gdiObjectCount()
{
    return Win32Control_GdiObjects();
}
