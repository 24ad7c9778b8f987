// Calls on objects of any type: deleting, describing, selecting.
#include "device_context.h"
#include "stock_objects.h"
#include "system_palette.h"

#include "kernel/kernel_internal.h"
#include "screen/screen.h"

#include <atomic>
#include <cstring>

namespace win32::gdi {
namespace {

// Copies as much of a record as fits; a null buffer asks for its size.
template <class Record> int copyRecord(const Record &record, int size, void *buffer)
{
    if (!buffer)
        return sizeof(Record);
    int copied = std::min(size, static_cast<int>(sizeof(Record)));
    if (copied < 0)
        return 0;
    memcpy(buffer, &record, static_cast<size_t>(copied));
    return copied;
}

template <class T> HGDIOBJ selectPlain(Selected<T> &slot, Object *object)
{
    HGDIOBJ old = slot->handle();
    slot.set(static_cast<T *>(object));
    return old;
}

// A device bitmap goes only into contexts of its depth; monochrome ones and DIB sections go into all.
bool fits(const Bitmap &bitmap)
{
    return bitmap.isDibSection || bitmap.surface.format.isMonochrome
           || bitmap.surface.format.bitsPerPixel == screen::surface().format.bitsPerPixel;
}

HGDIOBJ selectBitmap(DeviceContext &dc, Bitmap &bitmap)
{
    if (!dc.isMemory || (bitmap.context && bitmap.context != &dc) || !fits(bitmap))
        return nullptr;
    HGDIOBJ old = dc.bitmap->handle();
    dc.setBitmap(bitmap);
    return old;
}

HGDIOBJ selectRegion(DeviceContext &dc, const Region &region)
{
    return guarded(HGDI_ERROR, [&] {
        dc.state.clip.copyFrom(region.pixels);
        dc.state.isClipped = true;
        dc.clipChanged();
        return reinterpret_cast<HGDIOBJ>(static_cast<INT_PTR>(complexityOf(dc.state.clip.pixels)));
    });
}

} // namespace

uint32_t Brush::nextStamp()
{
    static std::atomic<uint32_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

int Brush::describe(int size, void *buffer) const
{
    LOGBRUSH record{style, color, hatch};
    return copyRecord(record, size, buffer);
}

// An extended pen has as many lengths as it needs; the record is given whole or not at all.
int Pen::describe(int size, void *buffer) const
{
    if (!isExtended) {
        LOGPEN record{lineStyle(), {width, 0}, brush.color};
        return copyRecord(record, size, buffer);
    }
    size_t needed = offsetof(EXTLOGPEN, elpStyleEntry) + std::max<size_t>(lengths.size(), 1) * sizeof(DWORD);
    if (!buffer)
        return static_cast<int>(needed);
    if (size < static_cast<int>(needed))
        return 0;
    EXTLOGPEN record{style,       static_cast<DWORD>(width), brush.style, brush.color, brush.hatch,
                     static_cast<DWORD>(lengths.size()), {0}};
    memcpy(buffer, &record, offsetof(EXTLOGPEN, elpStyleEntry));
    memset(static_cast<char *>(buffer) + offsetof(EXTLOGPEN, elpStyleEntry), 0, sizeof(DWORD));
    if (!lengths.empty())
        memcpy(static_cast<char *>(buffer) + offsetof(EXTLOGPEN, elpStyleEntry), lengths.data(),
               lengths.size() * sizeof(DWORD));
    return static_cast<int>(needed);
}

int Font::describe(int size, void *buffer) const
{
    return copyRecord(description, size, buffer);
}

} // namespace win32::gdi

using namespace win32;
using namespace win32::gdi;

// A context is told from an object by its type, so this call ends contexts of memory too, as on Windows.
BOOL DeleteObject(HGDIOBJ handle)
{
    Object *object = findAny(handle);
    if (!object)
        return FALSE;
    if (object->type == ObjectType::Context)
        return DeleteDC(static_cast<HDC>(handle));
    destroy(object);
    return TRUE;
}

DWORD GetObjectType(HGDIOBJ handle)
{
    Object *object = findAny(handle);
    return object ? object->publishedType() : 0;
}

int GetObjectA(HGDIOBJ handle, int size, LPVOID buffer)
{
    Object *object = findAny(handle);
    return object ? object->describe(size, buffer) : 0;
}

HGDIOBJ GetStockObject(int index)
{
    Object *object = stock::object(index);
    return object ? object->handle() : nullptr;
}

HGDIOBJ GetCurrentObject(HDC context, UINT type)
{
    DeviceContext *dc = findContext(context);
    if (!dc)
        return nullptr;
    switch (type) {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return dc->state.pen->handle();
    case OBJ_BRUSH:
        return dc->state.brush->handle();
    case OBJ_PAL:
        return dc->state.palette->handle();
    case OBJ_FONT:
        return dc->state.font->handle();
    case OBJ_BITMAP:
        return dc->bitmap ? dc->bitmap->handle() : defaultBitmap()->handle();
    default:
        return fail(ERROR_INVALID_PARAMETER, HGDIOBJ{});
    }
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ handle)
{
    DeviceContext *dc = findContext(context);
    Object *object = dc ? findAny(handle) : nullptr;
    if (!object)
        return nullptr;
    switch (object->type) {
    case ObjectType::Pen:
        return selectPlain(dc->state.pen, object);
    case ObjectType::Brush:
        return selectPlain(dc->state.brush, object);
    case ObjectType::Font:
        return selectPlain(dc->state.font, object);
    case ObjectType::Bitmap:
        return selectBitmap(*dc, static_cast<Bitmap &>(*object));
    case ObjectType::Region:
        return selectRegion(*dc, static_cast<Region &>(*object));
    default:
        return fail(ERROR_INVALID_FUNCTION, HGDIOBJ{}); // palettes have a call of their own
    }
}

// Brushes are realized anew whenever that is needed.
BOOL UnrealizeObject(HGDIOBJ handle)
{
    Object *object = findAny(handle);
    if (object && object->type == ObjectType::Palette)
        unrealize(static_cast<Palette &>(*object));
    return object != nullptr;
}
