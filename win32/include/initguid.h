// Included first, makes DEFINE_GUID define.
#ifndef INITGUID
#define INITGUID
#endif
#include <guiddef.h>
