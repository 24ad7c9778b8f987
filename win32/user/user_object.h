// Objects behind the handles of the user interface, and their table.
//
// A handle is an entry's index and generation, so a stale or foreign one is recognised and never crashes.
// Look-ups take no lock; what is found is safe to use under the lock of the user interface, or by the
// thread that owns it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <mutex>

namespace win32::user {

enum class UserObjectType : uint8_t { None, Window, Menu, Cursor, Types };

class UserObject {
public:
    explicit UserObject(UserObjectType objectType) : type(objectType) {}
    virtual ~UserObject() = default;
    UserObject(const UserObject &) = delete;
    UserObject &operator=(const UserObject &) = delete;

    HANDLE handle() const { return handle_; }

    const UserObjectType type;

private:
    friend HANDLE enterObject(UserObject *object);
    HANDLE handle_ = nullptr;
};

// Gives the object a handle: null, with ERROR_NOT_ENOUGH_MEMORY and the object still the caller's, when there
// is none left.
HANDLE enterObject(UserObject *object);
// Ends the handle; the object stays the caller's.
void removeObject(UserObject *object);
// Null, without touching the last error, for what is no live handle of the type.
UserObject *findUserObject(HANDLE handle, UserObjectType type);

// Live handles of all types.
DWORD userObjectCount();

// The lock of the user interface: held for as long as its records are read or changed, never while a window
// procedure or another function of the program runs.
class UserLock {
public:
    UserLock() { mutex().lock(); }
    ~UserLock() { mutex().unlock(); }
    UserLock(const UserLock &) = delete;
    UserLock &operator=(const UserLock &) = delete;

private:
    static std::recursive_mutex &mutex();
};

} // namespace win32::user
