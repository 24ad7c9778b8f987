#include "memory_figures.h"

#include "control_state.h"

#include <sys/resource.h>
#include <sys/sysinfo.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace win32 {
namespace {

// Reads a small file of /proc or /sys whole, without the C library's buffers: the figures must be
// there when memory is short.
bool readText(const char *path, char *text, size_t size)
{
    int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    size_t length = 0;
    ssize_t count;
    while (length < size - 1 && (count = read(file, text + length, size - 1 - length)) > 0)
        length += static_cast<size_t>(count);
    close(file);
    text[length] = 0;
    return length > 0;
}

// The number behind a label at the start of a line, in kB, as bytes; 0 when the label is missing.
uint64_t figure(const char *text, const char *label)
{
    const char *found = strstr(text, label);
    return found ? strtoull(found + strlen(label), nullptr, 10) * 1024 : 0;
}

uint64_t numberInFile(const char *path, uint64_t otherwise)
{
    char text[64];
    if (!readText(path, text, sizeof text) || text[0] < '0' || text[0] > '9')
        return otherwise;
    return strtoull(text, nullptr, 10);
}

struct GroupLimit {
    uint64_t limit = ULLONG_MAX;
    uint64_t left = ULLONG_MAX;
};

void applyLimit(GroupLimit &result, uint64_t limit, uint64_t used)
{
    result.limit = std::min(result.limit, limit);
    result.left = std::min(result.left, limit > used ? limit - used : 0);
}

// A limit may stand at any level of the control group tree, so all levels up to the root are asked.
void askUnifiedGroup(GroupLimit &result, const char *group)
{
    char path[PATH_MAX + 32];
    snprintf(path, sizeof path, "/sys/fs/cgroup%s", group);
    for (;;) {
        char file[PATH_MAX + 64];
        snprintf(file, sizeof file, "%s/memory.max", path);
        uint64_t limit = numberInFile(file, ULLONG_MAX);
        if (limit != ULLONG_MAX) {
            snprintf(file, sizeof file, "%s/memory.current", path);
            applyLimit(result, limit, numberInFile(file, 0));
        }
        char *slash = strrchr(path, '/');
        if (!slash || strcmp(path, "/sys/fs/cgroup") == 0)
            return;
        *slash = 0;
    }
}

GroupLimit groupLimit()
{
    GroupLimit result;
    char groups[8192];
    if (readText("/proc/self/cgroup", groups, sizeof groups)) {
        const char *unified = strstr(groups, "0::");
        if (unified) {
            char group[PATH_MAX];
            snprintf(group, sizeof group, "%.*s", static_cast<int>(strcspn(unified + 3, "\n")), unified + 3);
            askUnifiedGroup(result, group);
        }
    }
    uint64_t limit = numberInFile("/sys/fs/cgroup/memory/memory.limit_in_bytes", ULLONG_MAX);
    if (limit != ULLONG_MAX)
        applyLimit(result, limit, numberInFile("/sys/fs/cgroup/memory/memory.usage_in_bytes", 0));
    return result;
}

} // namespace

MemoryFigures memoryFigures()
{
    char text[8192];
    if (!readText("/proc/meminfo", text, sizeof text))
        text[0] = 0;
    uint64_t fitted = static_cast<uint64_t>(sysconf(_SC_PHYS_PAGES)) * static_cast<uint64_t>(sysconf(_SC_PAGESIZE));
    GroupLimit group = groupLimit();
    MemoryFigures figures;
    figures.totalPhysical = std::min(fitted, group.limit);
    figures.availablePhysical = std::min(figure(text, "MemAvailable:"), group.left);
    if (uint64_t pretended = control::physicalMemory())
        figures.totalPhysical = pretended;
    figures.availablePhysical = std::min(figures.availablePhysical, figures.totalPhysical);
    figures.totalCommit = figures.totalPhysical + figure(text, "SwapTotal:");
    figures.availableCommit = figures.availablePhysical + figure(text, "SwapFree:");
    return figures;
}

bool processFigures(ProcessFigures &figures)
{
    char text[4096];
    if (!readText("/proc/self/status", text, sizeof text))
        return false;
    figures.resident = figure(text, "VmRSS:");
    figures.peakResident = figure(text, "VmHWM:");
    figures.privateBytes = figure(text, "RssAnon:") + figure(text, "VmSwap:");
    if (uint64_t pretended = control::processUsage())
        figures.privateBytes = pretended;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    figures.pageFaults = static_cast<uint64_t>(usage.ru_minflt + usage.ru_majflt);
    return true;
}

uint64_t addressSpaceUsed()
{
    char text[4096];
    return readText("/proc/self/status", text, sizeof text) ? std::min(figure(text, "VmSize:"), addressSpace) : 0;
}

} // namespace win32
