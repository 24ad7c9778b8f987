// Objects behind GDI handles, and their table: typed, checked, with a quota.
//
// A handle is an entry's index and generation with the type between them, so a stale or foreign one is
// recognised. Look-ups take no lock.
#pragma once

#include <windows.h>

#include <cstdint>
#include <new>
#include <utility>

namespace win32::gdi {

// Objects that a process may have, as on Windows, unless the control panel says otherwise.
constexpr DWORD defaultQuota = 10000;

enum class ObjectType : uint8_t { None, Pen, Brush, Context, Palette, Font, Bitmap, Region, Types };

class Object {
public:
    explicit Object(ObjectType objectType) : type(objectType) {}
    virtual ~Object() = default;
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;

    // What GetObjectA gives: the bytes written, or needed when the buffer is null; 0 for failure.
    virtual int describe(int size, void *buffer) const = 0;
    // The number that GetObjectType gives.
    // OBJ_METADC stands between the numbers of contexts and palettes.
    virtual DWORD publishedType() const { return static_cast<DWORD>(type) + (type >= ObjectType::Palette ? 1 : 0); }

    HGDIOBJ handle() const { return handle_; }
    bool isStock() const { return isStock_; }

    // Contexts that have the object selected, their saved states included. An object that is deleted while
    // it is selected ends when the last of them lets go of it.
    void select() { ++selections_; }
    void deselect();
    bool isSelected() const { return selections_ != 0; }

    const ObjectType type;

private:
    friend class ObjectEntry;
    friend void destroy(Object *object);
    HGDIOBJ handle_ = nullptr;
    int selections_ = 0;
    bool isStock_ = false;
    bool isDoomed_ = false;
};

// Whether the control panel or the quota refuses one more object of the type; sets the last error then.
bool refusesCreation(ObjectType type);

// Gives the object a handle. Null when the table or the quota is full: then the object is deleted.
HGDIOBJ enter(Object *object);
// The same for an object that every program has and none can delete.
HGDIOBJ enterStock(Object *object);

// Null with ERROR_INVALID_HANDLE for what is no live handle of the type.
Object *findObject(HGDIOBJ handle, ObjectType type);
Object *findAny(HGDIOBJ handle);

template <class T> T *find(HGDIOBJ handle)
{
    return static_cast<T *>(findObject(handle, T::objectType));
}

// A new object and its handle; null with the last error when that cannot be.
template <class T, class... Arguments> HGDIOBJ create(Arguments &&...arguments)
{
    if (refusesCreation(T::objectType))
        return nullptr;
    return enter(new (std::nothrow) T(std::forward<Arguments>(arguments)...));
}

// Ends an object: at once, or when no context has it selected any more. Stock objects stay.
void destroy(Object *object);

// Objects in the table but the stock ones.
DWORD objectCount();

} // namespace win32::gdi
