// A host in small: starts the library, sets a memory budget, fills a cache beyond it, and shows how
// its grow-zone function is asked to give memory back.
#include <mtbx/MTBX.h>

#include <cstdio>
#include <cstring>
#include <deque>

namespace {

constexpr Size pictureSize = 4 << 20;

// Pictures that could be loaded again, oldest first: what the program can do without.
std::deque<Handle> cache;
int purgeCalls = 0;

double megabytes(UInt64 bytes)
{
    return static_cast<double>(bytes) / (1 << 20);
}

SInt32 purgeCache(UInt64 bytesWanted)
{
    ++purgeCalls;
    UInt64 freed = 0;
    int pictures = 0;
    while (!cache.empty() && freed < bytesWanted) {
        freed += static_cast<UInt64>(GetHandleSize(cache.front()));
        DisposeHandle(cache.front());
        cache.pop_front();
        ++pictures;
    }
    printf("    grow zone: %llu bytes wanted, %d pictures purged, %.1f MB freed\n",
           static_cast<unsigned long long>(bytesWanted), pictures, megabytes(freed));
    return pictures > 0;
}

void loadPicture(int number)
{
    Boolean limitReached = false;
    MTBX_NonPurgableRAMLimitReached(&limitReached);
    if (limitReached)
        printf("picture %d: memory is short and nothing is left to purge\n", number);
    Handle picture = NewHandle(pictureSize);
    if (!picture) {
        printf("picture %d: no memory, error %d\n", number, MemError());
        return;
    }
    memset(*picture, number, static_cast<size_t>(GetHandleSize(picture)));
    cache.push_back(picture);
    printf("picture %2d: %2zu in the cache, %5.1f MB in the heap, %5.1f MB left under the soft limit\n", number,
           cache.size(), megabytes(MEM_GetMemUsage()), megabytes(MaxBlockEx()));
}

} // namespace

int main()
{
    char settings[MAX_PATH];
    GetTempPathA(sizeof settings - 32, settings);
    strcat(settings, "budget-example.ini");
    MTBX_SetZPPrefsFile(settings);
    MTBX_InitializeMemorySubsystem();
    MTBX_InitMem();
    SetGrowZoneEx(purgeCache);

    UInt64 memory = 0, used = 0;
    MTBX_TotalRAMInstalled(&memory);
    MTBX_TotalMemoryUsed(&used);
    printf("physical memory %.0f MB, in use %.1f MB\n", megabytes(memory), megabytes(used));

    MTBX_SetMemUsageLimits(used + (32 << 20), used + (64 << 20));
    printf("soft limit %.1f MB, hard limit %.1f MB\n\n", megabytes(used + (32 << 20)), megabytes(used + (64 << 20)));

    for (int number = 1; number <= 16; ++number)
        loadPicture(number);

    printf("\nthe grow-zone function was called %d times; the settings are in %s\n", purgeCalls, settings);
    while (!cache.empty()) {
        DisposeHandle(cache.front());
        cache.pop_front();
    }
    MTBX_ShutdownMemory();
    return 0;
}
