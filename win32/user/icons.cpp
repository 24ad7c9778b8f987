// Cursors and icons of modules and files, and drawing them.
#include "cursor_files.h"
#include "kernel/kernel_internal.h"
#include "system_signs.h"

#include <algorithm>
#include <map>
#include <string>

namespace win32::user {
namespace {

Bytes resourceBytes(HINSTANCE module, LPCSTR name, LPCSTR type)
{
    HRSRC resource = FindResourceA(module, name, type);
    HGLOBAL block = resource ? LoadResource(module, resource) : nullptr;
    auto *bytes = block ? static_cast<const uint8_t *>(LockResource(block)) : nullptr;
    return bytes ? Bytes(bytes, SizeofResource(module, resource)) : Bytes();
}

int usualSize(PictureKind kind)
{
    return GetSystemMetrics(kind == PictureKind::Cursor ? SM_CXCURSOR : SM_CXICON);
}

std::unique_ptr<Cursor> loadFromModule(HINSTANCE module, LPCSTR name, PictureKind kind)
{
    bool isCursor = kind == PictureKind::Cursor;
    int size = usualSize(kind);
    Bytes group = resourceBytes(module, name, isCursor ? RT_GROUP_CURSOR : RT_GROUP_ICON);
    WORD number = chooseFromGroup(group, kind, size);
    Bytes bytes = number ? resourceBytes(module, MAKEINTRESOURCEA(number), isCursor ? RT_CURSOR : RT_ICON) : Bytes();
    auto picture = bytes.empty() ? nullptr : readPicture(bytes, kind);
    if (picture)
        resize(*picture, size, size);
    return picture;
}

struct SharedName {
    HINSTANCE module;
    PictureKind kind;
    std::string name;

    auto operator<=>(const SharedName &) const = default;
};

std::string spelled(LPCSTR name)
{
    if (IS_INTRESOURCE(name))
        return "#" + std::to_string(reinterpret_cast<uintptr_t>(name));
    std::string text = name;
    for (char &letter : text) {
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    }
    return text;
}

// A file of a sensible size, whole; empty when it cannot be read.
std::vector<uint8_t> contentsOf(LPCSTR path)
{
    constexpr DWORD mostBytes = 16 << 20;
    std::vector<uint8_t> bytes;
    HANDLE file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return bytes;
    DWORD size = GetFileSize(file, nullptr), count = 0;
    if (size <= mostBytes) {
        try {
            bytes.resize(size);
        } catch (const std::bad_alloc &) {
            CloseHandle(file);
            throw;
        }
    }
    if (!bytes.empty() && !ReadFile(file, bytes.data(), size, &count, nullptr))
        count = 0;
    CloseHandle(file);
    bytes.resize(count);
    return bytes;
}

// Pixels of a context, in memory of ours.
class Copied {
public:
    Copied(HDC context, const RECT &rect) : context_(context), rect_(rect), memory_(CreateCompatibleDC(context))
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, width(), -height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void *bits = nullptr;
        bitmap_ = CreateDIBSection(memory_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels_ = static_cast<uint32_t *>(bits);
        former_ = bitmap_ ? SelectObject(memory_, bitmap_) : nullptr;
        if (pixels_)
            BitBlt(memory_, 0, 0, width(), height(), context_, rect_.left, rect_.top, SRCCOPY);
    }
    ~Copied()
    {
        if (former_)
            SelectObject(memory_, former_);
        if (bitmap_)
            DeleteObject(bitmap_);
        if (memory_)
            DeleteDC(memory_);
    }
    Copied(const Copied &) = delete;
    Copied &operator=(const Copied &) = delete;

    uint32_t *pixels() { return pixels_; }
    BOOL putBack() { return BitBlt(context_, rect_.left, rect_.top, width(), height(), memory_, 0, 0, SRCCOPY); }

private:
    int width() const { return rect_.right - rect_.left; }
    int height() const { return rect_.bottom - rect_.top; }

