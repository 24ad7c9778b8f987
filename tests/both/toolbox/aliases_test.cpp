// Shell links in the place of aliases.
#include "Pascal.h"
#include "ShellLink.h"
#include "TemporaryFolder.h"

#include <mtbx/Aliases.h>
#include <mtbx/Files.h>

#include <gtest/gtest.h>

namespace {

TEST(Aliases, ALinkBecomesItsTargetAndAnotherFileStays)
{
    ComThread com;
    TemporaryFolder folder("aliases");
    folder.write("target.txt", "content");
    ShellLink link;
    link->SetPath(folder.path("target.txt").c_str());
    link.save(folder.path("alias.lnk"));
    SInt32 directory = GetDirectoryID(folder.path().c_str());
    FSSpec spec;
    Boolean isFolder = 7, wasAliased = 7;
    FSMakeFSSpec(3, directory, Pascal("alias.lnk"), &spec);
    EXPECT_EQ(ResolveAliasFile(&spec, true, &isFolder, &wasAliased), 0);
    EXPECT_EQ(wasAliased, 1);
    EXPECT_EQ(isFolder, 0);
    EXPECT_EQ(pascalText(spec.name), "target.txt");
    EXPECT_EQ(+spec.parID, directory);

    FSMakeFSSpec(3, directory, Pascal("target.txt"), &spec);
    EXPECT_EQ(ResolveAliasFile(&spec, true, &isFolder, &wasAliased), 0);
    EXPECT_EQ(wasAliased, 0);
    EXPECT_EQ(+spec.vRefNum, 3);
    FSMakeFSSpec(3, 30000, Pascal("x.lnk"), &spec);
    EXPECT_EQ(ResolveAliasFile(&spec, true, &isFolder, &wasAliased), -120);
    FSMakeFSSpec(3, directory, Pascal("missing.lnk"), &spec);
    EXPECT_NE(ResolveAliasFile(&spec, true, &isFolder, &wasAliased), 0);
    EXPECT_EQ(pascalText(spec.name), "missing.lnk");
}

} // namespace
