// State of the control panel and the questions that the layer asks of it.
#include "control_state.h"
#include "faults.h"
#include "heap_blocks.h"
#include "kernel_internal.h"

#include <cstring>
#include <mutex>
#include <set>
#include <string>

std::atomic<bool> win32::faults::Win32Faults_watching{false};

namespace {

struct AllocationPlan {
    bool watched = false;
    DWORD first = 0;
    DWORD count = 0;
    SIZE_T minimumSize = 0;
    DWORD counted = 0;
};

struct CallPlan {
    const char *function;
    DWORD error;
    DWORD first;
    DWORD count;
    DWORD counted;
};

// The calls that can be made to fail: each has a fault point at its start.
CallPlan callPlans[] = {
    {"GetProcessMemoryInfo", 0, 0, 0, 0},
    {"SetProcessWorkingSetSize", 0, 0, 0, 0},
    {"GetVersionExA", 0, 0, 0, 0},
    {"GlobalMemoryStatusEx", 0, 0, 0, 0},
    {"HeapCreate", 0, 0, 0, 0},
    {"WritePrivateProfileStringA", 0, 0, 0, 0},
    {"CreateFileA", 0, 0, 0, 0},
    {"ReadFile", 0, 0, 0, 0},
    {"WriteFile", 0, 0, 0, 0},
    {"CreateEventA", 0, 0, 0, 0},
    {"FindFirstFileA", 0, 0, 0, 0},
    {"GetDiskFreeSpaceExA", 0, 0, 0, 0},
};

std::mutex stateMutex;
AllocationPlan allocationPlans[WIN32_ALLOCATION_KINDS];
AllocationPlan gdiPlan; // of all graphics objects together
std::set<std::string> hiddenNames;
OSVERSIONINFOA pretendedVersion{};
Win32DebugOutputReceiver debugReceiver = nullptr;
void *debugReceiverContext = nullptr;
Win32MessageBoxAnswerer boxAnswerer = nullptr;
void *boxAnswererContext = nullptr;

std::atomic<DWORDLONG> pretendedMemory{0};
std::atomic<DWORDLONG> pretendedUsage{0};
std::atomic<bool> anythingHidden{false};

bool inPlan(DWORD number, DWORD first, DWORD count)
{
    return first != 0 && number >= first && number - first < count;
}

bool countsAndRefuses(AllocationPlan &plan, SIZE_T size)
{
    if (!plan.watched || size < plan.minimumSize)
        return false;
    ++plan.counted;
    return inPlan(plan.counted, plan.first, plan.count);
}

// Called with the mutex held, after every change of a plan.
void updateWatching()
{
    bool watching = false;
    for (const AllocationPlan &plan : allocationPlans)
        watching |= plan.watched;
    watching |= gdiPlan.watched;
    for (const CallPlan &plan : callPlans)
        watching |= plan.count != 0;
    win32::faults::Win32Faults_watching.store(watching);
}

std::string hiddenKey(const std::string &module, const char *function)
{
    std::string key;
    for (char character : module)
        key += win32::lowerAscii(character);
    if (key.ends_with(".dll"))
        key.resize(key.size() - 4);
    return function ? key + "!" + function : key;
}

} // namespace

bool win32::faults::Win32Faults_refusesWatched(int kind, size_t size)
{
    std::lock_guard lock(stateMutex);
    bool isOfGdi = kind >= WIN32_ALLOCATION_PEN && kind <= WIN32_ALLOCATION_REGION;
    bool isRefused = isOfGdi && countsAndRefuses(gdiPlan, size);
    return countsAndRefuses(allocationPlans[kind], size) || isRefused;
}

bool win32::faults::failsWatched(const char *function)
{
    std::lock_guard lock(stateMutex);
    for (CallPlan &plan : callPlans) {
        if (plan.count == 0 || strcmp(plan.function, function) != 0)
            continue;
        ++plan.counted;
        if (!inPlan(plan.counted, plan.first, plan.count))
            return false;
        SetLastError(plan.error);
        return true;
    }
    return false;
}

DWORDLONG win32::control::physicalMemory()
{
    return pretendedMemory.load(std::memory_order_relaxed);
}

DWORDLONG win32::control::processUsage()
{
    return pretendedUsage.load(std::memory_order_relaxed);
}

bool win32::control::version(OSVERSIONINFOA &result)
{
    std::lock_guard lock(stateMutex);
    if (pretendedVersion.dwMajorVersion == 0)
        return false;
    result = pretendedVersion;
    return true;
}

