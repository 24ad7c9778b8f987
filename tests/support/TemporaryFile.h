// A file in the temporary folder, gone when the object dies. Written and read with Win32 names on one
// side and the C library on the other, since the calls under test are to meet files of other programs.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

class TemporaryFile {
public:
    explicit TemporaryFile(const std::string &name)
    {
        char folder[MAX_PATH];
        GetTempPathA(sizeof folder, folder);
        path_ = folder + name + "-" + std::to_string(GetCurrentProcessId()) + ".ini";
        native_ = nativePath(path_);
        remove();
    }
    ~TemporaryFile() { remove(); }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    const char *path() const { return path_.c_str(); }
    const char *native() const { return native_.c_str(); }

    void write(const std::string &content) const
    {
        FILE *file = fopen(native(), "wb");
        fwrite(content.data(), 1, content.size(), file);
        fclose(file);
    }

    std::string read() const
    {
        std::string content;
        if (FILE *file = fopen(native(), "rb")) {
            char buffer[4096];
            size_t count;
            while ((count = fread(buffer, 1, sizeof buffer, file)) > 0)
                content.append(buffer, count);
            fclose(file);
        }
        return content;
    }

    void remove() const { ::remove(native()); }

private:
    // How the C library names the file; told by the platform's own part of the support code.
    static std::string nativePath(const std::string &path);

    std::string path_;
    std::string native_;
};
