#include "apartments.h"

#include <objbase.h>

#include <atomic>

namespace win32 {
namespace {

std::atomic<int> multithreadedThreads{0};

struct Apartment {
    unsigned starts = 0;
    bool isMultithreaded = false;

    // A thread may end without the calls that it owes.
    ~Apartment()
    {
        if (starts > 0 && isMultithreaded)
            --multithreadedThreads;
    }
};

thread_local Apartment apartment;

} // namespace

bool isInApartment()
{
    return apartment.starts > 0 || multithreadedThreads > 0;
}

} // namespace win32

using namespace win32;

HRESULT CoInitialize(LPVOID reserved)
{
    return CoInitializeEx(reserved, COINIT_APARTMENTTHREADED);
}

HRESULT CoInitializeEx(LPVOID, DWORD flags)
{
    constexpr DWORD known = COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE | COINIT_SPEED_OVER_MEMORY;
    if (flags & ~known)
        return E_INVALIDARG;
    bool wantsMultithreaded = !(flags & COINIT_APARTMENTTHREADED);
    if (apartment.starts > 0 && apartment.isMultithreaded != wantsMultithreaded)
        return RPC_E_CHANGED_MODE;
    if (apartment.starts++ > 0)
        return S_FALSE;
    apartment.isMultithreaded = wantsMultithreaded;
    if (wantsMultithreaded)
        ++multithreadedThreads;
    return S_OK;
}

void CoUninitialize()
{
    if (apartment.starts > 0 && --apartment.starts == 0 && apartment.isMultithreaded)
        --multithreadedThreads;
}
