// What mtbx-res writes, as the Resource Manager hands it out.
#include "ForkBuilder.h"
#include "Pascal.h"
#include "TemporaryFolder.h"

#include "commands.h"

#include <mtbx/MTBX.h>

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace std::string_literals;

std::string dataOf(Handle h)
{
    return h ? std::string(*h, static_cast<size_t>(GetHandleSize(h))) : "(null)";
}

TEST(ImportedResources, AreHandedOutByTheLibrary)
{
    TemporaryFolder folder("mtbx-res-library");
    folder.write("fork", ForkBuilder::fork({{"STR#", 128, "\0\1\5Hello"s, " \"A\" name "},
                                            {"8ABC", -7, "digit"},
                                            {"OMpr", 1, "sister"},
                                            {"MBAR", 128, "\0\2\0\x80\0\x81"s}}));
    std::ostringstream output, errors;
    ASSERT_EQ(tool::run({"import", folder.path("fork"), folder.path("out.txt")}, output, errors), 0) << errors.str();

    MTBX_SetZPPrefsFile(folder.path("settings.ini").c_str());
    hResInst = GetModuleHandleA(nullptr);
    MTBX_InitializeMemorySubsystem();
    InitResources();
    EXPECT_GE(OpenResFile(Pascal(folder.path("out.txt"))), 1001);
    MTBX_BeginEnableSearchResourcesInTextFiles();
    Handle list = Get1Resource(0x53545223, 128);
    EXPECT_EQ(dataOf(list), "\1\0Hello\0"s);
    Pascal name;
    GetResInfo(list, nullptr, nullptr, name);
    EXPECT_EQ(name.text(), " \"A\" name ");
    EXPECT_EQ(dataOf(Get1Resource(0x38414243, -7)), "digit");
    EXPECT_EQ(dataOf(Get1Resource(0x4F4D7072, 1)), "sister");
    EXPECT_EQ(dataOf(Get1Resource(0x4D424152, 128)), "\2\0\x80\0\x81\0\0\0"s);
    MTBX_EndEnableSearchResourcesInTextFiles();
    MTBX_ShutdownResources();
    MTBX_ShutdownMemory();
}

} // namespace
