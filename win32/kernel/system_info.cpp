// The version of the system and its folders.
#include "control_state.h"
#include "faults.h"
#include "kernel_internal.h"
#include "paths.h"

#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

using namespace win32;

OSVERSIONINFOA configuredVersion()
{
    OSVERSIONINFOA version{};
    version.dwMajorVersion = 5;
    version.dwMinorVersion = 1;
    version.dwBuildNumber = 2600;
    version.dwPlatformId = VER_PLATFORM_WIN32_NT;
    unsigned major, minor, build = 0;
    const char *setting = getenv("WIN32_VERSION");
    if (setting && sscanf(setting, "%u.%u.%u", &major, &minor, &build) >= 2 && major > 0) {
        version.dwMajorVersion = major;
        version.dwMinorVersion = minor;
        version.dwBuildNumber = build;
    }
    return version;
}

std::atomic<UINT> errorMode{0};

} // namespace

BOOL GetVersionExA(LPOSVERSIONINFOA version)
{
    if (faults::fails("GetVersionExA"))
        return FALSE;
    DWORD size = version->dwOSVersionInfoSize;
    if (size != sizeof(OSVERSIONINFOA) && size != sizeof(OSVERSIONINFOEXA))
        return fail(ERROR_INSUFFICIENT_BUFFER, FALSE);
    OSVERSIONINFOA answer;
    if (!control::version(answer)) {
        static const OSVERSIONINFOA configured = configuredVersion();
        answer = configured;
    }
    memset(version, 0, size);
    memcpy(version, &answer, sizeof answer);
    version->dwOSVersionInfoSize = size;
    if (size == sizeof(OSVERSIONINFOEXA))
        reinterpret_cast<LPOSVERSIONINFOEXA>(version)->wProductType = VER_NT_WORKSTATION;
    return TRUE;
}

UINT SetErrorMode(UINT mode)
{
    return errorMode.exchange(mode);
}

LCID GetThreadLocale()
{
    return 0x0409;
}

UINT GetErrorMode()
{
    return errorMode.load();
}

UINT GetSystemDirectoryA(LPSTR buffer, UINT size)
{
    return copyPathResult("C:\\windows\\system32", buffer, size);
}

UINT GetWindowsDirectoryA(LPSTR buffer, UINT size)
{
    return copyPathResult("C:\\windows", buffer, size);
}

DWORD GetTempPathA(DWORD size, LPSTR buffer)
{
    return guarded(DWORD{0}, [&] {
        const char *folder = getenv("TMPDIR");
        std::string path = win32Path(folder && folder[0] == '/' ? folder : "/tmp");
        if (path.back() != '\\')
            path += '\\';
        return copyPathResult(path, buffer, size);
    });
}

DWORD GetCurrentDirectoryA(DWORD size, LPSTR buffer)
{
    return guarded(DWORD{0}, [&]() -> DWORD {
        char folder[PATH_MAX];
        if (!getcwd(folder, sizeof folder))
            return fail(errorFromErrno(errno), DWORD{0});
        return copyPathResult(win32Path(folder), buffer, size);
    });
}
