#include "GdiObjects.h"

DWORD gdiObjectCount()
{
    return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}
