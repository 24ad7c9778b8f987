#include "ModuleResources.h"

#include "BitmapPictures.h"
#include "Payload.h"
#include "TypeName.h"

#include <mtbx/MacErrors.h>

#include <algorithm>
#include <cstring>

namespace resources {
namespace {

constexpr ResType localString = 0x4C537472; // 'LStr'
constexpr char pictureName[] = "PICT";

LPCSTR resourceName(SInt16 id)
{
    return MAKEINTRESOURCEA(static_cast<UInt16>(id));
}

BOOL CALLBACK noteLanguage(HMODULE, LPCSTR, LPCSTR, WORD language, LONG_PTR found)
{
    constexpr WORD primaryLanguage = 0x3ff;
    bool counts = language == LOWORD(GetThreadLocale()) || (language & primaryLanguage) == 0;
    *reinterpret_cast<bool *>(found) |= counts;
    return !counts;
}

// Win32 finds a resource in any language rather than none.
bool isInThreadLanguage(HMODULE module, const char *typeName, SInt16 id)
{
    bool found = false;
    EnumResourceLanguagesA(module, typeName, resourceName(id), noteLanguage, reinterpret_cast<LONG_PTR>(&found));
    return found;
}

Handle makeRoom(Handle reuse, size_t size)
{
    constexpr Size cannotBe = -1;
    Size byteCount = size <= INT32_MAX ? static_cast<Size>(size) : cannotBe;
    Handle h = reuse;
    if (reuse)
        ReallocateHandle(reuse, byteCount);
    else
        h = NewHandle(byteCount);
    resError = MemError();
    return h;
}

// Room for a resource of a file that may be closed while the host makes room. Null with no error in that case.
Handle makeRoomIn(const ResourceFile &file, Handle reuse, size_t size)
{
    Opening opening(file);
    Handle h = makeRoom(reuse, size);
    if (!opening.isOver())
        return h;
    DisposeHandle(h);
    return nullptr;
}

void fillMenuBar(Handle h, std::span<const char> words)
{
    SInt16 count = menuBarCount(words);
    memcpy(*h, &count, sizeof count);
    std::copy(words.begin(), words.end(), *h + sizeof count);
}

Handle loadPayload(const ResourceFile &file, ResType type, const Payload &payload, Handle reuse)
{
    size_t size = payload.data.size() + (type == menuBarType ? sizeof(SInt16) : 0);
    Handle h = makeRoomIn(file, reuse, size);
    if (!h || resError != noErr)
        return h;
    if (type == menuBarType)
        fillMenuBar(h, payload.data);
    else
        std::copy(payload.data.begin(), payload.data.end(), *h);
    return h;
}

Handle loadBitmap(const ResourceFile &file, SInt16 id, Handle reuse, NameBuffer &name)
{
    HBITMAP bitmap = loadModuleBitmap(file.module, id);
    if (!bitmap) {
        resError = resNotFound;
        return nullptr;
    }
    BitmapPicture picture;
    OSErr error = describeBitmap(bitmap, picture);
    Handle h = makeRoomIn(file, reuse, sizeof picture);
    if (!h || resError != noErr) {
        deleteBitmap(bitmap);
        return h;
    }
    resError = error;
    memcpy(*h, &picture, sizeof picture);
    memcpy(name, bitmapPictureName, sizeof bitmapPictureName);
    return h;
}

} // namespace

std::span<const char> findInModule(HMODULE module, const char *typeName, SInt16 id)
{
    HRSRC resource = FindResourceA(module, resourceName(id), typeName);
    HGLOBAL data = resource ? LoadResource(module, resource) : nullptr;
    auto bytes = static_cast<const char *>(data ? LockResource(data) : nullptr);
    return {bytes, bytes ? SizeofResource(module, resource) : 0};
}

Handle loadFromModule(const ResourceFile &file, ResType type, SInt16 id, Handle reuse, NameBuffer &name)
{
    TypeName typeName(type);
    name[0] = 0;
    std::span<const char> bytes = findInModule(file.module, typeName.text(), id);
    bool isMissing = !bytes.data() || (type == localString && !isInThreadLanguage(file.module, typeName.text(), id));
    if (isMissing && strcmp(typeName.text(), pictureName) == 0)
        return loadBitmap(file, id, reuse, name);
    Payload payload;
    if (isMissing || !readPayload(bytes, payload)) {
        resError = isMissing ? OSErr{resNotFound} : OSErr{badResFormat};
        return nullptr;
    }
    lstrcpynA(name, payload.name, sizeof name);
    return loadPayload(file, type, payload, reuse);
}

} // namespace resources
