#include "ShellLink.h"
#include "TemporaryFolder.h"

#include <mtbx/Drag.h>

#include <gtest/gtest.h>

#include <cstring>

namespace {

class ResolvingLinks : public testing::Test {
protected:
    ResolvingLinks() : folder_("resolve")
    {
        folder_.write("target.txt", "content");
        ShellLink link;
        link->SetPath(folder_.path("target.txt").c_str());
        link.save(folder_.path("Short.LNK"));
    }

    HRESULT resolve(HRESULT (*call)(char *, Boolean *), const std::string &path)
    {
        char buffer[MAX_PATH];
        strcpy(buffer, path.c_str());
        HRESULT result = call(buffer, &wasLink_);
        resolved_ = buffer;
        return result;
    }

    ComThread com_;
    TemporaryFolder folder_;
    std::string resolved_;
    Boolean wasLink_ = 2;
};

TEST_F(ResolvingLinks, AShortcutBecomesItsTarget)
{
    for (auto call : {ResolveLink, ResolveLinkQuiet}) {
        EXPECT_EQ(resolve(call, folder_.path("Short.LNK")), S_OK);
        EXPECT_EQ(resolved_, folder_.path("target.txt"));
        EXPECT_EQ(wasLink_, 1);
    }
    char path[MAX_PATH];
    strcpy(path, folder_.path("Short.LNK").c_str());
    EXPECT_EQ(ResolveLinkQuiet(path, nullptr), S_OK);
}

TEST_F(ResolvingLinks, OtherPathsStayAsTheyAre)
{
    folder_.write("link.lnk.txt", "");
    for (const std::string &path : {folder_.path("target.txt"), std::string(".lnk"), folder_.path("link.lnk.txt"),
                                    folder_.path("target.ln"), std::string()}) {
        wasLink_ = 2;
        EXPECT_EQ(resolve(ResolveLinkQuiet, path), S_OK) << path;
        EXPECT_EQ(resolved_, path);
        EXPECT_EQ(wasLink_, 0) << path;
    }
}

TEST_F(ResolvingLinks, TheFirstFailureIsTheResult)
{
    folder_.write("text.lnk", "no shortcut at all");
    EXPECT_EQ(resolve(ResolveLinkQuiet, folder_.path("missing.lnk")), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(wasLink_, 1);
    EXPECT_TRUE(FAILED(resolve(ResolveLinkQuiet, folder_.path("text.lnk"))));
    EXPECT_EQ(resolved_, folder_.path("text.lnk"));
}

} // namespace
