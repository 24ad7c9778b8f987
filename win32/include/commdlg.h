/* The common dialogs. */
#ifndef WIN32_COMMDLG_H
#define WIN32_COMMDLG_H

#include <windows.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Gets each message of the dialog first, WM_INITDIALOG with the request as lParam; other than 0 from it means that
   the message is done with. */
typedef UINT_PTR(CALLBACK *LPCCHOOKPROC)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

typedef struct tagCHOOSECOLORA {
    DWORD lStructSize;
    HWND hwndOwner;
    HWND hInstance;
    COLORREF rgbResult;
    COLORREF *lpCustColors; /* 16 of the program's, which the user may change */
    DWORD Flags;
    LPARAM lCustData;
    LPCCHOOKPROC lpfnHook;
    LPCSTR lpTemplateName;
} CHOOSECOLORA, *LPCHOOSECOLORA;

#define CC_RGBINIT 0x00000001
#define CC_FULLOPEN 0x00000002
#define CC_PREVENTFULLOPEN 0x00000004
#define CC_ENABLEHOOK 0x00000010
#define CC_SOLIDCOLOR 0x00000080
#define CC_ANYCOLOR 0x00000100

#define CDERR_STRUCTSIZE 0x0001
#define CDERR_INITIALIZATION 0x0002
#define CDERR_MEMALLOCFAILURE 0x0009
#define CDERR_NOHOOK 0x000B

/* Shows the dialog until the user has chosen. FALSE when it was cancelled, or could not be shown: then
   CommDlgExtendedError is not 0. */
WINUSERAPI BOOL WINAPI ChooseColorA(LPCHOOSECOLORA request);
WINUSERAPI DWORD WINAPI CommDlgExtendedError(void);

typedef CHOOSECOLORA CHOOSECOLOR;
typedef LPCHOOSECOLORA LPCHOOSECOLOR;
#define ChooseColor ChooseColorA

#ifdef __cplusplus
}
#endif

#endif
