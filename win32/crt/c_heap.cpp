// Wrappers of the C heap, linked into a module with --wrap, through which the control panel can
// refuse that module's allocations. Freeing needs no wrapper.
#include "kernel/faults.h"

#include <cerrno>
#include <cstdlib>
#include <new>

#ifndef WIN32_C_HEAP_KIND
#define WIN32_C_HEAP_KIND WIN32_ALLOCATION_C_HEAP
#endif

namespace {

bool refused(size_t size)
{
    if (!win32::faults::refuses(WIN32_C_HEAP_KIND, size)) [[likely]]
        return false;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {

void *__real_malloc(size_t size);
void *__real_calloc(size_t count, size_t size);
void *__real_realloc(void *block, size_t size);
void *__real__Znwm(size_t size);
void *__real__Znam(size_t size);
void *__real__ZnwmRKSt9nothrow_t(size_t size, const std::nothrow_t &);

void *__wrap_malloc(size_t size)
{
    return refused(size) ? nullptr : __real_malloc(size);
}

void *__wrap_calloc(size_t count, size_t size)
{
    return refused(count * size) ? nullptr : __real_calloc(count, size);
}

void *__wrap_realloc(void *block, size_t size)
{
    return refused(size) ? nullptr : __real_realloc(block, size);
}

// operator new(size_t), operator new[](size_t), operator new(size_t, nothrow)
void *__wrap__Znwm(size_t size)
{
    if (refused(size))
        throw std::bad_alloc();
    return __real__Znwm(size);
}

void *__wrap__Znam(size_t size)
{
    if (refused(size))
        throw std::bad_alloc();
    return __real__Znam(size);
}

void *__wrap__ZnwmRKSt9nothrow_t(size_t size, const std::nothrow_t &tag)
{
    return refused(size) ? nullptr : __real__ZnwmRKSt9nothrow_t(size, tag);
}

} // extern "C"
