// SysEnvirons.
#include <mtbx/Files.h>
#include <mtbx/MacErrors.h>
#include <mtbx/OSUtils.h>

namespace {

constexpr SInt16 highestVersion = 2;
constexpr SInt16 systemSevenFive = 0x750;

} // namespace

OSErr SysEnvirons(SInt16 version, SysEnvRec *record)
{
    if (version < 0)
        return envBadVers;
    if (version > highestVersion)
        return envVersTooBig;
    record->environsVersion = version;
    record->machineType = 0;
    record->systemVersion = systemSevenFive;
    record->processor = 0;
    record->hasFPU = 1;
    record->hasColorQD = 1;
    record->keyBoardType = 0;
    char systemFolder[MAX_PATH] = "";
    GetSystemDirectoryA(systemFolder, sizeof systemFolder);
    record->sysVRefNum = static_cast<SInt16>(GetDirectoryID(systemFolder));
    return noErr;
}
