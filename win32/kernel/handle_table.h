// The one table of kernel handles: typed, checked, and 32 bits wide.
//
// A value is made of an index and the entry's generation, so a handle that was closed is known
// to be stale even when its entry serves another object. Look-ups take no lock.
#pragma once

#include <windows.h>

namespace win32 {

// Kinds from Event on belong to objects of class KernelObject.
enum class HandleKind : uint8_t { Free, Module, Heap, GlobalBlock, DeferredPositions, Event, File, Search };

namespace handles {

// A new handle for the object, null with ERROR_NOT_ENOUGH_MEMORY when the table is full. The two
// lowest bits of a handle are 0.
HANDLE insert(HandleKind kind, void *object);

// The object of a live handle of this kind, otherwise null with ERROR_INVALID_HANDLE.
void *find(HANDLE handle, HandleKind kind);

// Ends the handle and gives its object back to the caller; null as for find.
void *remove(HANDLE handle, HandleKind kind);

DWORD count();

} // namespace handles
} // namespace win32
