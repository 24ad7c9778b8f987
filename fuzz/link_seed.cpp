// Writes a link file with every part, for the search of the link fuzzer to begin with.
#include <shlobj.h>
#include <windows.h>

#include <string>
#include <vector>

int main(int argc, char **argv)
{
    IShellLinkA *link;
    IPersistFile *file;
    CoInitialize(nullptr);
    if (argc < 2
        || CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                            reinterpret_cast<void **>(&link))
               != S_OK)
        return 1;
    link->SetPath("%windir%\\system32");
    link->SetDescription("description");
    link->SetWorkingDirectory("C:\\windows");
    link->SetArguments("-a b");
    link->SetIconLocation("C:\\icons.dll", 3);
    link->QueryInterface(IID_IPersistFile, reinterpret_cast<void **>(&file));
    std::string path = "Z:" + std::string(argv[1]);
    std::vector<WCHAR> wide(path.size() + 1);
    MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    HRESULT result = file->Save(wide.data(), TRUE);
    file->Release();
    link->Release();
    CoUninitialize();
    return result == S_OK ? 0 : 1;
}
