/* The Control Manager: its record. */
#ifndef MTBX_CONTROLS_H
#define MTBX_CONTROLS_H

#include <mtbx/MacWindows.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef SInt16 ControlPartCode;
typedef void (*ControlActionProcPtr)(ControlHandle theControl, ControlPartCode partCode);
typedef void (*MTBXControlColorProcPtr)(void);

#pragma pack(push, 2)

/* Shadows a native child window of the owner's native window. */
struct ControlRecord {
    ControlHandle nextControl;
    WindowPtr contrlOwner;
    /* As given when the control was made; moving and sizing leave it. */
    Rect contrlRect;
    UInt8 contrlVis;
    UInt8 contrlHilite;
    SInt16 contrlValue;
    SInt16 contrlMin;
    SInt16 contrlMax;
    /* The control's procID; never called. */
    SInt32 contrlDefProc;
    SInt32 contrlData;
    ControlActionProcPtr contrlAction;
    SRefCon contrlRfCon;
    Str255 contrlTitle;
    HWND contrlHwnd;
    /* The last part code: the host stores it. */
    SInt16 contrlPartCode;
    MTBXControlColorProcPtr contrlColorProc;
};

#pragma pack(pop)

MTBX_ASSERT_OFFSET_32(ControlRecord, contrlValue, 18);
MTBX_ASSERT_OFFSET_32(ControlRecord, contrlTitle, 40);
MTBX_ASSERT_OFFSET_32(ControlRecord, contrlHwnd, 296);
MTBX_ASSERT_SIZE_32(ControlRecord, 306);

#ifdef __cplusplus
}
#endif

#endif
