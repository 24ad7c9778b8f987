// What the Resource Manager offers to the managers above it, and its map of handed-out resources.
#include "ResourceChain.h"

#include "Resources/ResourceMap.h"
#include "Resources/Resources_internal.h"

#include <map>
#include <random>
#include <vector>

namespace {

using resources::ResourceEntry;
using resources::ResourceMap;

TEST(ResourceMaps, AgreeWithAPlainMapThroughAnyHistory)
{
    UInt64 before = MEM_GetMemUsage();
    ResourceMap map;
    ASSERT_EQ(resources::openMap(map), noErr);
    std::map<std::pair<ResType, SInt16>, Handle> expected;
    std::mt19937 random(5);
    for (int step = 0; step < 20000; ++step) {
        ResType type = random() % 3 << 24;
        auto id = static_cast<SInt16>(random() % 1000);
        auto known = expected.find({type, id});
        ResourceEntry *entry = resources::findByKey(map, type, id);
        ASSERT_EQ(entry != nullptr, known != expected.end());
        if (!entry) {
            Handle h = NewHandle(0);
            Ptr name = step % 5 ? nullptr : NewPtr(8);
            ASSERT_EQ(resources::addEntry(map, type, id, h, name), noErr);
            expected[{type, id}] = h;
        } else if (random() % 3 == 0) {
            ASSERT_EQ(entry->handle, known->second);
            ASSERT_EQ(resources::findByHandle(map, entry->handle), entry);
            resources::removeEntry(map, *entry);
            ASSERT_EQ(resources::findByHandle(map, known->second), nullptr);
            DisposeHandle(known->second);
            expected.erase(known);
        }
    }
    size_t visited = 0;
    resources::eachEntry(map, [&](ResourceEntry &entry) {
        ++visited;
        DisposeHandle(entry.handle);
    });
    EXPECT_EQ(visited, expected.size());
    resources::disposeMap(map);
    EXPECT_EQ(MEM_GetMemUsage(), before);
}

std::vector<Handle> released, forgotten;

class ResourceHooks : public ResourceChain {
protected:
    static constexpr ResType menu = typeNamed("HMNU");

    void SetUp() override
    {
        released.clear();
        forgotten.clear();
        MTBX_SetResourceReleaseHook(menu, [](Handle h) {
            EXPECT_EQ(GetHandleSize(h), 4) << "the record is whole";
            released.push_back(h);
        });
        MTBX_SetResourceForgetHook([](Handle h) { forgotten.push_back(h); });
    }
    void TearDown() override
    {
        MTBX_SetResourceReleaseHook(menu, nullptr);
        MTBX_SetResourceForgetHook(nullptr);
    }
};

TEST_F(ResourceHooks, RunWhenAResourceOfTheTypeIsReleased)
{
    Handle h = NewHandle(4), other = NewHandle(4);
    EXPECT_EQ(MTBX_AddAppResourceEntry(menu, 128, h), noErr);
    EXPECT_EQ(MTBX_AddAppResourceEntry(typeNamed("ICON"), 128, other), noErr);
    ReleaseResource(h);
    ReleaseResource(other);
    EXPECT_EQ(released, std::vector<Handle>({h}));
    EXPECT_EQ(forgotten, std::vector<Handle>({h, other}));
}

TEST_F(ResourceHooks, RunForEachResourceOfAFileThatCloses)
{
    MTBX_SetAppResFileRefNum(open(folder_.path("a.txt")));
    Handle first = NewHandle(4), second = NewHandle(4);
    MTBX_AddAppResourceEntry(menu, 128, first);
    MTBX_AddAppResourceEntry(menu, 129, second);
    CloseResFile(1001);
    EXPECT_EQ(released, std::vector<Handle>({first, second}));
    EXPECT_EQ(forgotten, released);
}

TEST_F(ResourceHooks, DetachingForgetsAndReleasesNothing)
{
    Handle h = NewHandle(4);
    MTBX_AddAppResourceEntry(menu, 128, h);
    DetachResource(h);
    DetachResource(h); // the cache of cursors holds handles that are no resources
    EXPECT_TRUE(released.empty());
    EXPECT_EQ(forgotten, std::vector<Handle>({h, h}));
    DisposeHandle(h);
}

class ResourceLists : public ResourceChain {};

TEST_F(ResourceLists, AnEntryOfTheApplicationFileIsFoundWithoutLoading)
{
    SInt16 module = open(modulePath());
    EXPECT_EQ(MTBX_FindResourceHandle(abcd, 128), nullptr) << "not loaded";
    Handle h = NewHandle(0);
    ASSERT_EQ(MTBX_AddAppResourceEntry(abcd, 128, h), noErr);
    EXPECT_EQ(HomeResFile(h), 1000);
    EXPECT_EQ(MTBX_FindResourceHandle(abcd, 128), h) << "empty or not";
    Handle loaded = Get1Resource(abcd, 128);
    EXPECT_EQ(MTBX_FindResourceHandle(abcd, 128), loaded) << "the last file first";
    CloseResFile(module);
    EXPECT_EQ(MTBX_FindResourceHandle(abcd, 128), h);
}

TEST_F(ResourceLists, ARefusedEntryLeavesTheHandleToTheCaller)
{
    Handle h = NewHandle(1), other = NewHandle(1);
    ASSERT_EQ(MTBX_AddAppResourceEntry(abcd, 128, h), noErr);
    EXPECT_EQ(MTBX_AddAppResourceEntry(abcd, 128, other), addResFailed);
    EXPECT_EQ(ResError(), addResFailed);
    EXPECT_EQ(MTBX_AddAppResourceEntry(abcd, 129, h), addResFailed);
    MTBX_SetAppResFileRefNum(1003);
    EXPECT_EQ(MTBX_AddAppResourceEntry(abcd, 129, other), rfNumErr);
    MTBX_SetAppResFileRefNum(0);
    EXPECT_EQ(MTBX_AddAppResourceEntry(abcd, 129, other), rfNumErr);
    EXPECT_EQ(HomeResFile(other), -1);
    DisposeHandle(other);
}

} // namespace
