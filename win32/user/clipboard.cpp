#include "clipboard.h"

#include "kernel/code_pages.h"
#include "kernel/faults.h"
#include "kernel/kernel_internal.h"
#include "message_queue.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace win32::user::clipboard {
namespace {

struct Entry {
    enum class State : uint8_t {
        Given,
        Promised, // the owner makes it when it is asked
        Derived   // made from another entry when it is asked for
    };
    UINT format;
    State state;
    HANDLE data; // null for what is not made yet
};

// All guarded by the lock of the user interface.
struct Clipboard {
    std::vector<Entry> entries; // in the order in which they were given
    bool isOpen = false;
    DWORD thread = 0;      // that has it open
    HWND window = nullptr; // for which it is open
    HWND owner = nullptr;
    MessageQueue *renderer = nullptr; // asked to keep a promise, so it may give data while others have it open
    bool isChanged = false;           // since it was opened
    DWORD generation = 0;
};

Clipboard &board()
{
    static auto *made = new Clipboard;
    return *made;
}

void (*changeListener)() = nullptr;

constexpr UINT textFormats[] = {CF_TEXT, CF_OEMTEXT, CF_UNICODETEXT};
// In the order in which the system adds them.
constexpr UINT derivedFormats[] = {CF_TEXT, CF_LOCALE, CF_OEMTEXT, CF_UNICODETEXT};
// What a text is made from, the richest first.
constexpr UINT sourceFormats[] = {CF_UNICODETEXT, CF_TEXT, CF_OEMTEXT};

bool isText(UINT format)
{
    return std::find(std::begin(textFormats), std::end(textFormats), format) != std::end(textFormats);
}

void freeData(const Entry &entry)
{
    bool isOfProgram = entry.format >= CF_PRIVATEFIRST && entry.format <= CF_PRIVATELAST;
    bool isGdiObject = entry.format == CF_BITMAP || entry.format == CF_PALETTE
                       || (entry.format >= CF_GDIOBJFIRST && entry.format <= CF_GDIOBJLAST);
    if (!entry.data || isOfProgram)
        return;
    if (isGdiObject)
        DeleteObject(entry.data);
    else
        GlobalFree(entry.data);
}

Entry *find(UINT format)
{
    for (Entry &entry : board().entries) {
        if (entry.format == format)
            return &entry;
    }
    return nullptr;
}

void removeAll()
{
    for (const Entry &entry : board().entries)
        freeData(entry);
    board().entries.clear();
}

template <class Test> void removeIf(Test test)
{
    std::erase_if(board().entries, [&](const Entry &entry) {
        bool goes = test(entry);
        if (goes)
            freeData(entry);
        return goes;
    });
}

bool isOpenHere()
{
    return board().isOpen && board().thread == GetCurrentThreadId();
}

// Text in one format brings the others, and the locale that tells its code page.
void addDerived()
{
    bool hasText =
        std::any_of(std::begin(textFormats), std::end(textFormats), [](UINT format) { return find(format); });
    if (!hasText)
        return;
    for (UINT format : derivedFormats) {
        if (!find(format))
            board().entries.push_back({format, Entry::State::Derived, nullptr});
    }
}

HGLOBAL blockOf(const void *bytes, size_t size)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, size);
    void *place = block ? GlobalLock(block) : nullptr;
    if (!place)
        return block;
    memcpy(place, bytes, size);
    GlobalUnlock(block);
    return block;
}

// Up to the first zero, or to the end of a block that has none.
std::u16string textOf(UINT format, HANDLE data)
{
    std::u16string result;
    auto bytes = static_cast<const char *>(GlobalLock(data));
    if (!bytes)
        return result;
    size_t size = GlobalSize(data);
    if (format == CF_UNICODETEXT) {
        for (size_t i = 0; i + 1 < size; i += 2) {
            char16_t unit;
            memcpy(&unit, bytes + i, sizeof unit);
            if (!unit)
                break;
            result.push_back(unit);
        }
    } else {
        result = utf16FromAnsi({bytes, strnlen(bytes, size)});
    }
    GlobalUnlock(data);
    return result;
}

HGLOBAL blockOfText(UINT format, const std::u16string &text)
{
    if (format == CF_UNICODETEXT)
        return blockOf(text.c_str(), (text.size() + 1) * sizeof text[0]);
    std::string bytes = ansiFromUtf16(text);
    return blockOf(bytes.c_str(), bytes.size() + 1);
}

