// Cursors and the cache that keeps them.
#include "CursorResources.h"
#include "Pictures_internal.h"
#include "Resources/Resources_internal.h"

#include <mtbx/MTBXGlobals.h>
#include <mtbx/MacMemory.h>
#include <mtbx/Pictures.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

constexpr ResType cursors = 0x43555253; // 'CURS'

// The key is the ID plus 1.
struct CachedCursor {
    SInt16 key;
    Handle handle;
};
CachedCursor cache[256];

constexpr SInt16 animatedKey = 1030;
char animationFolder[200];

// Four bytes on every system, since handles of cursors have no more.
HCURSOR cursorIn(const void *fourBytes)
{
    SInt32 value;
    memcpy(&value, fourBytes, sizeof value);
    return reinterpret_cast<HCURSOR>(static_cast<intptr_t>(value));
}

void putCursor(void *fourBytes, HCURSOR cursor)
{
    auto value = static_cast<SInt32>(reinterpret_cast<intptr_t>(cursor));
    memcpy(fourBytes, &value, sizeof value);
}

Handle findCached(SInt16 key)
{
    for (const CachedCursor &entry : cache)
        if (entry.key == key && entry.handle)
            return entry.handle;
    return nullptr;
}

// The oldest cursor ends; its handle may still be in the host's hands, and shows nothing from now on.
CachedCursor &dropOldest()
{
    DestroyCursor(cursorIn(*cache[0].handle));
    putCursor(*cache[0].handle, nullptr);
    std::move(std::begin(cache) + 1, std::end(cache), std::begin(cache));
    return *std::prev(std::end(cache));
}

void enter(SInt16 key, Handle handle)
{
    auto *free = std::find_if(std::begin(cache), std::end(cache), [](const CachedCursor &entry) { return !entry.handle; });
    CachedCursor &entry = free != std::end(cache) ? *free : dropOldest();
    entry = {key, handle};
}

void forget(Handle handle)
{
    for (CachedCursor &entry : cache)
        if (entry.handle == handle)
            entry = {};
    MTBX_ForgetCursorResource(handle);
}

LPCSTR systemCursorName(SInt16 key)
{
    switch (key - 1) {
    case iBeamCursor:
        return IDC_IBEAM;
    case crossCursor:
    case plusCursor:
        return IDC_CROSS;
    case watchCursor:
        return IDC_WAIT;
    default:
        return nullptr;
    }
}

// The folder's file beside the program. False when the path would be too long.
bool animationPath(char (&path)[MAX_PATH])
{
    constexpr char file[] = "\\render.ANI";
    if (!*animationFolder)
        strcpy(animationFolder, "Required");
    DWORD length = GetModuleFileNameA(hExeInst, path, sizeof path);
    if (length == 0 || length >= sizeof path)
        return false;
    const char *name = path;
    for (const char *each = path; *each; each = CharNextA(each))
        if (*each == '\\')
            name = each + 1;
    size_t folder = static_cast<size_t>(name - path);
    if (folder + strlen(animationFolder) + sizeof file > sizeof path)
        return false;
    strcpy(path + folder, animationFolder);
    strcat(path, file);
    return true;
}

HCURSOR animationFromResource()
{
    HRSRC resource = FindResourceA(hResInst, MAKEINTRESOURCEA(animatedKey), "ANICURSOR");
    HGLOBAL block = resource ? LoadResource(hResInst, resource) : nullptr;
    void *bytes = block ? LockResource(block) : nullptr;
    if (!bytes)
        return nullptr;
    constexpr DWORD version = 0x00030000;
    return static_cast<HCURSOR>(CreateIconFromResourceEx(static_cast<PBYTE>(bytes), SizeofResource(hResInst, resource), FALSE,
                                                         version, 0, 0, 0));
}

HCURSOR animatedCursor()
{
    char path[MAX_PATH];
    HCURSOR cursor = animationPath(path) ? LoadCursorFromFileA(path) : nullptr;
    return cursor ? cursor : animationFromResource();
}

// A cursor for the key; null when there is none.
HCURSOR findCursor(SInt16 key)
{
    if (LPCSTR name = systemCursorName(key))
        return LoadCursorA(nullptr, name);
    HCURSOR cursor = key == animatedKey && gAnimCursor ? animatedCursor() : nullptr;
    if (cursor)
        return cursor;
    Handle resource = key == animatedKey ? nullptr : GetResource(cursors, key);
    if (resource && *resource)
        return MTBX_CreateResourceCursor(resource);
    return LoadCursorA(hResInst, MAKEINTRESOURCEA(static_cast<WORD>(key)));
}

} // namespace

void MTBX_StartCursors()
{
    MTBX_SetResourceForgetHook(forget);
}

void MTBX_StopCursors()
{
    for (CachedCursor &entry : cache) {
        if (entry.handle) {
            DestroyCursor(cursorIn(*entry.handle));
            DisposeHandle(entry.handle);
        }
        entry = {};
    }
    MTBX_FreeCursorMasks();
}

CursHandle MacGetCursor(SInt16 cursorID)
{
    auto key = static_cast<SInt16>(cursorID + 1);
    if (Handle cached = findCached(key))
        return reinterpret_cast<CursHandle>(cached);
    HCURSOR cursor = findCursor(key);
    if (!cursor)
        return nullptr;
    Handle handle = NewHandle(sizeof(SInt32));
    if (!handle) {
        DestroyCursor(cursor);
        return nullptr;
    }
    putCursor(*handle, cursor);
    enter(key, handle);
    return reinterpret_cast<CursHandle>(handle);
}

CCrsrHandle GetCCursor(SInt16 cursorID)
{
    return MacGetCursor(cursorID);
}

void DisposCCursor(CCrsrHandle)
{
}

void MacSetCursor(const Cursor *cursor)
{
    HCURSOR native = cursor ? cursorIn(cursor) : nullptr;
    if (native && native != GetCursor())
        SetCursor(native);
}

void InitCursor()
{
    MacSetCursor(&qd.arrow);
}

void HideCursor()
{
    ShowCursor(FALSE);
}

void MacShowCursor()
{
    ShowCursor(TRUE);
}

void MTBX_SetAnimatedCursorDirectory(const char *directory)
{
    strncpy(animationFolder, directory ? directory : "", sizeof animationFolder - 1);
}
