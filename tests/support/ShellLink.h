// A shell link with both its interfaces, and COM in a thread, for the time of a test.
#pragma once

#include <windows.h>

#include <shlobj.h>

#include <string>
#include <vector>

class ComThread {
public:
    ComThread() { CoInitialize(nullptr); }
    ~ComThread() { CoUninitialize(); }
    ComThread(const ComThread &) = delete;
    ComThread &operator=(const ComThread &) = delete;
};

inline std::vector<WCHAR> wideText(const std::string &text)
{
    std::vector<WCHAR> wide(text.size() + 1);
    MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

class ShellLink {
public:
    ShellLink()
    {
        CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                         reinterpret_cast<void **>(&link_));
        link_->QueryInterface(IID_IPersistFile, reinterpret_cast<void **>(&file_));
    }
    ~ShellLink()
    {
        file_->Release();
        link_->Release();
    }
    ShellLink(const ShellLink &) = delete;
    ShellLink &operator=(const ShellLink &) = delete;

    IShellLinkA *operator->() const { return link_; }
    IPersistFile *file() const { return file_; }

    HRESULT load(const std::string &path) const { return file_->Load(wideText(path).data(), 0); }
    HRESULT save(const std::string &path, BOOL remember = TRUE) const
    {
        return file_->Save(wideText(path).data(), remember);
    }

    std::string path(DWORD flags = 0) const
    {
        char path[MAX_PATH] = "";
        link_->GetPath(path, sizeof path, nullptr, flags);
        return path;
    }

    using Getter = HRESULT (STDMETHODCALLTYPE IShellLinkA::*)(LPSTR, int);
    std::string text(Getter getter) const
    {
        char text[1024] = "";
        (link_->*getter)(text, sizeof text);
        return text;
    }

    // Empty when there is none.
    std::string currentFile() const
    {
        LPOLESTR name = nullptr;
        char text[MAX_PATH] = "";
        if (file_->GetCurFile(&name) == S_OK)
            WideCharToMultiByte(CP_ACP, 0, name, -1, text, sizeof text, nullptr, nullptr);
        CoTaskMemFree(name);
        return text;
    }

private:
    IShellLinkA *link_ = nullptr;
    IPersistFile *file_ = nullptr;
};
