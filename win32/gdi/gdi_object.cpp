#include "gdi_object.h"

#include "kernel/faults.h"
#include "kernel/kernel_internal.h"
#include "kernel/object_table.h"

#include <atomic>

namespace win32::gdi {

namespace {

ObjectTable<Object> table;
std::atomic<DWORD> quota{defaultQuota};
std::atomic<DWORD> count{0}; // stock objects aside

} // namespace

class ObjectEntry {
public:
    static HGDIOBJ make(Object *object, bool isStock)
    {
        object->handle_ = table.enter(object);
        object->isStock_ = isStock;
        return object->handle_;
    }
};

void Object::deselect()
{
    if (--selections_ == 0 && isDoomed_)
        destroy(this);
}

bool refusesCreation(ObjectType type)
{
    static_assert(WIN32_ALLOCATION_REGION - WIN32_ALLOCATION_PEN
                  == static_cast<int>(ObjectType::Region) - static_cast<int>(ObjectType::Pen));
    int kind = WIN32_ALLOCATION_PEN + static_cast<int>(type) - static_cast<int>(ObjectType::Pen);
    bool isRefused = count.load(std::memory_order_relaxed) >= quota.load(std::memory_order_relaxed)
                     || faults::refuses(static_cast<Win32Allocation>(kind), 0);
    if (isRefused)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return isRefused;
}

HGDIOBJ enter(Object *object)
{
    if (!object)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HGDIOBJ{});
    if (HGDIOBJ handle = ObjectEntry::make(object, false)) {
        count.fetch_add(1, std::memory_order_relaxed);
        return handle;
    }
    delete object;
    return fail(ERROR_NOT_ENOUGH_MEMORY, HGDIOBJ{});
}

HGDIOBJ enterStock(Object *object)
{
    return ObjectEntry::make(object, true);
}

Object *findObject(HGDIOBJ handle, ObjectType type)
{
    Object *object = table.find(handle, static_cast<uint32_t>(type));
    return object ? object : fail(ERROR_INVALID_HANDLE, object);
}

Object *findAny(HGDIOBJ handle)
{
    Object *object = table.find(handle);
    return object ? object : fail(ERROR_INVALID_HANDLE, object);
}

void destroy(Object *object)
{
    if (object->isStock_)
        return;
    if (object->selections_ > 0) {
        object->isDoomed_ = true;
        return;
    }
    table.remove(object->handle_);
    count.fetch_sub(1, std::memory_order_relaxed);
    delete object;
}

DWORD objectCount()
{
    return count.load(std::memory_order_relaxed);
}

} // namespace win32::gdi

using namespace win32;

void Win32Control_LimitGdiObjects(DWORD most)
{
    gdi::quota = most ? most : gdi::defaultQuota;
}

DWORD Win32Control_GdiObjects()
{
    return gdi::objectCount();
}
