// Objects behind kernel handles that live as long as somebody uses them: a handle may be closed by one
// thread while a call of another is still at work on its object.
#pragma once

#include "handle_table.h"
#include "kernel_internal.h"

#include <atomic>

namespace win32 {

class KernelObject {
public:
    explicit KernelObject(HandleKind kind) : kind_(kind) {}
    virtual ~KernelObject() = default;
    KernelObject(const KernelObject &) = delete;
    KernelObject &operator=(const KernelObject &) = delete;

    HandleKind kind() const { return kind_; }

    // Called when the last handle is closed, before the object's last user lets go of it.
    virtual void closed() {}

    void addReference() { references_.fetch_add(1, std::memory_order_relaxed); }
    void release()
    {
        if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

    // Whether a wait for the object ends at once; guarded by the lock of the waits.
    bool signaled = false;
    bool resetsItself = false;

private:
    const HandleKind kind_;
    std::atomic<int> references_{1};
};

// Holds an object for the length of a call.
template <class Object> class Ref {
public:
    Ref() = default;
    explicit Ref(Object *object) : object_(object) {}
    Ref(Ref &&other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref(const Ref &other) : object_(other.object_)
    {
        if (object_)
            object_->addReference();
    }
    Ref &operator=(Ref other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref()
    {
        if (object_)
            object_->release();
    }

    explicit operator bool() const { return object_ != nullptr; }
    Object *operator->() const { return object_; }
    Object &operator*() const { return *object_; }
    Object *get() const { return object_; }
    // Leaves the object to the caller, who releases it.
    Object *detach() { return std::exchange(object_, nullptr); }

private:
    Object *object_ = nullptr;
};

namespace handles {

// The object of a handle whose kind is one of those that KernelObject serves; empty, with
// ERROR_INVALID_HANDLE, for any other value.
Ref<KernelObject> acquire(HANDLE handle);

} // namespace handles

// The same, for one kind only.
template <class Object> Ref<Object> acquireObject(HANDLE handle, HandleKind kind)
{
    Ref<KernelObject> object = handles::acquire(handle);
    if (object && object->kind() == kind)
        return Ref<Object>(static_cast<Object *>(object.detach()));
    return fail(ERROR_INVALID_HANDLE, Ref<Object>());
}

// A handle for a new object, which the table then holds; null, with the object gone, when there is none.
HANDLE handleFor(KernelObject *object);

} // namespace win32
