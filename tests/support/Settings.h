// A settings file of a test's own, in force while the object lives.
#pragma once

#include "TemporaryFile.h"

#include <mtbx/MTBXEnvironment.h>

#include <string>

class Settings : public TemporaryFile {
public:
    explicit Settings(const std::string &lines = "") : TemporaryFile("mtbx-settings"), previous_(MTBX_GetZPPrefsFile())
    {
        MTBX_SetZPPrefsFile(path());
        if (!lines.empty())
            write("[Zephant]\r\n" + lines);
    }
    ~Settings() { MTBX_SetZPPrefsFile(previous_.c_str()); }

    std::string value(const char *key) const
    {
        char text[256];
        GetPrivateProfileStringA("Zephant", key, "(none)", text, sizeof text, path());
        return text;
    }

private:
    std::string previous_;
};
