// Memory that one owner allocates and another frees. It lies on the process heap, which knows the exact
// size of every block.
#include <objbase.h>
#include <winbase.h>

LPVOID CoTaskMemAlloc(SIZE_T size)
{
    return HeapAlloc(GetProcessHeap(), 0, size);
}

void CoTaskMemFree(LPVOID memory)
{
    HeapFree(GetProcessHeap(), 0, memory);
}
