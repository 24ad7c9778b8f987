/* The public headers serve C as well as C++. */
#include <mtbx/MTBX.h>

int headersServeC(void)
{
    Handle h = NewHandle(sizeof(EventRecord));
    Size size = GetHandleSize(h);
    DisposeHandle(h);
    return size == (Size)sizeof gTheEvent;
}