HGLOBAL derivedBlock(UINT format, const Entry &source)
{
    constexpr DWORD englishUnitedStates = 0x0409;
    if (format == CF_LOCALE)
        return blockOf(&englishUnitedStates, sizeof englishUnitedStates);
    return blockOfText(format, textOf(source.format, source.data));
}

// Asks the owner for what it promised. Nothing is locked meanwhile.
void callIn(UINT format, UINT milliseconds = INFINITE)
{
    HWND owner;
    {
        UserLock lock;
        owner = board().owner;
        Window *window = findWindowQuietly(owner);
        if (!window)
            return;
        board().renderer = window->queue;
    }
    DWORD_PTR ignored;
    if (milliseconds == INFINITE)
        sendMessage(owner, WM_RENDERFORMAT, format, 0);
    else
        SendMessageTimeoutA(owner, WM_RENDERFORMAT, format, 0, 0, milliseconds, &ignored);
    UserLock lock;
    board().renderer = nullptr;
}

bool hasData(UINT format)
{
    UserLock lock;
    Entry *entry = find(format);
    return entry && entry->data;
}

// True when the data are there, now or since the owner was asked for them.
bool obtain(UINT format, UINT milliseconds = INFINITE)
{
    {
        UserLock lock;
        Entry *entry = find(format);
        if (!entry || entry->data || entry->state != Entry::State::Promised)
            return entry && entry->data;
    }
    callIn(format, milliseconds);
    return hasData(format);
}

bool isDerived(UINT format)
{
    UserLock lock;
    Entry *entry = find(format);
    return entry && entry->state == Entry::State::Derived && !entry->data;
}

void derive(UINT format)
{
    for (UINT each : sourceFormats) {
        {
            UserLock lock;
            Entry *entry = find(each);
            if (!entry || entry->state == Entry::State::Derived)
                continue;
        }
        if (!obtain(each))
            continue;
        UserLock lock;
        Entry *source = find(each), *wanted = find(format);
        if (source && source->data && wanted && !wanted->data)
            wanted->data = derivedBlock(format, *source);
        return;
    }
}

void tellChange()
{
    if (changeListener)
        changeListener();
}

} // namespace

void ownerIsEnding(HWND window)
{
    bool hasPromises = false;
    {
        UserLock lock;
        if (board().owner != window)
            return;
        for (const Entry &entry : board().entries)
            hasPromises |= entry.state == Entry::State::Promised && !entry.data;
    }
    if (hasPromises)
        sendMessage(window, WM_RENDERALLFORMATS, 0, 0);
}

void forget(HWND window)
{
    UserLock lock;
    if (board().window == window)
        board().window = nullptr;
    if (board().owner != window)
        return;
    board().owner = nullptr;
    removeIf([](const Entry &entry) { return entry.state == Entry::State::Promised && !entry.data; });
    bool hasSource = std::any_of(board().entries.begin(), board().entries.end(), [](const Entry &entry) {
        return isText(entry.format) && (entry.state != Entry::State::Derived || entry.data);
    });
    if (!hasSource)
        removeIf([](const Entry &entry) { return entry.state == Entry::State::Derived; });
}

void setChangeListener(void (*listener)())
{
    changeListener = listener;
}

DWORD generation()
{
    UserLock lock;
    return board().generation;
}

bool text(std::u16string &result, Promises promises)
{
    constexpr UINT patience = 500;
    for (UINT format : sourceFormats) {
        if (promises == Promises::CalledIn && !obtain(format, patience))
            continue;
        UserLock lock;
        Entry *entry = find(format);
        if (entry && entry->data) {
            result = textOf(format, entry->data);
            return true;
        }
    }
    return false;
}

bool replaceByText(const std::u16string &text)
{
    UserLock lock;
    if (board().isOpen)
        return false;
    board().entries.reserve(std::size(derivedFormats));
    HGLOBAL block = blockOfText(CF_UNICODETEXT, text);
    if (!block)
        return false;
    HWND old = std::exchange(board().owner, nullptr);
    removeAll();
    board().entries.push_back({CF_UNICODETEXT, Entry::State::Given, block});
    addDerived();
    ++board().generation;
    if (old)
        SendNotifyMessageA(old, WM_DESTROYCLIPBOARD, 0, 0);
    return true;
}

} // namespace win32::user::clipboard