bool win32::control::hides(const char *module, const char *function)
{
    if (!anythingHidden.load(std::memory_order_relaxed))
        return false;
    std::lock_guard lock(stateMutex);
    return hiddenNames.contains(hiddenKey(module, function));
}

void win32::control::showDebugOutput(const char *text)
{
    Win32DebugOutputReceiver receiver;
    void *context;
    {
        std::lock_guard lock(stateMutex);
        receiver = debugReceiver;
        context = debugReceiverContext;
    }
    if (receiver)
        receiver(text, context);
}

bool win32::control::answersMessageBox(LPCSTR text, LPCSTR caption, UINT type, int &answer)
{
    Win32MessageBoxAnswerer answerer;
    void *context;
    {
        std::lock_guard lock(stateMutex);
        answerer = boxAnswerer;
        context = boxAnswererContext;
    }
    if (!answerer)
        return false;
    answer = answerer(text, caption, type, context);
    return true;
}

void Win32Control_AnswerMessageBoxes(Win32MessageBoxAnswerer answerer, void *context)
{
    std::lock_guard lock(stateMutex);
    boxAnswerer = answerer;
    boxAnswererContext = context;
}

void Win32Control_RefuseAllocations(Win32Allocation kind, DWORD first, DWORD count, SIZE_T minimumSize)
{
    if (kind < 0 || kind >= WIN32_ALLOCATION_KINDS)
        return;
    std::lock_guard lock(stateMutex);
    allocationPlans[kind] = {true, first, count, minimumSize, 0};
    updateWatching();
}

void Win32Control_RefuseGdiCreations(DWORD first, DWORD count)
{
    std::lock_guard lock(stateMutex);
    gdiPlan = {true, first, count, 0, 0};
    updateWatching();
}

DWORD Win32Control_GdiCreationsCounted()
{
    std::lock_guard lock(stateMutex);
    return gdiPlan.counted;
}

DWORD Win32Control_AllocationsCounted(Win32Allocation kind)
{
    if (kind < 0 || kind >= WIN32_ALLOCATION_KINDS)
        return 0;
    std::lock_guard lock(stateMutex);
    return allocationPlans[kind].counted;
}

void Win32Control_AllowAllocations(Win32Allocation kind)
{
    if (kind < 0 || kind >= WIN32_ALLOCATION_KINDS)
        return;
    std::lock_guard lock(stateMutex);
    allocationPlans[kind].watched = false;
    updateWatching();
}

BOOL Win32Control_FailCalls(LPCSTR function, DWORD error, DWORD first, DWORD count)
{
    std::lock_guard lock(stateMutex);
    for (CallPlan &plan : callPlans) {
        if (strcmp(plan.function, function) != 0)
            continue;
        plan = {plan.function, error, first, count, 0};
        updateWatching();
        return TRUE;
    }
    return FALSE;
}

void Win32Control_PretendPhysicalMemory(DWORDLONG bytes)
{
    pretendedMemory = bytes;
    win32::forgetCommitLimit();
}

void Win32Control_PretendProcessUsage(DWORDLONG bytes)
{
    pretendedUsage = bytes;
}

void Win32Control_PretendVersion(DWORD platform, DWORD major, DWORD minor, DWORD build)
{
    std::lock_guard lock(stateMutex);
    pretendedVersion = {sizeof(OSVERSIONINFOA), major, minor, build, platform, {}};
}

void Win32Control_HideModule(LPCSTR module, LPCSTR function)
{
    std::lock_guard lock(stateMutex);
    hiddenNames.insert(hiddenKey(module, function));
    anythingHidden = true;
}

void Win32Control_ReceiveDebugOutput(Win32DebugOutputReceiver receiver, void *context)
{
    std::lock_guard lock(stateMutex);
    debugReceiver = receiver;
    debugReceiverContext = context;
}

void Win32Control_Reset()
{
    Win32Control_LimitGdiObjects(0);
    std::lock_guard lock(stateMutex);
    for (AllocationPlan &plan : allocationPlans)
        plan = {};
    gdiPlan = {};
    for (CallPlan &plan : callPlans)
        plan = {plan.function, 0, 0, 0, 0};
    updateWatching();
    hiddenNames.clear();
    anythingHidden = false;
    pretendedMemory = 0;
    win32::forgetCommitLimit();
    pretendedUsage = 0;
    pretendedVersion = {};
    debugReceiver = nullptr;
    boxAnswerer = nullptr;
}
