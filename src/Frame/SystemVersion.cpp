// Which Windows this is.
#include <mtbx/MTBXEnvironment.h>

#include <optional>

namespace {

constexpr DWORD anyMinor = ~DWORD{0};

struct SystemLevel {
    SInt32 code;
    DWORD platform;
    DWORD major;
    DWORD minor;
};

constexpr SystemLevel systemLevels[] = {
    {kMTBXWindows95, VER_PLATFORM_WIN32_WINDOWS, 4, 0},  {kMTBXWindows98, VER_PLATFORM_WIN32_WINDOWS, 4, 10},
    {kMTBXWindowsMe, VER_PLATFORM_WIN32_WINDOWS, 4, 90}, {kMTBXWindowsNT4, VER_PLATFORM_WIN32_NT, 4, anyMinor},
    {kMTBXWindows2000, VER_PLATFORM_WIN32_NT, 5, 0},     {kMTBXWindowsXP, VER_PLATFORM_WIN32_NT, 5, 1},
    {kMTBXWindowsVista, VER_PLATFORM_WIN32_NT, 6, 0},
};

std::optional<OSVERSIONINFOA> systemVersion()
{
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) ? std::optional(version) : std::nullopt;
}

// Windows Server at 5.2 is not counted here.
bool isWindowsXPOrLater(const OSVERSIONINFOA &version)
{
    return version.dwPlatformId == VER_PLATFORM_WIN32_NT
           && ((version.dwMajorVersion == 5 && version.dwMinorVersion == 1) || version.dwMajorVersion >= 6);
}

bool isAtLeast(const OSVERSIONINFOA &version, SInt32 level)
{
    bool is9x = version.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS && version.dwMajorVersion == 4;
    bool isNT = version.dwPlatformId == VER_PLATFORM_WIN32_NT;
    switch (level) {
    case kMTBXWindows95: return is9x;
    case kMTBXWindows98: return is9x && version.dwMinorVersion >= 10;
    case kMTBXWindowsMe: return is9x && version.dwMinorVersion == 90;
    case kMTBXWindowsNT3: return isNT && version.dwMajorVersion < 4;
    case kMTBXWindowsNT4: return isNT && version.dwMajorVersion >= 4;
    case kMTBXWindows2000: return isNT && version.dwMajorVersion >= 5;
    default: return false;
    }
}

} // namespace

SInt32 MTBX_GetOSVersion()
{
    auto version = systemVersion();
    if (!version)
        return kMTBXUnknownOS;
    if (version->dwPlatformId == VER_PLATFORM_WIN32_NT && version->dwMajorVersion < 4)
        return kMTBXWindowsNT3;
    for (const SystemLevel &level : systemLevels) {
        if (level.platform == version->dwPlatformId && level.major == version->dwMajorVersion
            && (level.minor == anyMinor || level.minor == version->dwMinorVersion))
            return level.code;
    }
    return kMTBXUnknownOS;
}

Boolean MTBX_IsAtLeastOSVersion(SInt32 level)
{
    if (level >= kMTBXWindowsVista)
        return false;
    auto version = systemVersion();
    return version && (isWindowsXPOrLater(*version) || isAtLeast(*version, level));
}
