// Variables of the Script Manager, and the height of the menu bar.
#include <mtbx/Script.h>

namespace {

const SInt16 keyScript = smRoman; // nothing changes it

} // namespace

SInt32 GetScriptManagerVariable(SInt16 selector)
{
    switch (selector) {
    case smKeyScript: return keyScript;
    case smDoubleByte: return GetSystemMetrics(SM_DBCSENABLED);
    default: return 0;
    }
}

SInt32 GetMBarHeight()
{
    return GetSystemMetrics(SM_CYMENU);
}
