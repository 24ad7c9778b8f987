// A chain of resource files of a test's own; closing it must free all that it took.
#pragma once

#include "Pascal.h"
#include "TemporaryFolder.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <string>

constexpr ResType typeNamed(const char (&text)[5])
{
    ResType type = 0;
    for (int place = 0; place < 4; ++place)
        type = type << 8 | static_cast<unsigned char>(text[place]);
    return type;
}

class ResourceChain : public testing::Test {
protected:
    static constexpr ResType abcd = typeNamed("ABCD");

    ResourceChain() : folder_("mtbx-resources")
    {
        MTBX_ShutdownMemory(); // no table of directories that grows meanwhile
        before_ = MEM_GetMemUsage();
        InitResources();
    }
    ~ResourceChain() override
    {
        MTBX_SetAppResFileRefNum(1000);
        MTBX_ShutdownResources();
        MTBX_ShutdownMemory();
        EXPECT_EQ(MEM_GetMemUsage(), before_);
    }

    static SInt16 open(const std::string &path) { return OpenResFile(Pascal(path)); }
    static std::string modulePath() { return folderOfProgram() + "toolbox_module.dll"; }

    // A module of the same resources under another name.
    SInt16 openCopy(const std::string &name)
    {
        folder_.write(name, TemporaryFolder::readFile(modulePath()));
        return open(folder_.path(name));
    }

    static std::string data(Handle h) { return h ? std::string(*h, static_cast<size_t>(GetHandleSize(h))) : "(null)"; }
    static std::string name(Handle h)
    {
        Pascal name;
        GetResInfo(h, nullptr, nullptr, name);
        return name.text();
    }

    TemporaryFolder folder_;

private:
    UInt64 before_;
};
