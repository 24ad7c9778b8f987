#include "user_object.h"

#include "kernel/kernel_internal.h"
#include "kernel/object_table.h"

#include <atomic>

namespace win32::user {
namespace {

ObjectTable<UserObject> table;
std::atomic<DWORD> count{0};

} // namespace

HANDLE enterObject(UserObject *object)
{
    object->handle_ = table.enter(object);
    if (!object->handle_)
        return fail(ERROR_NOT_ENOUGH_MEMORY, HANDLE{});
    count.fetch_add(1, std::memory_order_relaxed);
    return object->handle_;
}

void removeObject(UserObject *object)
{
    table.remove(object->handle());
    count.fetch_sub(1, std::memory_order_relaxed);
}

DWORD userObjectCount()
{
    return count.load(std::memory_order_relaxed);
}

UserObject *findUserObject(HANDLE handle, UserObjectType type)
{
    return table.find(handle, static_cast<uint32_t>(type));
}

// Never destroyed: threads may still hold it when the process ends.
std::recursive_mutex &UserLock::mutex()
{
    static std::recursive_mutex *made = new std::recursive_mutex;
    return *made;
}

} // namespace win32::user
