#include "shell_link.h"

#include "item_list.h"
#include "kernel/code_pages.h"
#include "kernel/file_information.h"
#include "kernel/kernel_internal.h"
#include "kernel/paths.h"
#include "link_disk.h"
#include "link_file.h"
#include "link_target.h"

#include <shlobj.h>

#include <algorithm>
#include <atomic>
#include <cstring>

namespace win32 {
namespace {

// No container may throw into the caller.
template <class Operation> HRESULT answering(Operation operation)
{
    try {
        return operation();
    } catch (const std::bad_alloc &) {
        return E_OUTOFMEMORY;
    }
}

HRESULT lastResult()
{
    return HRESULT_FROM_WIN32(GetLastError());
}

// Cuts a text that is too long.
HRESULT giveText(const std::string &text, LPSTR buffer, int size)
{
    return lstrcpynA(buffer, text.c_str(), size) ? S_OK : E_INVALIDARG;
}

std::string_view withoutQuotes(std::string_view text)
{
    bool isQuoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

bool findTarget(const std::string &path, FileInformation &information)
{
    return onPath(path.c_str(), [&](const char *name) { return fileInformation(name, information) ? 0 : -1; }) >= 0;
}

class ShellLink final : public IShellLinkA, public IPersistFile {
public:
    virtual ~ShellLink() = default;

    STDMETHODIMP QueryInterface(REFIID interfaceId, void **object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetPath(LPSTR path, int size, WIN32_FIND_DATAA *data, DWORD flags) override;
    STDMETHODIMP GetIDList(PIDLIST_ABSOLUTE *list) override;
    STDMETHODIMP SetIDList(PCIDLIST_ABSOLUTE list) override;
    STDMETHODIMP GetDescription(LPSTR text, int size) override { return get(LinkText::Description, text, size); }
    STDMETHODIMP SetDescription(LPCSTR text) override { return set(LinkText::Description, text); }
    STDMETHODIMP GetWorkingDirectory(LPSTR path, int size) override { return get(LinkText::WorkingFolder, path, size); }
    STDMETHODIMP SetWorkingDirectory(LPCSTR path) override { return set(LinkText::WorkingFolder, path); }
    STDMETHODIMP GetArguments(LPSTR text, int size) override { return get(LinkText::Arguments, text, size); }
    STDMETHODIMP SetArguments(LPCSTR text) override { return set(LinkText::Arguments, text); }
    STDMETHODIMP GetHotkey(WORD *key) override;
    STDMETHODIMP SetHotkey(WORD key) override;
    STDMETHODIMP GetShowCmd(int *command) override;
    STDMETHODIMP SetShowCmd(int command) override;
    STDMETHODIMP GetIconLocation(LPSTR path, int size, int *index) override;
    STDMETHODIMP SetIconLocation(LPCSTR path, int index) override;
    STDMETHODIMP SetRelativePath(LPCSTR path, DWORD reserved) override;
    STDMETHODIMP Resolve(HWND window, DWORD flags) override;
    STDMETHODIMP SetPath(LPCSTR path) override;

    STDMETHODIMP GetClassID(CLSID *classId) override;
    STDMETHODIMP IsDirty() override { return isChanged_ ? S_OK : S_FALSE; }
    STDMETHODIMP Load(LPCOLESTR path, DWORD mode) override;
    STDMETHODIMP Save(LPCOLESTR path, BOOL remember) override;
    STDMETHODIMP SaveCompleted(LPCOLESTR path) override;
    STDMETHODIMP GetCurFile(LPOLESTR *path) override;

private:
    HRESULT get(LinkText which, LPSTR buffer, int size) const;
    HRESULT set(LinkText which, LPCSTR text);
    std::string path() const;
    std::string pathBesideLink() const;
    void setTarget(const std::u16string &target, const std::u16string &targetWithVariables);
    void noteFacts(const FileInformation &information);
    HRESULT resolve(DWORD flags);
    HRESULT save(const std::string &path, bool remember);

    std::atomic<ULONG> references_{1};
    LinkFile link_;
    std::u16string file_;    // the current file; empty when there is none
    std::u16string besides_; // the file that relative paths begin at, when that is another
    bool isChanged_ = false;
};

HRESULT ShellLink::QueryInterface(REFIID interfaceId, void **object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (interfaceId == IID_IShellLinkA || interfaceId == IID_IUnknown)
        *object = static_cast<IShellLinkA *>(this);
    else if (interfaceId == IID_IPersistFile || interfaceId == IID_IPersist)
        *object = static_cast<IPersistFile *>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ShellLink::Release()
{
    ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

HRESULT ShellLink::get(LinkText which, LPSTR buffer, int size) const
{
    return answering([&] { return giveText(ansiFromUtf16(link_.text(which)), buffer, size); });
}

HRESULT ShellLink::set(LinkText which, LPCSTR text)
{
    return answering([&]() -> HRESULT {
        std::u16string value = utf16FromAnsi(text ? text : "");
        if (value.size() > maximumLinkText)
            return E_INVALIDARG;
        link_.text(which) = std::move(value);
        isChanged_ = true;
        return S_OK;
    });
}

std::string ShellLink::path() const
{
    std::u16string open = link_.targetWithVariables();
    return open.empty() ? win32FromLinkPath(link_.target) : withVariables(ansiFromUtf16(open));
}

// Where the relative path of the link leads to; empty when that is not known.
std::string ShellLink::pathBesideLink() const
{
    const std::u16string &start = besides_.empty() ? file_ : besides_;
    const std::u16string &relative = link_.text(LinkText::RelativePath);
    size_t separator = start.rfind(u'\\');
    if (relative.empty() || separator == std::u16string::npos)
        return {};
    return win32FromLinkPath(start.substr(0, separator + 1)) + ansiFromUtf16(relative);
}

HRESULT ShellLink::GetPath(LPSTR buffer, int size, WIN32_FIND_DATAA *data, DWORD flags)
{
    return answering([&]() -> HRESULT {
        std::u16string open = link_.targetWithVariables();
        std::string found = path();
        if (data) {
            memset(data, 0, sizeof *data);
            data->dwFileAttributes = link_.header.attributes;
            data->ftCreationTime = link_.header.created;
            data->ftLastAccessTime = link_.header.accessed;
            data->ftLastWriteTime = link_.header.written;
            data->nFileSizeLow = link_.header.targetSize;
            size_t separator = found.rfind('\\');
            lstrcpynA(data->cFileName, found.c_str() + (separator == std::string::npos ? 0 : separator + 1), MAX_PATH);
        }
        bool isRaw = (flags & SLGP_RAWPATH) && !open.empty();
        HRESULT result = giveText(isRaw ? ansiFromUtf16(open) : found, buffer, size);
        return SUCCEEDED(result) && found.empty() ? S_FALSE : result;
    });
}

HRESULT ShellLink::GetIDList(PIDLIST_ABSOLUTE *list)
{
    if (!list)
        return E_POINTER;
    *list = nullptr;
    const std::string &bytes = link_.itemList;
    if (bytes.empty())
        return S_FALSE;
    *list = static_cast<PIDLIST_ABSOLUTE>(CoTaskMemAlloc(bytes.size()));
    if (!*list)
        return E_OUTOFMEMORY;
    memcpy(*list, bytes.data(), bytes.size());
    return S_OK;
}

HRESULT ShellLink::SetIDList(PCIDLIST_ABSOLUTE list)
{
    if (!list)
        return E_INVALIDARG;
    // The caller's list ends at its end mark, not at a size; no list is longer than this.
    std::string_view bytes = leadingItemList({reinterpret_cast<const char *>(list), 0xffff});
    if (bytes.empty())
        return E_INVALIDARG;
    return answering([&] {
        std::string kept(bytes);
        link_.setItemList(kept);
        isChanged_ = true;
        return S_OK;
    });
}

HRESULT ShellLink::GetHotkey(WORD *key)
{
    if (!key)
        return E_POINTER;
    *key = link_.header.hotkey;
    return S_OK;
}

HRESULT ShellLink::SetHotkey(WORD key)
{
    link_.header.hotkey = key;
    isChanged_ = true;
    return S_OK;
}

HRESULT ShellLink::GetShowCmd(int *command)
{
    if (!command)
        return E_POINTER;
    *command = static_cast<int>(link_.header.showCommand);
    return S_OK;
}

HRESULT ShellLink::SetShowCmd(int command)
{
    link_.header.showCommand = static_cast<uint32_t>(command);
    isChanged_ = true;
    return S_OK;
}

HRESULT ShellLink::GetIconLocation(LPSTR path, int size, int *index)
{
    if (!index)
        return E_POINTER;
    *index = link_.header.iconIndex;
    return get(LinkText::IconPath, path, size);
}

HRESULT ShellLink::SetIconLocation(LPCSTR path, int index)
{
    HRESULT result = set(LinkText::IconPath, path);
    if (FAILED(result))
        return result;
    link_.header.iconIndex = index;
    link_.header.flags &= ~linkHasIconVariables;
    link_.removeBlock(iconVariablesBlock);
    return S_OK;
}

HRESULT ShellLink::SetRelativePath(LPCSTR path, DWORD)
{
    if (!path)
        return E_INVALIDARG;
    return answering([&] { return linkPathFromWin32(path, besides_) ? S_OK : lastResult(); });
}

void ShellLink::noteFacts(const FileInformation &information)
{
    link_.header.attributes = information.attributes;
    link_.header.created = information.created;
    link_.header.accessed = information.accessed;
    link_.header.written = information.written;
    link_.header.targetSize = static_cast<uint32_t>(information.size);
}

// The target need not exist.
void ShellLink::setTarget(const std::u16string &target, const std::u16string &targetWithVariables)
{
    FileInformation information{};
    std::string name = win32FromLinkPath(target);
    if (name.empty() || !findTarget(name, information))
        information = {};
    auto size = static_cast<DWORD>(information.size);
    std::string list = itemListOfPath(target, {information.attributes, size, information.written});
    LinkFile changed = link_;
    changed.setTarget(target, targetWithVariables);
    changed.itemList = std::move(list);
    link_ = std::move(changed);
    noteFacts(information);
    isChanged_ = true;
}

HRESULT ShellLink::SetPath(LPCSTR path)
{
    if (!path)
        return E_INVALIDARG;
    return answering([&]() -> HRESULT {
        std::string text(withoutQuotes(path)), expanded = withVariables(text);
        std::u16string target;
        if (text.size() >= MAX_PATH)
            return HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE);
        if (!expanded.empty() && !linkPathFromWin32(expanded, target))
            return lastResult();
        setTarget(target, expanded == text ? std::u16string() : utf16FromAnsi(text));
        return S_OK;
    });
}

HRESULT ShellLink::resolve(DWORD flags)
{
    std::string current = path();
    if (current.empty())
        return link_.itemList.empty() ? E_FAIL : S_OK;
    FileInformation information;
    if (findTarget(current, information))
        return S_OK;
    HRESULT missing = lastResult();
    std::string beside = pathBesideLink();
    std::u16string target;
    if (beside.empty() || !findTarget(beside, information) || !linkPathFromWin32(beside, target))
        return missing;
    setTarget(target, {});
    bool isKept = (flags & SLR_UPDATE) && !(flags & SLR_NOUPDATE) && !file_.empty();
    return isKept ? save(win32FromLinkPath(file_), true) : S_OK;
}

HRESULT ShellLink::Resolve(HWND, DWORD flags)
{
    return answering([&] { return resolve(flags); });
}

HRESULT ShellLink::GetClassID(CLSID *classId)
{
    if (!classId)
        return E_POINTER;
    *classId = CLSID_ShellLink;
    return S_OK;
}

HRESULT ShellLink::Load(LPCOLESTR path, DWORD)
{
    if (!path)
        return E_INVALIDARG;
    return answering([&]() -> HRESULT {
        std::string bytes;
        std::u16string file;
        std::string name = win32FromName(path);
        if (!loadLinkBytes(name, bytes) || !linkPathFromWin32(name, file))
            return lastResult();
        if (!readLinkFile(bytes, link_))
            return E_FAIL;
        file_ = std::move(file);
        isChanged_ = false;
        return S_OK;
    });
}

HRESULT ShellLink::save(const std::string &path, bool remember)
{
    std::u16string file;
    if (!linkPathFromWin32(path, file))
        return lastResult();
    LinkFile written = link_;
    if (!link_.target.empty())
        written.text(LinkText::RelativePath) = relativePath(link_.target, file);
    if (!saveLinkBytes(path, writeLinkFile(written)))
        return lastResult();
    if (remember) {
        link_ = std::move(written);
        file_ = std::move(file);
        isChanged_ = false;
    }
    return S_OK;
}

HRESULT ShellLink::Save(LPCOLESTR path, BOOL remember)
{
    return answering([&]() -> HRESULT {
        if (!path && file_.empty())
            return E_FAIL;
        bool isCurrent = !path || file_ == path;
        return save(path ? win32FromName(path) : win32FromLinkPath(file_), remember || isCurrent);
    });
}

HRESULT ShellLink::SaveCompleted(LPCOLESTR path)
{
    return answering([&] {
        if (path)
            file_ = path;
        return S_OK;
    });
}

// Without a file the name is what a dialog may offer.
HRESULT ShellLink::GetCurFile(LPOLESTR *path)
{
    if (!path)
        return E_POINTER;
    const WCHAR *name = file_.empty() ? u"*.lnk" : file_.c_str();
    size_t size = (std::char_traits<char16_t>::length(name) + 1) * sizeof *name;
    *path = static_cast<LPOLESTR>(CoTaskMemAlloc(size));
    if (!*path)
        return E_OUTOFMEMORY;
    memcpy(*path, name, size);
    return file_.empty() ? S_FALSE : S_OK;
}

} // namespace

IUnknown *makeShellLink()
{
    return static_cast<IShellLinkA *>(new (std::nothrow) ShellLink);
}

} // namespace win32