    HDC context_;
    RECT rect_;
    HDC memory_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ former_ = nullptr;
    uint32_t *pixels_ = nullptr;
};

// A copy in a size, with which drawing can go on without a lock.
std::unique_ptr<Cursor> drawnCopy(HICON icon, int width, int height)
{
    UserLock lock;
    const Cursor *picture = findCursor(icon);
    if (!picture)
        return fail(ERROR_INVALID_CURSOR_HANDLE, std::unique_ptr<Cursor>());
    if (picture->duration)
        picture = picture->pictures[picture->steps[0].picture].get();
    auto copy = std::make_unique<Cursor>();
    copy->width = picture->width;
    copy->height = picture->height;
    copy->pixels = picture->pixels;
    resize(*copy, width, height);
    return copy;
}

} // namespace

BOOL drawIcon(HDC context, const RECT &rect, HICON icon)
{
    return guarded(FALSE, [&]() -> BOOL {
        auto picture = drawnCopy(icon, rect.right - rect.left, rect.bottom - rect.top);
        if (!picture)
            return FALSE;
        Copied copied(context, rect);
        if (!copied.pixels())
            return FALSE;
        for (size_t i = 0; i < picture->pixels.size(); ++i)
            copied.pixels()[i] = laidOn(copied.pixels()[i] & 0xFFFFFF, picture->pixels[i]);
        return copied.putBack();
    });
}

HCURSOR loadShared(HINSTANCE module, LPCSTR name, PictureKind kind)
{
    static auto *loaded = new std::map<SharedName, HCURSOR>;
    UserLock lock;
    SharedName key{module, kind, spelled(name)};
    // Null if it was refused before.
    HCURSOR &handle = (*loaded)[key];
    if (handle)
        return handle;
    auto picture = loadFromModule(module, name, kind);
    if (!picture)
        return fail(ERROR_RESOURCE_NAME_NOT_FOUND, HCURSOR{});
    picture->isShared = true;
    handle = enterCursor(std::move(picture));
    return handle;
}

} // namespace win32::user

using namespace win32;
using namespace win32::user;

HICON LoadIconA(HINSTANCE module, LPCSTR name)
{
    return guarded(HICON{}, [&] { return module ? loadShared(module, name, PictureKind::Icon) : systemSign(name); });
}

HCURSOR LoadCursorFromFileA(LPCSTR path)
{
    return guarded(HCURSOR{}, [&]() -> HCURSOR {
        std::vector<uint8_t> bytes = contentsOf(path);
        if (bytes.empty())
            return nullptr;
        int size = usualSize(PictureKind::Cursor);
        auto cursor = readAnimation(bytes, size);
        if (!cursor)
            cursor = readPictureFile(bytes, size);
        if (!cursor)
            return fail(ERROR_INVALID_PARAMETER, HCURSOR{});
        resize(*cursor, size, size);
        return enterCursor(std::move(cursor));
    });
}

HICON CreateIconFromResourceEx(PBYTE bits, DWORD size, BOOL isIcon, DWORD version, int width, int height, UINT flags)
{
    constexpr DWORD windows2 = 0x00020000, windows3 = 0x00030000;
    if (!bits || (version != windows2 && version != windows3))
        return fail(ERROR_INVALID_PARAMETER, HICON{});
    return guarded(HICON{}, [&]() -> HICON {
        PictureKind kind = isIcon ? PictureKind::Icon : PictureKind::Cursor;
        Bytes bytes(bits, size);
        int usual = usualSize(kind);
        auto picture = readAnimation(bytes, width > 0 ? width : usual);
        if (!picture)
            picture = readPicture(bytes, kind);
        if (!picture)
            return fail(ERROR_INVALID_PARAMETER, HICON{});
        bool isUsual = (flags & LR_DEFAULTSIZE) != 0;
        auto side = [&](int wanted, int own) { return wanted > 0 ? std::min(wanted, 256) : isUsual ? usual : own; };
        resize(*picture, side(width, picture->width), side(height, picture->height));
        return enterCursor(std::move(picture));
    });
}

BOOL DestroyIcon(HICON icon)
{
    return DestroyCursor(icon);
}

BOOL DrawIcon(HDC context, int x, int y, HICON icon)
{
    return drawIcon(context, {x, y, x + GetSystemMetrics(SM_CXICON), y + GetSystemMetrics(SM_CYICON)}, icon);
}
