#include "user_object.h"

#include "kernel/kernel_internal.h"
#include "kernel/object_table.h"

namespace win32::user {
namespace {

ObjectTable<UserObject> table;

} // namespace

HANDLE enterObject(UserObject *object)
{
    object->handle_ = table.enter(object);
    return object->handle_ ? object->handle_ : fail(ERROR_NOT_ENOUGH_MEMORY, HANDLE{});
}

void removeObject(UserObject *object)
{
    table.remove(object->handle());
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
