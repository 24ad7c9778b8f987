// Shortcuts: from the path of one to the path of its target.
#include <mtbx/Drag.h>

#include <shlobj.h>

#include <cstring>
#include <mbstring.h>

namespace {

constexpr int pathSize = MAX_PATH;
constexpr DWORD quietTimeOut = 1000;

// Releases an interface at the end of its scope.
template <class Interface> class Held {
public:
    Held() = default;
    ~Held()
    {
        if (pointer_)
            pointer_->Release();
    }
    Held(const Held &) = delete;
    Held &operator=(const Held &) = delete;

    Interface *get() const { return pointer_; }
    Interface *operator->() const { return pointer_; }
    void **place() { return reinterpret_cast<void **>(&pointer_); }

private:
    Interface *pointer_ = nullptr;
};

bool isLink(const char *path)
{
    constexpr char extension[] = ".lnk";
    size_t length = strlen(path), extensionLength = sizeof extension - 1;
    if (length <= extensionLength)
        return false;
    const char *end = path + length - extensionLength;
    auto dot = reinterpret_cast<const char *>(_mbsrchr(reinterpret_cast<const unsigned char *>(path), '.'));
    return dot == end && _stricmp(end, extension) == 0;
}

HRESULT loadLink(IPersistFile *file, const char *path)
{
    WCHAR wide[pathSize];
    if (MultiByteToWideChar(CP_ACP, 0, path, -1, wide, pathSize) == 0)
        return HRESULT_FROM_WIN32(GetLastError());
    return file->Load(wide, 0);
}

HRESULT readTarget(char *path, DWORD flags)
{
    Held<IShellLinkA> link;
    HRESULT result = CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA, link.place());
    if (FAILED(result))
        return result;
    Held<IPersistFile> file;
    result = link->QueryInterface(IID_IPersistFile, file.place());
    if (SUCCEEDED(result))
        result = loadLink(file.get(), path);
    if (SUCCEEDED(result))
        result = link->Resolve(nullptr, flags);
    if (FAILED(result))
        return result;
    WIN32_FIND_DATAA data;
    path[0] = 0;
    return link->GetPath(path, pathSize, &data, SLGP_UNCPRIORITY);
}

HRESULT resolve(char *path, Boolean *wasLink, DWORD flags)
{
    bool found = isLink(path);
    if (wasLink)
        *wasLink = found;
    return found ? readTarget(path, flags) : S_OK;
}

} // namespace

HRESULT ResolveLink(char *path, Boolean *wasLink)
{
    return resolve(path, wasLink, SLR_ANY_MATCH);
}

HRESULT ResolveLinkQuiet(char *path, Boolean *wasLink)
{
    return resolve(path, wasLink, quietTimeOut << 16 | SLR_NO_UI | SLR_ANY_MATCH);
}