using namespace win32;
using namespace win32::user;
using namespace win32::user::clipboard;

BOOL OpenClipboard(HWND window)
{
    if (faults::fails("OpenClipboard") || (window && !findWindow(window)))
        return FALSE;
    UserLock lock;
    Clipboard &all = board();
    if (all.isOpen && (all.window != window || all.thread != GetCurrentThreadId()))
        return fail(ERROR_ACCESS_DENIED, FALSE);
    if (!all.isOpen)
        all.isChanged = false;
    all.isOpen = true;
    all.thread = GetCurrentThreadId();
    all.window = window;
    return TRUE;
}

BOOL CloseClipboard()
{
    bool isChanged;
    {
        UserLock lock;
        if (!isOpenHere())
            return fail(ERROR_CLIPBOARD_NOT_OPEN, FALSE);
        Clipboard &all = board();
        isChanged = std::exchange(all.isChanged, false);
        if (isChanged) {
            ++all.generation;
            guarded(0, [] { return addDerived(), 0; });
        }
        all.isOpen = false;
        all.window = nullptr;
    }
    if (isChanged)
        tellChange();
    return TRUE;
}

BOOL EmptyClipboard()
{
    if (faults::fails("EmptyClipboard"))
        return FALSE;
    HWND old;
    {
        UserLock lock;
        if (!isOpenHere())
            return fail(ERROR_CLIPBOARD_NOT_OPEN, FALSE);
        old = board().owner;
    }
    if (old && IsWindow(old))
        sendMessage(old, WM_DESTROYCLIPBOARD, 0, 0);
    UserLock lock;
    removeAll();
    board().owner = board().window;
    board().isChanged = true;
    return TRUE;
}

HANDLE SetClipboardData(UINT format, HANDLE data)
{
    if (faults::fails("SetClipboardData"))
        return nullptr;
    if (format == 0)
        return fail(ERROR_INVALID_PARAMETER, HANDLE{});
    return guarded(HANDLE{}, [&]() -> HANDLE {
        UserLock lock;
        bool isRendering = board().renderer && board().renderer == &MessageQueue::current();
        if (!isOpenHere() && !isRendering)
            return fail(ERROR_CLIPBOARD_NOT_OPEN, HANDLE{});
        board().entries.reserve(board().entries.size() + 1);
        bool keepsPromise = isRendering && data;
        if (!keepsPromise && isText(format)) // what was made of the old text is of no use
            removeIf([&](const Entry &entry) { return entry.state == Entry::State::Derived; });
        Entry *entry = find(format);
        if (!entry)
            entry = &board().entries.emplace_back(Entry{format, Entry::State::Given, nullptr});
        if (entry->data != data)
            freeData(*entry);
        entry->state = data ? Entry::State::Given : Entry::State::Promised;
        entry->data = data;
        board().isChanged |= !keepsPromise;
        return data;
    });
}

HANDLE GetClipboardData(UINT format)
{
    if (faults::fails("GetClipboardData"))
        return nullptr;
    {
        UserLock lock;
        if (!isOpenHere())
            return fail(ERROR_CLIPBOARD_NOT_OPEN, HANDLE{});
    }
    return guarded(HANDLE{}, [&]() -> HANDLE {
        if (isDerived(format))
            derive(format);
        else
            obtain(format);
        UserLock lock;
        Entry *entry = find(format);
        return entry && entry->data ? entry->data : fail(ERROR_NOT_FOUND, HANDLE{});
    });
}

BOOL IsClipboardFormatAvailable(UINT format)
{
    UserLock lock;
    return find(format) != nullptr;
}

UINT EnumClipboardFormats(UINT format)
{
    UserLock lock;
    if (!isOpenHere())
        return fail(ERROR_CLIPBOARD_NOT_OPEN, 0u);
    const std::vector<Entry> &entries = board().entries;
    size_t place = 0;
    if (format) {
        Entry *entry = find(format);
        place = entry ? static_cast<size_t>(entry - entries.data()) + 1 : entries.size();
    }
    return place < entries.size() ? entries[place].format : fail(ERROR_SUCCESS, 0u);
}

int CountClipboardFormats()
{
    UserLock lock;
    return static_cast<int>(board().entries.size());
}

HWND GetClipboardOwner()
{
    UserLock lock;
    return board().owner;
}

HWND GetOpenClipboardWindow()
{
    UserLock lock;
    return board().isOpen ? board().window : nullptr;
}
