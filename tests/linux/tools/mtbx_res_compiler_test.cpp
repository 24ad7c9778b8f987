// What mtbx-res writes for a resource compiler, against what the compiler makes of it, and how the layer finds it.
#include "ForkBuilder.h"
#include "TemporaryFolder.h"

#include "commands.h"

#include <win32/control.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace {

using namespace std::string_literals;

std::string unixPath(std::string path)
{
    std::replace(path.begin(), path.end(), '\\', '/');
    return path.substr(2);
}

class CompiledResources : public testing::Test {
protected:
    CompiledResources() : folder_("mtbx-res-compiled")
    {
        std::string everyByte(255, 0); // an odd count
        for (size_t place = 0; place < everyByte.size(); ++place)
            everyByte[place] = static_cast<char>(place + 1);
        folder_.write("fork", ForkBuilder::fork({{"STR#", 128, "\0\2\3One\3Two"s, "A \"list\"\\"},
                                                 {"Data", -1, everyByte},
                                                 {"8ABC", 0, ""},
                                                 {"a\"\\b", 5, "\xff"},
                                                 {"AB  ", 300, "even"}}));
    }

    int run(const std::vector<std::string> &arguments)
    {
        std::ostringstream output, errors;
        int code = tool::run(arguments, output, errors);
        output_ = output.str();
        errors_ = errors.str();
        return code;
    }

    TemporaryFolder folder_;
    std::string output_, errors_;
};

TEST_F(CompiledResources, AScriptCompilesToWhatIsWrittenDirectly)
{
    ASSERT_EQ(run({"import", folder_.path("fork"), folder_.path("direct.res")}), 0) << errors_;
    ASSERT_EQ(run({"import", folder_.path("fork"), folder_.path("script.rc")}), 0) << errors_;
    std::string command = MTBX_WINDRES " -O res -i '" + unixPath(folder_.path("script.rc")) + "' -o '"
                          + unixPath(folder_.path("script.res")) + "'";
    ASSERT_EQ(system(command.c_str()), 0) << folder_.read("script.rc");
    run({"list", folder_.path("direct.res")});
    std::string direct = output_;
    run({"list", folder_.path("script.res")});
    EXPECT_EQ(output_, direct);
    EXPECT_EQ(std::count(direct.begin(), direct.end(), '\n'), 5);
    for (const char *type : {"STR#", "DATA", "8ABC", "A\"\\B", "AB"}) {
        for (const char *id : {"128", "-1", "0", "5", "300"}) {
            int code = run({"dump", folder_.path("direct.res"), type, id});
            direct = output_;
            EXPECT_EQ(run({"dump", folder_.path("script.res"), type, id}), code) << type << id;
            EXPECT_EQ(output_, direct);
        }
    }
}

TEST_F(CompiledResources, AreFoundInALoadedFile)
{
    ASSERT_EQ(run({"import", folder_.path("fork"), folder_.path("direct.res")}), 0) << errors_;
    HMODULE module = LoadLibraryExA(folder_.path("direct.res").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(module, nullptr);
    HRSRC found = FindResourceA(module, MAKEINTRESOURCEA(128), "STR#");
    ASSERT_NE(found, nullptr);
    auto data = static_cast<const char *>(LockResource(LoadResource(module, found)));
    EXPECT_EQ(std::string(data, SizeofResource(module, found)), "\2\0A \"list\"\\\0\2\0One\0Two\0"s);
    EXPECT_NE(FindResourceA(module, MAKEINTRESOURCEA(0xffff), "Data"), nullptr);
    EXPECT_NE(FindResourceA(module, MAKEINTRESOURCEA(5), "a\"\\b"), nullptr);
    FreeLibrary(module);
}

TEST_F(CompiledResources, AFailingWriteLeavesTheOldFile)
{
    folder_.write("out.txt", "[OLD]\r\n");
    ASSERT_TRUE(Win32Control_FailCalls("WriteFile", ERROR_DISK_FULL, 1, 1));
    EXPECT_EQ(run({"import", "--force", folder_.path("fork"), folder_.path("out.txt")}), 1);
    Win32Control_Reset();
    EXPECT_NE(errors_.find("the disk is full"), std::string::npos) << errors_;
    EXPECT_EQ(folder_.read("out.txt"), "[OLD]\r\n");
}

} // namespace
