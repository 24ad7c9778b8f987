// Plain string calls and MulDiv.
#include "kernel_internal.h"

#include <climits>
#include <cstring>

int lstrlenA(LPCSTR text)
{
    return text ? static_cast<int>(strlen(text)) : 0;
}

LPSTR lstrcpyA(LPSTR destination, LPCSTR source)
{
    if (!destination || !source)
        return nullptr;
    return static_cast<LPSTR>(memmove(destination, source, strlen(source) + 1));
}

LPSTR lstrcpynA(LPSTR destination, LPCSTR source, int size)
{
    if (!destination || !source || size <= 0)
        return nullptr;
    size_t length = strnlen(source, static_cast<size_t>(size) - 1);
    memmove(destination, source, length);
    destination[length] = 0;
    return destination;
}

LPSTR lstrcatA(LPSTR destination, LPCSTR source)
{
    if (!destination || !source)
        return nullptr;
    lstrcpyA(destination + strlen(destination), source);
    return destination;
}

int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    int64_t product = static_cast<int64_t>(number) * numerator;
    int64_t divisor = denominator;
    if (divisor < 0) {
        divisor = -divisor;
        product = -product;
    }
    // Halves round away from zero.
    int64_t quotient = (product < 0 ? product - divisor / 2 : product + divisor / 2) / divisor;
    return quotient > INT32_MAX || quotient < INT32_MIN ? -1 : static_cast<int>(quotient);
}

int _stricmp(const char *left, const char *right)
{
    return _strnicmp(left, right, SIZE_MAX);
}

int _strnicmp(const char *left, const char *right, size_t count)
{
    if (!left || !right)
        return INT_MAX;
    for (size_t index = 0; index < count; ++index) {
        int first = static_cast<unsigned char>(win32::lowerAscii(left[index]));
        int second = static_cast<unsigned char>(win32::lowerAscii(right[index]));
        if (first != second || first == 0)
            return first - second;
    }
    return 0;
}
