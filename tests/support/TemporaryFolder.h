// A folder of a test's own, gone with all that is in it when the object dies.
#pragma once

#include <windows.h>

#include <string>

// With a backslash at its end.
inline std::string folderOfProgram()
{
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    std::string text = path;
    return text.substr(0, text.rfind('\\') + 1);
}

class TemporaryFolder {
public:
    explicit TemporaryFolder(const std::string &name)
    {
        char folder[MAX_PATH];
        GetTempPathA(sizeof folder, folder);
        path_ = folder + name + std::to_string(GetCurrentProcessId());
        removeAll(path_);
        CreateDirectoryA(path_.c_str(), nullptr);
    }
    ~TemporaryFolder() { removeAll(path_); }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    // With a backslash before the name.
    std::string path(const std::string &name = "") const { return name.empty() ? path_ : path_ + "\\" + name; }

    void write(const std::string &name, const std::string &content) const
    {
        HANDLE file =
            CreateFileA(path(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        DWORD count;
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &count, nullptr);
        CloseHandle(file);
    }

    std::string read(const std::string &name) const { return readFile(path(name)); }

    static std::string readFile(const std::string &path)
    {
        HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE)
            return "(missing)";
        std::string content(GetFileSize(file, nullptr), 0);
        DWORD count = 0;
        ReadFile(file, content.data(), static_cast<DWORD>(content.size()), &count, nullptr);
        CloseHandle(file);
        return content;
    }

private:
    static void removeAll(const std::string &folder)
    {
        WIN32_FIND_DATAA data;
        HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &data);
        if (search == INVALID_HANDLE_VALUE)
            return;
        do {
            std::string name = data.cFileName, path = folder + "\\" + name;
            if (name == "." || name == "..")
                continue;
            SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                removeAll(path);
            else
                DeleteFileA(path.c_str());
        } while (FindNextFileA(search, &data));
        FindClose(search);
        RemoveDirectoryA(folder.c_str());
    }

    std::string path_;
};
