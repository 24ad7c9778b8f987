// Calls of the user interface.
#ifndef WIN32_WINUSER_H
#define WIN32_WINUSER_H

#pragma GCC system_header

#include <windef.h>

#define RT_CURSOR ((LPSTR)1)
#define RT_BITMAP ((LPSTR)2)
#define RT_ICON ((LPSTR)3)
#define RT_MENU ((LPSTR)4)
#define RT_STRING ((LPSTR)6)
#define RT_GROUP_CURSOR ((LPSTR)12)
#define RT_GROUP_ICON ((LPSTR)14)

// The text of a string resource, cut to the size; 0 when there is none.
WINUSERAPI int WINAPI LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int size);

// A bitmap resource: monochrome when it is black and white, otherwise in the screen's format. The caller
// deletes it. Windows' own bitmaps, of a null module, are not there.
WINUSERAPI HBITMAP WINAPI LoadBitmapA(HINSTANCE module, LPCSTR name);

// Steps through text of one- and two-byte characters.
WINUSERAPI LPSTR WINAPI CharNextA(LPCSTR text);
WINUSERAPI LPSTR WINAPI CharPrevA(LPCSTR start, LPCSTR place);
WINUSERAPI LPSTR WINAPI CharNextExA(WORD codePage, LPCSTR text, DWORD flags);
WINUSERAPI LPSTR WINAPI CharPrevExA(WORD codePage, LPCSTR start, LPCSTR place, DWORD flags);

WINUSERAPI BOOL WINAPI ScrollDC(HDC context, int x, int y, const RECT *area, const RECT *clip, HRGN update,
                                LPRECT updateBox);

#define LoadBitmap LoadBitmapA
#define LoadString LoadStringA
#define AppendMenu AppendMenuA
#define InsertMenu InsertMenuA
#define ModifyMenu ModifyMenuA
#define GetMenuString GetMenuStringA
#define GetMenuItemInfo GetMenuItemInfoA
#define SetMenuItemInfo SetMenuItemInfoA
#define LoadMenu LoadMenuA
#define LoadMenuIndirect LoadMenuIndirectA
#define CharNext CharNextA
#define CharPrev CharPrevA

// Messages.
#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_ENABLE 0x000A
#define WM_SETREDRAW 0x000B
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUERYENDSESSION 0x0011
#define WM_QUIT 0x0012
#define WM_QUERYOPEN 0x0013
#define WM_ERASEBKGND 0x0014
#define WM_SYSCOLORCHANGE 0x0015
#define WM_ENDSESSION 0x0016
#define WM_SHOWWINDOW 0x0018
#define WM_WININICHANGE 0x001A
#define WM_SETTINGCHANGE WM_WININICHANGE
#define WM_ACTIVATEAPP 0x001C
#define WM_FONTCHANGE 0x001D
#define WM_TIMECHANGE 0x001E
#define WM_CANCELMODE 0x001F
#define WM_SETCURSOR 0x0020
#define WM_MOUSEACTIVATE 0x0021
#define WM_CHILDACTIVATE 0x0022
#define WM_QUEUESYNC 0x0023
#define WM_GETMINMAXINFO 0x0024
#define WM_PAINTICON 0x0026
#define WM_ICONERASEBKGND 0x0027
#define WM_NEXTDLGCTL 0x0028
#define WM_DRAWITEM 0x002B
#define WM_MEASUREITEM 0x002C
#define WM_DELETEITEM 0x002D
#define WM_VKEYTOITEM 0x002E
#define WM_CHARTOITEM 0x002F
#define WM_SETFONT 0x0030
#define WM_GETFONT 0x0031
#define WM_SETHOTKEY 0x0032
#define WM_GETHOTKEY 0x0033
#define WM_QUERYDRAGICON 0x0037
#define WM_COMPAREITEM 0x0039
#define WM_WINDOWPOSCHANGING 0x0046
#define WM_WINDOWPOSCHANGED 0x0047
#define WM_COPYDATA 0x004A
#define WM_NOTIFY 0x004E
#define WM_HELP 0x0053
#define WM_CONTEXTMENU 0x007B
#define WM_STYLECHANGING 0x007C
#define WM_STYLECHANGED 0x007D
#define WM_DISPLAYCHANGE 0x007E
#define WM_GETICON 0x007F
#define WM_SETICON 0x0080
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_NCCALCSIZE 0x0083
#define WM_NCHITTEST 0x0084
#define WM_NCPAINT 0x0085
#define WM_NCACTIVATE 0x0086
#define WM_GETDLGCODE 0x0087
#define WM_NCMOUSEMOVE 0x00A0
#define WM_NCLBUTTONDOWN 0x00A1
#define WM_NCLBUTTONUP 0x00A2
#define WM_NCLBUTTONDBLCLK 0x00A3
#define WM_NCRBUTTONDOWN 0x00A4
#define WM_NCRBUTTONUP 0x00A5
#define WM_NCRBUTTONDBLCLK 0x00A6
#define WM_NCMBUTTONDOWN 0x00A7
#define WM_NCMBUTTONUP 0x00A8
#define WM_NCMBUTTONDBLCLK 0x00A9
#define WM_KEYFIRST 0x0100
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_DEADCHAR 0x0103
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_SYSCHAR 0x0106
#define WM_SYSDEADCHAR 0x0107
#define WM_KEYLAST 0x0109
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111
#define WM_SYSCOMMAND 0x0112
#define WM_TIMER 0x0113
#define WM_HSCROLL 0x0114
#define WM_VSCROLL 0x0115
#define WM_INITMENU 0x0116
#define WM_INITMENUPOPUP 0x0117
#define WM_SYSTIMER 0x0118
#define WM_MENUSELECT 0x011F
#define WM_MENUCHAR 0x0120
#define WM_ENTERIDLE 0x0121
#define WM_MENURBUTTONUP 0x0122
#define WM_UNINITMENUPOPUP 0x0125
#define WM_MENUCOMMAND 0x0126
#define WM_CTLCOLORMSGBOX 0x0132
#define WM_CTLCOLOREDIT 0x0133
#define WM_CTLCOLORLISTBOX 0x0134
#define WM_CTLCOLORBTN 0x0135
#define WM_CTLCOLORDLG 0x0136
#define WM_CTLCOLORSCROLLBAR 0x0137
#define WM_CTLCOLORSTATIC 0x0138
#define WM_MOUSEFIRST 0x0200
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_MBUTTONDOWN 0x0207
#define WM_MBUTTONUP 0x0208
#define WM_MBUTTONDBLCLK 0x0209
#define WM_MOUSEWHEEL 0x020A
#define WM_MOUSELAST 0x020D
#define WM_PARENTNOTIFY 0x0210
#define WM_ENTERMENULOOP 0x0211
#define WM_EXITMENULOOP 0x0212
#define WM_SIZING 0x0214
/* The edge that WM_SIZING and SC_SIZE tell of. */
#define WMSZ_LEFT 1
#define WMSZ_RIGHT 2
#define WMSZ_TOP 3
#define WMSZ_TOPLEFT 4
#define WMSZ_TOPRIGHT 5
#define WMSZ_BOTTOM 6
#define WMSZ_BOTTOMLEFT 7
#define WMSZ_BOTTOMRIGHT 8
#define WM_CAPTURECHANGED 0x0215
#define WM_MOVING 0x0216
#define WM_ENTERSIZEMOVE 0x0231
#define WM_EXITSIZEMOVE 0x0232
#define WM_DROPFILES 0x0233
#define WM_MOUSEHOVER 0x02A1
#define WM_NCMOUSELEAVE 0x02A2
#define WM_MOUSELEAVE 0x02A3
#define WM_CUT 0x0300
#define WM_COPY 0x0301
#define WM_PASTE 0x0302
#define WM_CLEAR 0x0303
#define WM_UNDO 0x0304
#define WM_RENDERFORMAT 0x0305
#define WM_RENDERALLFORMATS 0x0306
#define WM_DESTROYCLIPBOARD 0x0307
#define WM_DRAWCLIPBOARD 0x0308
#define WM_QUERYNEWPALETTE 0x030F
#define WM_PALETTEISCHANGING 0x0310
#define WM_PALETTECHANGED 0x0311
#define WM_PRINT 0x0317
#define WM_PRINTCLIENT 0x0318
#define WM_USER 0x0400
#define WM_APP 0x8000

#define WA_INACTIVE 0
#define WA_ACTIVE 1
#define WA_CLICKACTIVE 2
#define MA_ACTIVATE 1
#define MA_ACTIVATEANDEAT 2
#define MA_NOACTIVATE 3
#define MA_NOACTIVATEANDEAT 4
#define SIZE_RESTORED 0
#define SIZE_MINIMIZED 1
#define SIZE_MAXIMIZED 2
#define SIZE_MAXSHOW 3
#define SIZE_MAXHIDE 4
#define SW_PARENTCLOSING 1
#define SW_OTHERZOOM 2
#define SW_PARENTOPENING 3
#define SW_OTHERUNZOOM 4
#define ICON_SMALL 0
#define ICON_BIG 1
#define WVR_ALIGNTOP 0x0010
#define WVR_ALIGNLEFT 0x0020
#define WVR_ALIGNBOTTOM 0x0040
#define WVR_ALIGNRIGHT 0x0080
#define WVR_HREDRAW 0x0100
#define WVR_VREDRAW 0x0200
#define WVR_REDRAW (WVR_HREDRAW | WVR_VREDRAW)
#define WVR_VALIDRECTS 0x0400
#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT 0x0004
#define MK_CONTROL 0x0008
#define MK_MBUTTON 0x0010
#define WHEEL_DELTA 120

#define HTERROR (-2)
#define HTTRANSPARENT (-1)
#define HTNOWHERE 0
#define HTCLIENT 1
#define HTCAPTION 2
#define HTSYSMENU 3
#define HTGROWBOX 4
#define HTSIZE HTGROWBOX
#define HTMENU 5
#define HTHSCROLL 6
#define HTVSCROLL 7
#define HTMINBUTTON 8
#define HTREDUCE HTMINBUTTON
#define HTMAXBUTTON 9
#define HTZOOM HTMAXBUTTON
#define HTLEFT 10
#define HTRIGHT 11
#define HTTOP 12
#define HTTOPLEFT 13
#define HTTOPRIGHT 14
#define HTBOTTOM 15
#define HTBOTTOMLEFT 16
#define HTBOTTOMRIGHT 17
#define HTBORDER 18
#define HTCLOSE 20
#define HTHELP 21

#define SC_SIZE 0xF000
#define SC_MOVE 0xF010
#define SC_MINIMIZE 0xF020
#define SC_MAXIMIZE 0xF030
#define SC_NEXTWINDOW 0xF040
#define SC_PREVWINDOW 0xF050
#define SC_CLOSE 0xF060
#define SC_VSCROLL 0xF070
#define SC_HSCROLL 0xF080
#define SC_MOUSEMENU 0xF090
#define SC_KEYMENU 0xF100
#define SC_RESTORE 0xF120

typedef LRESULT(CALLBACK *WNDPROC)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
typedef void(CALLBACK *TIMERPROC)(HWND window, UINT message, UINT_PTR id, DWORD time);
typedef BOOL(CALLBACK *WNDENUMPROC)(HWND window, LPARAM parameter);

typedef struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
} MSG, *PMSG, *LPMSG;

// Window classes.
#define CS_VREDRAW 0x0001
#define CS_HREDRAW 0x0002
#define CS_DBLCLKS 0x0008
#define CS_OWNDC 0x0020
#define CS_CLASSDC 0x0040
#define CS_PARENTDC 0x0080
#define CS_NOCLOSE 0x0200
#define CS_SAVEBITS 0x0800
#define CS_BYTEALIGNCLIENT 0x1000
#define CS_BYTEALIGNWINDOW 0x2000
#define CS_GLOBALCLASS 0x4000

typedef struct tagWNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
} WNDCLASSA, *PWNDCLASSA, *LPWNDCLASSA;

typedef struct tagWNDCLASSEXA {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
    HICON hIconSm;
} WNDCLASSEXA, *PWNDCLASSEXA, *LPWNDCLASSEXA;

#define GCL_MENUNAME (-8)
#define GCL_HBRBACKGROUND (-10)
#define GCL_HCURSOR (-12)
#define GCL_HICON (-14)
#define GCL_HMODULE (-16)
#define GCL_CBWNDEXTRA (-18)
#define GCL_CBCLSEXTRA (-20)
#define GCL_WNDPROC (-24)
#define GCL_STYLE (-26)
#define GCW_ATOM (-32)
#define GCL_HICONSM (-34)
#define GCLP_MENUNAME GCL_MENUNAME
#define GCLP_HBRBACKGROUND GCL_HBRBACKGROUND
#define GCLP_HCURSOR GCL_HCURSOR
#define GCLP_HICON GCL_HICON
#define GCLP_HMODULE GCL_HMODULE
#define GCLP_WNDPROC GCL_WNDPROC
#define GCLP_HICONSM GCL_HICONSM

WINUSERAPI ATOM WINAPI RegisterClassA(const WNDCLASSA *windowClass);
WINUSERAPI ATOM WINAPI RegisterClassExA(const WNDCLASSEXA *windowClass);
WINUSERAPI BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE instance);
WINUSERAPI BOOL WINAPI GetClassInfoA(HINSTANCE instance, LPCSTR name, LPWNDCLASSA windowClass);
WINUSERAPI BOOL WINAPI GetClassInfoExA(HINSTANCE instance, LPCSTR name, LPWNDCLASSEXA windowClass);
WINUSERAPI int WINAPI GetClassNameA(HWND window, LPSTR buffer, int size);
WINUSERAPI DWORD WINAPI GetClassLongA(HWND window, int index);
WINUSERAPI DWORD WINAPI SetClassLongA(HWND window, int index, LONG value);
WINUSERAPI WORD WINAPI GetClassWord(HWND window, int index);
WINUSERAPI ULONG_PTR WINAPI GetClassLongPtrA(HWND window, int index);
WINUSERAPI ULONG_PTR WINAPI SetClassLongPtrA(HWND window, int index, LONG_PTR value);

// Windows.
#define WS_OVERLAPPED 0x00000000
#define WS_POPUP 0x80000000
#define WS_CHILD 0x40000000
#define WS_MINIMIZE 0x20000000
#define WS_VISIBLE 0x10000000
#define WS_DISABLED 0x08000000
#define WS_CLIPSIBLINGS 0x04000000
#define WS_CLIPCHILDREN 0x02000000
#define WS_MAXIMIZE 0x01000000
#define WS_CAPTION 0x00C00000
#define WS_BORDER 0x00800000
#define WS_DLGFRAME 0x00400000
#define WS_VSCROLL 0x00200000
#define WS_HSCROLL 0x00100000
#define WS_SYSMENU 0x00080000
#define WS_THICKFRAME 0x00040000
#define WS_GROUP 0x00020000
#define WS_TABSTOP 0x00010000
#define WS_MINIMIZEBOX 0x00020000
#define WS_MAXIMIZEBOX 0x00010000
#define WS_TILED WS_OVERLAPPED
#define WS_ICONIC WS_MINIMIZE
#define WS_SIZEBOX WS_THICKFRAME
#define WS_OVERLAPPEDWINDOW (WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX)
#define WS_TILEDWINDOW WS_OVERLAPPEDWINDOW
#define WS_POPUPWINDOW (WS_POPUP | WS_BORDER | WS_SYSMENU)
#define WS_CHILDWINDOW WS_CHILD
#define WS_EX_DLGMODALFRAME 0x00000001
#define WS_EX_NOPARENTNOTIFY 0x00000004
#define WS_EX_TOPMOST 0x00000008
#define WS_EX_ACCEPTFILES 0x00000010
#define WS_EX_TRANSPARENT 0x00000020
#define WS_EX_MDICHILD 0x00000040
#define WS_EX_TOOLWINDOW 0x00000080
#define WS_EX_WINDOWEDGE 0x00000100
#define WS_EX_CLIENTEDGE 0x00000200
#define WS_EX_CONTEXTHELP 0x00000400
#define WS_EX_CONTROLPARENT 0x00010000
#define WS_EX_STATICEDGE 0x00020000
#define WS_EX_APPWINDOW 0x00040000
#define WS_EX_NOACTIVATE 0x08000000
#define WS_EX_OVERLAPPEDWINDOW (WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE)
#define WS_EX_PALETTEWINDOW (WS_EX_WINDOWEDGE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST)
#define CW_USEDEFAULT ((int)0x80000000)

#define HWND_DESKTOP ((HWND)0)
#define HWND_TOP ((HWND)0)
#define HWND_BOTTOM ((HWND)1)
#define HWND_TOPMOST ((HWND)(LONG_PTR)-1)
#define HWND_NOTOPMOST ((HWND)(LONG_PTR)-2)
#define HWND_BROADCAST ((HWND)0xffff)
#define HWND_MESSAGE ((HWND)(LONG_PTR)-3)

#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOREDRAW 0x0008
#define SWP_NOACTIVATE 0x0010
#define SWP_FRAMECHANGED 0x0020
#define SWP_DRAWFRAME SWP_FRAMECHANGED
#define SWP_SHOWWINDOW 0x0040
#define SWP_HIDEWINDOW 0x0080
#define SWP_NOCOPYBITS 0x0100
#define SWP_NOOWNERZORDER 0x0200
#define SWP_NOREPOSITION SWP_NOOWNERZORDER
#define SWP_NOSENDCHANGING 0x0400
#define SWP_DEFERERASE 0x2000
#define SWP_ASYNCWINDOWPOS 0x4000

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_NORMAL 1
#define SW_SHOWMINIMIZED 2
#define SW_SHOWMAXIMIZED 3
#define SW_MAXIMIZE 3
#define SW_SHOWNOACTIVATE 4
#define SW_SHOW 5
#define SW_MINIMIZE 6
#define SW_SHOWMINNOACTIVE 7
#define SW_SHOWNA 8
#define SW_RESTORE 9
#define SW_SHOWDEFAULT 10
#define SW_FORCEMINIMIZE 11

#define GW_HWNDFIRST 0
#define GW_HWNDLAST 1
#define GW_HWNDNEXT 2
#define GW_HWNDPREV 3
#define GW_OWNER 4
#define GW_CHILD 5
#define GA_PARENT 1
#define GA_ROOT 2
#define GA_ROOTOWNER 3
#define CWP_ALL 0
#define CWP_SKIPINVISIBLE 1
#define CWP_SKIPDISABLED 2
#define CWP_SKIPTRANSPARENT 4

#define GWL_WNDPROC (-4)
#define GWL_HINSTANCE (-6)
#define GWL_HWNDPARENT (-8)
#define GWL_ID (-12)
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWL_USERDATA (-21)
#define GWLP_WNDPROC GWL_WNDPROC
#define GWLP_HINSTANCE GWL_HINSTANCE
#define GWLP_HWNDPARENT GWL_HWNDPARENT
#define GWLP_ID GWL_ID
#define GWLP_USERDATA GWL_USERDATA

typedef struct tagCREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
} CREATESTRUCTA, *LPCREATESTRUCTA;

typedef struct tagWINDOWPOS {
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
} WINDOWPOS, *PWINDOWPOS, *LPWINDOWPOS;

typedef struct tagNCCALCSIZE_PARAMS {
    RECT rgrc[3];
    PWINDOWPOS lppos;
} NCCALCSIZE_PARAMS, *LPNCCALCSIZE_PARAMS;

typedef struct tagMINMAXINFO {
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
} MINMAXINFO, *PMINMAXINFO, *LPMINMAXINFO;

typedef struct tagSTYLESTRUCT {
    DWORD styleOld;
    DWORD styleNew;
} STYLESTRUCT, *LPSTYLESTRUCT;

#define WPF_SETMINPOSITION 0x0001
#define WPF_RESTORETOMAXIMIZED 0x0002
typedef struct tagWINDOWPLACEMENT {
    UINT length;
    UINT flags;
    UINT showCmd;
    POINT ptMinPosition;
    POINT ptMaxPosition;
    RECT rcNormalPosition;
} WINDOWPLACEMENT, *PWINDOWPLACEMENT, *LPWINDOWPLACEMENT;

WINUSERAPI HWND WINAPI CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR title, DWORD style, int x, int y,
                                       int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                                       LPVOID parameter);
#define CreateWindowA(className, title, style, x, y, width, height, parent, menu, instance, parameter) \
    CreateWindowExA(0, className, title, style, x, y, width, height, parent, menu, instance, parameter)
WINUSERAPI BOOL WINAPI DestroyWindow(HWND window);
WINUSERAPI BOOL WINAPI IsWindow(HWND window);
WINUSERAPI BOOL WINAPI IsWindowVisible(HWND window);
WINUSERAPI BOOL WINAPI IsWindowEnabled(HWND window);
WINUSERAPI BOOL WINAPI IsIconic(HWND window);
WINUSERAPI BOOL WINAPI IsZoomed(HWND window);
WINUSERAPI BOOL WINAPI IsChild(HWND parent, HWND window);
WINUSERAPI BOOL WINAPI EnableWindow(HWND window, BOOL enable);
WINUSERAPI BOOL WINAPI ShowWindow(HWND window, int command);
WINUSERAPI BOOL WINAPI ShowWindowAsync(HWND window, int command);
WINUSERAPI BOOL WINAPI ShowOwnedPopups(HWND owner, BOOL show);
WINUSERAPI BOOL WINAPI OpenIcon(HWND window);
WINUSERAPI BOOL WINAPI CloseWindow(HWND window);
WINUSERAPI BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
WINUSERAPI BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
WINUSERAPI BOOL WINAPI BringWindowToTop(HWND window);
WINUSERAPI HANDLE WINAPI BeginDeferWindowPos(int count);
WINUSERAPI HANDLE WINAPI DeferWindowPos(HANDLE positions, HWND window, HWND after, int x, int y, int width, int height,
                                        UINT flags);
WINUSERAPI BOOL WINAPI EndDeferWindowPos(HANDLE positions);
typedef HANDLE HDWP;
WINUSERAPI BOOL WINAPI GetWindowPlacement(HWND window, WINDOWPLACEMENT *placement);
WINUSERAPI BOOL WINAPI SetWindowPlacement(HWND window, const WINDOWPLACEMENT *placement);
WINUSERAPI BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
WINUSERAPI BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
WINUSERAPI BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL hasMenu);
WINUSERAPI BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL hasMenu, DWORD extendedStyle);
WINUSERAPI BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
WINUSERAPI BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
WINUSERAPI int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);

WINUSERAPI HWND WINAPI GetDesktopWindow(void);
WINUSERAPI HWND WINAPI GetParent(HWND window);
WINUSERAPI HWND WINAPI SetParent(HWND window, HWND parent);
WINUSERAPI HWND WINAPI GetAncestor(HWND window, UINT which);
WINUSERAPI HWND WINAPI GetWindow(HWND window, UINT which);
#define GetNextWindow(window, which) GetWindow(window, which)
WINUSERAPI HWND WINAPI GetTopWindow(HWND window);
WINUSERAPI HWND WINAPI GetLastActivePopup(HWND window);
WINUSERAPI HWND WINAPI FindWindowA(LPCSTR className, LPCSTR title);
WINUSERAPI HWND WINAPI FindWindowExA(HWND parent, HWND after, LPCSTR className, LPCSTR title);
WINUSERAPI HWND WINAPI WindowFromPoint(POINT point);
WINUSERAPI HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point);
WINUSERAPI HWND WINAPI ChildWindowFromPointEx(HWND parent, POINT point, UINT flags);
WINUSERAPI BOOL WINAPI EnumWindows(WNDENUMPROC visit, LPARAM parameter);
WINUSERAPI BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC visit, LPARAM parameter);
WINUSERAPI BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC visit, LPARAM parameter);
WINUSERAPI DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);
WINUSERAPI HWND WINAPI GetDlgItem(HWND dialog, int id);
WINUSERAPI int WINAPI GetDlgCtrlID(HWND window);

WINUSERAPI LONG WINAPI GetWindowLongA(HWND window, int index);
WINUSERAPI LONG WINAPI SetWindowLongA(HWND window, int index, LONG value);
WINUSERAPI LONG_PTR WINAPI GetWindowLongPtrA(HWND window, int index);
WINUSERAPI LONG_PTR WINAPI SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
WINUSERAPI WORD WINAPI GetWindowWord(HWND window, int index);
WINUSERAPI WORD WINAPI SetWindowWord(HWND window, int index, WORD value);
WINUSERAPI int WINAPI GetWindowTextA(HWND window, LPSTR buffer, int size);
WINUSERAPI int WINAPI GetWindowTextLengthA(HWND window);
WINUSERAPI BOOL WINAPI SetWindowTextA(HWND window, LPCSTR text);
typedef BOOL(CALLBACK *PROPENUMPROCA)(HWND window, LPCSTR name, HANDLE value);
WINUSERAPI HANDLE WINAPI GetPropA(HWND window, LPCSTR name);
WINUSERAPI BOOL WINAPI SetPropA(HWND window, LPCSTR name, HANDLE value);
WINUSERAPI HANDLE WINAPI RemovePropA(HWND window, LPCSTR name);
WINUSERAPI int WINAPI EnumPropsA(HWND window, PROPENUMPROCA visit);

#define GR_GDIOBJECTS 0
#define GR_USEROBJECTS 1
WINUSERAPI DWORD WINAPI GetGuiResources(HANDLE process, DWORD kind);

// Activation, focus, capture.
WINUSERAPI HWND WINAPI GetActiveWindow(void);
WINUSERAPI HWND WINAPI SetActiveWindow(HWND window);
WINUSERAPI HWND WINAPI GetForegroundWindow(void);
WINUSERAPI BOOL WINAPI SetForegroundWindow(HWND window);
WINUSERAPI HWND WINAPI GetFocus(void);
WINUSERAPI HWND WINAPI SetFocus(HWND window);
WINUSERAPI HWND WINAPI GetCapture(void);
WINUSERAPI HWND WINAPI SetCapture(HWND window);
WINUSERAPI BOOL WINAPI ReleaseCapture(void);

// The message queue.
#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001
#define PM_NOYIELD 0x0002
#define PM_QS_INPUT (QS_INPUT << 16)
#define PM_QS_POSTMESSAGE ((QS_POSTMESSAGE | QS_HOTKEY | QS_TIMER) << 16)
#define PM_QS_PAINT (QS_PAINT << 16)
#define PM_QS_SENDMESSAGE (QS_SENDMESSAGE << 16)
#define QS_KEY 0x0001
#define QS_MOUSEMOVE 0x0002
#define QS_MOUSEBUTTON 0x0004
#define QS_POSTMESSAGE 0x0008
#define QS_TIMER 0x0010
#define QS_PAINT 0x0020
#define QS_SENDMESSAGE 0x0040
#define QS_HOTKEY 0x0080
#define QS_ALLPOSTMESSAGE 0x0100
#define QS_MOUSE (QS_MOUSEMOVE | QS_MOUSEBUTTON)
#define QS_INPUT (QS_MOUSE | QS_KEY)
#define QS_ALLEVENTS (QS_INPUT | QS_POSTMESSAGE | QS_TIMER | QS_PAINT | QS_HOTKEY)
#define QS_ALLINPUT (QS_ALLEVENTS | QS_SENDMESSAGE)
#define MWMO_WAITALL 0x0001
#define MWMO_ALERTABLE 0x0002
#define MWMO_INPUTAVAILABLE 0x0004
#define SMTO_NORMAL 0x0000
#define SMTO_BLOCK 0x0001
#define SMTO_ABORTIFHUNG 0x0002

WINUSERAPI BOOL WINAPI GetMessageA(LPMSG message, HWND window, UINT first, UINT last);
WINUSERAPI BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT flags);
WINUSERAPI BOOL WINAPI TranslateMessage(const MSG *message);
WINUSERAPI LRESULT WINAPI DispatchMessageA(const MSG *message);
// At most 10,000 messages wait for a thread; then the error is ERROR_NOT_ENOUGH_QUOTA.
WINUSERAPI BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI BOOL WINAPI PostThreadMessageA(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI void WINAPI PostQuitMessage(int exitCode);
WINUSERAPI LRESULT WINAPI SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI LRESULT WINAPI SendMessageTimeoutA(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                                              UINT milliseconds, DWORD_PTR *result);
WINUSERAPI BOOL WINAPI SendNotifyMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI BOOL WINAPI ReplyMessage(LRESULT result);
WINUSERAPI BOOL WINAPI InSendMessage(void);
WINUSERAPI LRESULT WINAPI CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI LRESULT WINAPI DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINUSERAPI DWORD WINAPI GetQueueStatus(UINT flags);
WINUSERAPI BOOL WINAPI GetInputState(void);
WINUSERAPI LONG WINAPI GetMessageTime(void);
WINUSERAPI DWORD WINAPI GetMessagePos(void);
WINUSERAPI LPARAM WINAPI GetMessageExtraInfo(void);
WINUSERAPI BOOL WINAPI WaitMessage(void);
WINUSERAPI DWORD WINAPI MsgWaitForMultipleObjects(DWORD count, const HANDLE *objects, BOOL all, DWORD milliseconds,
                                                  DWORD wakeMask);
WINUSERAPI DWORD WINAPI MsgWaitForMultipleObjectsEx(DWORD count, const HANDLE *objects, DWORD milliseconds,
                                                    DWORD wakeMask, DWORD flags);
WINUSERAPI UINT WINAPI RegisterWindowMessageA(LPCSTR name);
WINUSERAPI UINT WINAPI RegisterClipboardFormatA(LPCSTR name);
#define RegisterClipboardFormat RegisterClipboardFormatA

// The clipboard. A handle that it is given belongs to it; a null one promises the data until WM_RENDERFORMAT.
#define CF_TEXT 1
#define CF_BITMAP 2
#define CF_METAFILEPICT 3
#define CF_SYLK 4
#define CF_DIF 5
#define CF_TIFF 6
#define CF_OEMTEXT 7
#define CF_DIB 8
#define CF_PALETTE 9
#define CF_PENDATA 10
#define CF_RIFF 11
#define CF_WAVE 12
#define CF_UNICODETEXT 13
#define CF_ENHMETAFILE 14
#define CF_HDROP 15
#define CF_LOCALE 16
#define CF_PRIVATEFIRST 0x0200
#define CF_PRIVATELAST 0x02FF
#define CF_GDIOBJFIRST 0x0300
#define CF_GDIOBJLAST 0x03FF
WINUSERAPI BOOL WINAPI OpenClipboard(HWND window);
WINUSERAPI BOOL WINAPI CloseClipboard(void);
WINUSERAPI BOOL WINAPI EmptyClipboard(void);
WINUSERAPI HANDLE WINAPI SetClipboardData(UINT format, HANDLE data);
WINUSERAPI HANDLE WINAPI GetClipboardData(UINT format);
WINUSERAPI BOOL WINAPI IsClipboardFormatAvailable(UINT format);
WINUSERAPI UINT WINAPI EnumClipboardFormats(UINT format);
WINUSERAPI int WINAPI CountClipboardFormats(void);
WINUSERAPI HWND WINAPI GetClipboardOwner(void);
WINUSERAPI HWND WINAPI GetOpenClipboardWindow(void);

WINUSERAPI UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
WINUSERAPI BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

// Painting.
#define RDW_INVALIDATE 0x0001
#define RDW_INTERNALPAINT 0x0002
#define RDW_ERASE 0x0004
#define RDW_VALIDATE 0x0008
#define RDW_NOINTERNALPAINT 0x0010
#define RDW_NOERASE 0x0020
#define RDW_NOCHILDREN 0x0040
#define RDW_ALLCHILDREN 0x0080
#define RDW_UPDATENOW 0x0100
#define RDW_ERASENOW 0x0200
#define RDW_FRAME 0x0400
#define RDW_NOFRAME 0x0800
#define DCX_WINDOW 0x00000001
#define DCX_CACHE 0x00000002
#define DCX_NORESETATTRS 0x00000004
#define DCX_CLIPCHILDREN 0x00000008
#define DCX_CLIPSIBLINGS 0x00000010
#define DCX_PARENTCLIP 0x00000020
#define DCX_EXCLUDERGN 0x00000040
#define DCX_INTERSECTRGN 0x00000080
#define DCX_LOCKWINDOWUPDATE 0x00000400
#define DCX_VALIDATE 0x00200000
#define SW_SCROLLCHILDREN 0x0001
#define SW_INVALIDATE 0x0002
#define SW_ERASE 0x0004

typedef struct tagPAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
} PAINTSTRUCT, *PPAINTSTRUCT, *LPPAINTSTRUCT;

WINUSERAPI HDC WINAPI GetDC(HWND window);
WINUSERAPI HDC WINAPI GetDCEx(HWND window, HRGN clip, DWORD flags);
WINUSERAPI HDC WINAPI GetWindowDC(HWND window);
WINUSERAPI int WINAPI ReleaseDC(HWND window, HDC context);
WINUSERAPI HWND WINAPI WindowFromDC(HDC context);
WINUSERAPI HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint);
WINUSERAPI BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT *paint);
WINUSERAPI BOOL WINAPI UpdateWindow(HWND window);
WINUSERAPI BOOL WINAPI InvalidateRect(HWND window, const RECT *rect, BOOL erase);
WINUSERAPI BOOL WINAPI InvalidateRgn(HWND window, HRGN region, BOOL erase);
WINUSERAPI BOOL WINAPI ValidateRect(HWND window, const RECT *rect);
WINUSERAPI BOOL WINAPI ValidateRgn(HWND window, HRGN region);
WINUSERAPI BOOL WINAPI GetUpdateRect(HWND window, LPRECT rect, BOOL erase);
WINUSERAPI int WINAPI GetUpdateRgn(HWND window, HRGN region, BOOL erase);
WINUSERAPI int WINAPI ExcludeUpdateRgn(HDC context, HWND window);
WINUSERAPI BOOL WINAPI RedrawWindow(HWND window, const RECT *rect, HRGN region, UINT flags);
WINUSERAPI BOOL WINAPI ScrollWindow(HWND window, int x, int y, const RECT *rect, const RECT *clip);
WINUSERAPI int WINAPI ScrollWindowEx(HWND window, int x, int y, const RECT *rect, const RECT *clip, HRGN update,
                                     LPRECT updateRect, UINT flags);

// Input.
#define INPUT_MOUSE 0
#define INPUT_KEYBOARD 1
#define MOUSEEVENTF_MOVE 0x0001
#define MOUSEEVENTF_LEFTDOWN 0x0002
#define MOUSEEVENTF_LEFTUP 0x0004
#define MOUSEEVENTF_RIGHTDOWN 0x0008
#define MOUSEEVENTF_RIGHTUP 0x0010
#define MOUSEEVENTF_MIDDLEDOWN 0x0020
#define MOUSEEVENTF_MIDDLEUP 0x0040
#define MOUSEEVENTF_WHEEL 0x0800
#define MOUSEEVENTF_VIRTUALDESK 0x4000
#define MOUSEEVENTF_ABSOLUTE 0x8000
#define KEYEVENTF_EXTENDEDKEY 0x0001
#define KEYEVENTF_KEYUP 0x0002
#define KEYEVENTF_UNICODE 0x0004
#define KEYEVENTF_SCANCODE 0x0008

typedef struct tagMOUSEINPUT {
    LONG dx;
    LONG dy;
    DWORD mouseData;
    DWORD dwFlags;
    DWORD time;
    ULONG_PTR dwExtraInfo;
} MOUSEINPUT, *PMOUSEINPUT, *LPMOUSEINPUT;

typedef struct tagKEYBDINPUT {
    WORD wVk;
    WORD wScan;
    DWORD dwFlags;
    DWORD time;
    ULONG_PTR dwExtraInfo;
} KEYBDINPUT, *PKEYBDINPUT, *LPKEYBDINPUT;

typedef struct tagINPUT {
    DWORD type;
    union {
        MOUSEINPUT mi;
        KEYBDINPUT ki;
    };
} INPUT, *LPINPUT;

/* What MapVirtualKey makes of what. */
#define MAPVK_VK_TO_VSC 0
#define MAPVK_VSC_TO_VK 1
#define MAPVK_VK_TO_CHAR 2

/* The high word of a key message's lParam. */
#define KF_EXTENDED 0x0100
#define KF_ALTDOWN 0x2000
#define KF_REPEAT 0x4000
#define KF_UP 0x8000

#define VK_LBUTTON 0x01
#define VK_RBUTTON 0x02
#define VK_CANCEL 0x03
#define VK_MBUTTON 0x04
#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_CLEAR 0x0C
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_PAUSE 0x13
#define VK_CAPITAL 0x14
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_SELECT 0x29
#define VK_PRINT 0x2A
#define VK_EXECUTE 0x2B
#define VK_SNAPSHOT 0x2C
#define VK_INSERT 0x2D
#define VK_DELETE 0x2E
#define VK_HELP 0x2F
#define VK_LWIN 0x5B
#define VK_RWIN 0x5C
#define VK_APPS 0x5D
#define VK_NUMPAD0 0x60
#define VK_NUMPAD1 0x61
#define VK_NUMPAD2 0x62
#define VK_NUMPAD3 0x63
#define VK_NUMPAD4 0x64
#define VK_NUMPAD5 0x65
#define VK_NUMPAD6 0x66
#define VK_NUMPAD7 0x67
#define VK_NUMPAD8 0x68
#define VK_NUMPAD9 0x69
#define VK_MULTIPLY 0x6A
#define VK_ADD 0x6B
#define VK_SEPARATOR 0x6C
#define VK_SUBTRACT 0x6D
#define VK_DECIMAL 0x6E
#define VK_DIVIDE 0x6F
#define VK_F1 0x70
#define VK_F2 0x71
#define VK_F3 0x72
#define VK_F4 0x73
#define VK_F5 0x74
#define VK_F6 0x75
#define VK_F7 0x76
#define VK_F8 0x77
#define VK_F9 0x78
#define VK_F10 0x79
#define VK_F11 0x7A
#define VK_F12 0x7B
#define VK_F13 0x7C
#define VK_F14 0x7D
#define VK_F15 0x7E
#define VK_NUMLOCK 0x90
#define VK_SCROLL 0x91
#define VK_LSHIFT 0xA0
#define VK_RSHIFT 0xA1
#define VK_LCONTROL 0xA2
#define VK_RCONTROL 0xA3
#define VK_LMENU 0xA4
#define VK_RMENU 0xA5
#define VK_OEM_1 0xBA
#define VK_OEM_PLUS 0xBB
#define VK_OEM_COMMA 0xBC
#define VK_OEM_MINUS 0xBD
#define VK_OEM_PERIOD 0xBE
#define VK_OEM_2 0xBF
#define VK_OEM_3 0xC0
#define VK_OEM_4 0xDB
#define VK_OEM_5 0xDC
#define VK_OEM_6 0xDD
#define VK_OEM_7 0xDE
#define VK_OEM_102 0xE2
#define VK_PROCESSKEY 0xE5
/* A character without a key (KEYEVENTF_UNICODE). */
#define VK_PACKET 0xE7

WINUSERAPI UINT WINAPI SendInput(UINT count, LPINPUT events, int size);
WINUSERAPI void WINAPI mouse_event(DWORD flags, DWORD x, DWORD y, DWORD data, ULONG_PTR extraInfo);
WINUSERAPI void WINAPI keybd_event(BYTE key, BYTE scanCode, DWORD flags, ULONG_PTR extraInfo);
WINUSERAPI SHORT WINAPI GetAsyncKeyState(int key);
WINUSERAPI SHORT WINAPI GetKeyState(int key);
WINUSERAPI BOOL WINAPI GetKeyboardState(PBYTE state);
WINUSERAPI BOOL WINAPI SetKeyboardState(LPBYTE state);
WINUSERAPI UINT WINAPI MapVirtualKeyA(UINT code, UINT kind);
WINUSERAPI int WINAPI ToAscii(UINT key, UINT scanCode, const BYTE *state, LPWORD characters, UINT flags);
WINUSERAPI SHORT WINAPI VkKeyScanA(CHAR character);
WINUSERAPI BOOL WINAPI GetCursorPos(LPPOINT point);
WINUSERAPI BOOL WINAPI SetCursorPos(int x, int y);
WINUSERAPI BOOL WINAPI ClipCursor(const RECT *rect);
WINUSERAPI BOOL WINAPI GetClipCursor(LPRECT rect);
WINUSERAPI UINT WINAPI GetDoubleClickTime(void);
WINUSERAPI BOOL WINAPI SetDoubleClickTime(UINT milliseconds);
WINUSERAPI BOOL WINAPI SwapMouseButton(BOOL swap);
WINUSERAPI BOOL WINAPI DragDetect(HWND window, POINT point);
#define TME_HOVER 0x00000001
#define TME_LEAVE 0x00000002
#define TME_QUERY 0x40000000
#define TME_CANCEL 0x80000000
typedef struct tagTRACKMOUSEEVENT {
    DWORD cbSize;
    DWORD dwFlags;
    HWND hwndTrack;
    DWORD dwHoverTime;
} TRACKMOUSEEVENT, *LPTRACKMOUSEEVENT;
WINUSERAPI BOOL WINAPI TrackMouseEvent(LPTRACKMOUSEEVENT event);

// Scroll bars of windows.
#define SB_HORZ 0
#define SB_VERT 1
#define SB_CTL 2
#define SB_BOTH 3
#define SB_LINEUP 0
#define SB_LINELEFT 0
#define SB_LINEDOWN 1
#define SB_LINERIGHT 1
#define SB_PAGEUP 2
#define SB_PAGELEFT 2
#define SB_PAGEDOWN 3
#define SB_PAGERIGHT 3
#define SB_THUMBPOSITION 4
#define SB_THUMBTRACK 5
#define SB_TOP 6
#define SB_LEFT 6
#define SB_BOTTOM 7
#define SB_RIGHT 7
#define SB_ENDSCROLL 8
#define SIF_RANGE 0x0001
#define SIF_PAGE 0x0002
#define SIF_POS 0x0004
#define SIF_DISABLENOSCROLL 0x0008
#define SIF_TRACKPOS 0x0010
#define SIF_ALL (SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS)
#define ESB_ENABLE_BOTH 0
#define ESB_DISABLE_BOTH 3
typedef struct tagSCROLLINFO {
    UINT cbSize;
    UINT fMask;
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
} SCROLLINFO, *LPSCROLLINFO;
typedef const SCROLLINFO *LPCSCROLLINFO;
WINUSERAPI int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw);
WINUSERAPI BOOL WINAPI GetScrollInfo(HWND window, int bar, LPSCROLLINFO info);
WINUSERAPI int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw);
WINUSERAPI int WINAPI GetScrollPos(HWND window, int bar);
WINUSERAPI BOOL WINAPI SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw);
WINUSERAPI BOOL WINAPI GetScrollRange(HWND window, int bar, LPINT minimum, LPINT maximum);
WINUSERAPI BOOL WINAPI ShowScrollBar(HWND window, int bar, BOOL show);
WINUSERAPI BOOL WINAPI EnableScrollBar(HWND window, UINT bar, UINT arrows);

#define MAKEINTRESOURCEA(number) ((LPSTR)((ULONG_PTR)((WORD)(number))))
#define MAKEINTRESOURCE MAKEINTRESOURCEA
#define MAKEINTATOM(number) ((LPSTR)((ULONG_PTR)((WORD)(number))))
#define MAKEWPARAM(low, high) ((WPARAM)(DWORD)MAKELONG(low, high))
#define MAKELPARAM(low, high) ((LPARAM)(DWORD)MAKELONG(low, high))
#define MAKELRESULT(low, high) ((LRESULT)(DWORD)MAKELONG(low, high))
#define POINTSTOPOINT(point, points) ((point).x = (points).x, (point).y = (points).y)

#define CallWindowProc CallWindowProcA
#define CreateWindow CreateWindowA
#define CreateWindowEx CreateWindowExA
#define DefWindowProc DefWindowProcA
#define DispatchMessage DispatchMessageA
#define FindWindow FindWindowA
#define FindWindowEx FindWindowExA
#define GetClassInfo GetClassInfoA
#define GetClassInfoEx GetClassInfoExA
#define GetClassLong GetClassLongA
#define GetClassLongPtr GetClassLongPtrA
#define GetClassName GetClassNameA
#define GetMessage GetMessageA
#define GetProp GetPropA
#define GetWindowLong GetWindowLongA
#define GetWindowLongPtr GetWindowLongPtrA
#define GetWindowText GetWindowTextA
#define GetWindowTextLength GetWindowTextLengthA
#define MapVirtualKey MapVirtualKeyA
#define PeekMessage PeekMessageA
#define PostMessage PostMessageA
#define RegisterClass RegisterClassA
#define RegisterClassEx RegisterClassExA
#define RegisterWindowMessage RegisterWindowMessageA
#define RemoveProp RemovePropA
#define SendDlgItemMessage SendDlgItemMessageA
#define SendMessage SendMessageA
#define SetClassLong SetClassLongA
#define SetClassLongPtr SetClassLongPtrA
#define SetProp SetPropA
#define SetWindowLong SetWindowLongA
#define SetWindowLongPtr SetWindowLongPtrA
#define SetWindowText SetWindowTextA
#define UnregisterClass UnregisterClassA
#define WNDCLASS WNDCLASSA
#define WNDCLASSEX WNDCLASSEXA
#define CREATESTRUCT CREATESTRUCTA

// Monitors and the system's settings.
#define MONITOR_DEFAULTTONULL 0
#define MONITOR_DEFAULTTOPRIMARY 1
#define MONITOR_DEFAULTTONEAREST 2
#define MONITORINFOF_PRIMARY 1
#define CCHDEVICENAME 32
typedef struct tagMONITORINFO {
    DWORD cbSize;
    RECT rcMonitor;
    RECT rcWork;
    DWORD dwFlags;
} MONITORINFO, *LPMONITORINFO;
#ifdef __cplusplus
typedef struct tagMONITORINFOEXA : public tagMONITORINFO {
    CHAR szDevice[CCHDEVICENAME];
} MONITORINFOEXA, *LPMONITORINFOEXA;
#else
typedef struct tagMONITORINFOEXA {
    DWORD cbSize;
    RECT rcMonitor;
    RECT rcWork;
    DWORD dwFlags;
    CHAR szDevice[CCHDEVICENAME];
} MONITORINFOEXA, *LPMONITORINFOEXA;
#endif
typedef MONITORINFOEXA MONITORINFOEX;
typedef BOOL(CALLBACK *MONITORENUMPROC)(HMONITOR monitor, HDC context, LPRECT rect, LPARAM parameter);
#define DISPLAY_DEVICE_ATTACHED_TO_DESKTOP 0x00000001
#define DISPLAY_DEVICE_PRIMARY_DEVICE 0x00000004
typedef struct _DISPLAY_DEVICEA {
    DWORD cb;
    CHAR DeviceName[32];
    CHAR DeviceString[128];
    DWORD StateFlags;
    CHAR DeviceID[128];
    CHAR DeviceKey[128];
} DISPLAY_DEVICEA, *PDISPLAY_DEVICEA, *LPDISPLAY_DEVICEA;
typedef DISPLAY_DEVICEA DISPLAY_DEVICE;
WINUSERAPI BOOL WINAPI EnumDisplayMonitors(HDC context, LPCRECT clip, MONITORENUMPROC visit, LPARAM parameter);
WINUSERAPI BOOL WINAPI EnumDisplayDevicesA(LPCSTR device, DWORD number, PDISPLAY_DEVICEA result, DWORD flags);
WINUSERAPI BOOL WINAPI GetMonitorInfoA(HMONITOR monitor, LPMONITORINFO info);
WINUSERAPI HMONITOR WINAPI MonitorFromPoint(POINT point, DWORD flags);
WINUSERAPI HMONITOR WINAPI MonitorFromRect(LPCRECT rect, DWORD flags);
WINUSERAPI HMONITOR WINAPI MonitorFromWindow(HWND window, DWORD flags);
#define SPI_GETBEEP 0x0001
#define SPI_GETBORDER 0x0005
#define SPI_GETKEYBOARDSPEED 0x000A
#define SPI_GETKEYBOARDDELAY 0x0016
#define SPI_SETWORKAREA 0x002F
#define SPI_GETWORKAREA 0x0030
#define SPI_GETDRAGFULLWINDOWS 0x0026
#define SPI_GETWHEELSCROLLLINES 0x0068
#define SPI_GETMENUSHOWDELAY 0x006A
// The actions named above; others give FALSE with ERROR_INVALID_PARAMETER.
WINUSERAPI BOOL WINAPI SystemParametersInfoA(UINT action, UINT parameter, PVOID data, UINT update);
// 0xFFFFFFFF is the plain sound. Without a loudspeaker the call is heard by nobody.
WINUSERAPI BOOL WINAPI MessageBeep(UINT kind);
#define GetMonitorInfo GetMonitorInfoA
#define EnumDisplayDevices EnumDisplayDevicesA
#define SystemParametersInfo SystemParametersInfoA

// Cursors and carets.
/* The system's icons, for LoadIcon. */
#define IDI_APPLICATION MAKEINTRESOURCE(32512)
#define IDI_HAND MAKEINTRESOURCE(32513)
#define IDI_QUESTION MAKEINTRESOURCE(32514)
#define IDI_EXCLAMATION MAKEINTRESOURCE(32515)
#define IDI_ASTERISK MAKEINTRESOURCE(32516)
#define IDI_WINLOGO MAKEINTRESOURCE(32517)
#define IDI_WARNING IDI_EXCLAMATION
#define IDI_ERROR IDI_HAND
#define IDI_INFORMATION IDI_ASTERISK

#define IDC_ARROW MAKEINTRESOURCE(32512)
#define IDC_IBEAM MAKEINTRESOURCE(32513)
#define IDC_WAIT MAKEINTRESOURCE(32514)
#define IDC_CROSS MAKEINTRESOURCE(32515)
#define IDC_UPARROW MAKEINTRESOURCE(32516)
#define IDC_SIZENWSE MAKEINTRESOURCE(32642)
#define IDC_SIZENESW MAKEINTRESOURCE(32643)
#define IDC_SIZEWE MAKEINTRESOURCE(32644)
#define IDC_SIZENS MAKEINTRESOURCE(32645)
#define IDC_SIZEALL MAKEINTRESOURCE(32646)
#define IDC_NO MAKEINTRESOURCE(32648)
#define IDC_HAND MAKEINTRESOURCE(32649)
#define IDC_APPSTARTING MAKEINTRESOURCE(32650)
#define IDC_HELP MAKEINTRESOURCE(32651)
WINUSERAPI HCURSOR WINAPI LoadCursorA(HINSTANCE module, LPCSTR name);
WINUSERAPI HCURSOR WINAPI LoadCursorFromFileA(LPCSTR path);
WINUSERAPI HICON WINAPI LoadIconA(HINSTANCE module, LPCSTR name);
WINUSERAPI HICON WINAPI CreateIconFromResourceEx(PBYTE bits, DWORD size, BOOL isIcon, DWORD version, int width, int height,
                                                 UINT flags);
WINUSERAPI BOOL WINAPI DestroyIcon(HICON icon);
WINUSERAPI BOOL WINAPI DrawIcon(HDC context, int x, int y, HICON icon);
#define LR_DEFAULTCOLOR 0x0000
#define LR_MONOCHROME 0x0001
#define LR_DEFAULTSIZE 0x0040
#define LR_SHARED 0x8000
WINUSERAPI HCURSOR WINAPI CreateCursor(HINSTANCE module, int hotX, int hotY, int width, int height, const void *andMask,
                                       const void *xorMask);
WINUSERAPI BOOL WINAPI DestroyCursor(HCURSOR cursor);
WINUSERAPI HCURSOR WINAPI SetCursor(HCURSOR cursor);
WINUSERAPI HCURSOR WINAPI GetCursor(void);
WINUSERAPI int WINAPI ShowCursor(BOOL show);
WINUSERAPI BOOL WINAPI CreateCaret(HWND window, HBITMAP bitmap, int width, int height);
WINUSERAPI BOOL WINAPI DestroyCaret(void);
WINUSERAPI BOOL WINAPI ShowCaret(HWND window);
WINUSERAPI BOOL WINAPI HideCaret(HWND window);
WINUSERAPI BOOL WINAPI SetCaretPos(int x, int y);
WINUSERAPI BOOL WINAPI GetCaretPos(LPPOINT point);
WINUSERAPI UINT WINAPI GetCaretBlinkTime(void);
WINUSERAPI BOOL WINAPI SetCaretBlinkTime(UINT milliseconds);
#define LoadCursor LoadCursorA
#define LoadCursorFromFile LoadCursorFromFileA
#define LoadIcon LoadIconA

// Rectangles.
WINUSERAPI BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
WINUSERAPI BOOL WINAPI SetRectEmpty(LPRECT rect);
WINUSERAPI BOOL WINAPI CopyRect(LPRECT result, const RECT *rect);
WINUSERAPI BOOL WINAPI InflateRect(LPRECT rect, int x, int y);
WINUSERAPI BOOL WINAPI OffsetRect(LPRECT rect, int x, int y);
WINUSERAPI BOOL WINAPI IntersectRect(LPRECT result, const RECT *first, const RECT *second);
WINUSERAPI BOOL WINAPI UnionRect(LPRECT result, const RECT *first, const RECT *second);
WINUSERAPI BOOL WINAPI SubtractRect(LPRECT result, const RECT *first, const RECT *second);
WINUSERAPI BOOL WINAPI EqualRect(const RECT *first, const RECT *second);
WINUSERAPI BOOL WINAPI IsRectEmpty(const RECT *rect);
WINUSERAPI BOOL WINAPI PtInRect(const RECT *rect, POINT point);

// Text in rectangles.
#define DT_TOP 0x00000000
#define DT_LEFT 0x00000000
#define DT_CENTER 0x00000001
#define DT_RIGHT 0x00000002
#define DT_VCENTER 0x00000004
#define DT_BOTTOM 0x00000008
#define DT_WORDBREAK 0x00000010
#define DT_SINGLELINE 0x00000020
#define DT_EXPANDTABS 0x00000040
#define DT_TABSTOP 0x00000080
#define DT_NOCLIP 0x00000100
#define DT_EXTERNALLEADING 0x00000200
#define DT_CALCRECT 0x00000400
#define DT_NOPREFIX 0x00000800
#define DT_INTERNAL 0x00001000
#define DT_EDITCONTROL 0x00002000
#define DT_PATH_ELLIPSIS 0x00004000
#define DT_END_ELLIPSIS 0x00008000
#define DT_MODIFYSTRING 0x00010000
#define DT_RTLREADING 0x00020000
#define DT_WORD_ELLIPSIS 0x00040000
#define DT_NOFULLWIDTHCHARBREAK 0x00080000
#define DT_HIDEPREFIX 0x00100000
#define DT_PREFIXONLY 0x00200000

typedef struct tagDRAWTEXTPARAMS {
    UINT cbSize;
    int iTabLength;
    int iLeftMargin;
    int iRightMargin;
    UINT uiLengthDrawn;
} DRAWTEXTPARAMS, *LPDRAWTEXTPARAMS;

WINUSERAPI int WINAPI DrawTextA(HDC context, LPCSTR text, int count, LPRECT rect, UINT flags);
WINUSERAPI int WINAPI DrawTextExA(HDC context, LPSTR text, int count, LPRECT rect, UINT flags, LPDRAWTEXTPARAMS params);
WINUSERAPI LONG WINAPI TabbedTextOutA(HDC context, int x, int y, LPCSTR text, int count, int stops,
                                      const INT *positions, int origin);
WINUSERAPI DWORD WINAPI GetTabbedTextExtentA(HDC context, LPCSTR text, int count, int stops, const INT *positions);
#define DrawText DrawTextA
#define DrawTextEx DrawTextExA
#define TabbedTextOut TabbedTextOutA
#define GetTabbedTextExtent GetTabbedTextExtentA

// Drawing in the system's colours and shapes. A brush may be the number of a system colour plus one.
#define COLOR_SCROLLBAR 0
#define COLOR_BACKGROUND 1
#define COLOR_DESKTOP COLOR_BACKGROUND
#define COLOR_ACTIVECAPTION 2
#define COLOR_INACTIVECAPTION 3
#define COLOR_MENU 4
#define COLOR_WINDOW 5
#define COLOR_WINDOWFRAME 6
#define COLOR_MENUTEXT 7
#define COLOR_WINDOWTEXT 8
#define COLOR_CAPTIONTEXT 9
#define COLOR_ACTIVEBORDER 10
#define COLOR_INACTIVEBORDER 11
#define COLOR_APPWORKSPACE 12
#define COLOR_HIGHLIGHT 13
#define COLOR_HIGHLIGHTTEXT 14
#define COLOR_BTNFACE 15
#define COLOR_3DFACE COLOR_BTNFACE
#define COLOR_BTNSHADOW 16
#define COLOR_3DSHADOW COLOR_BTNSHADOW
#define COLOR_GRAYTEXT 17
#define COLOR_BTNTEXT 18
#define COLOR_INACTIVECAPTIONTEXT 19
#define COLOR_BTNHIGHLIGHT 20
#define COLOR_3DHIGHLIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DHILIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DDKSHADOW 21
#define COLOR_3DLIGHT 22
#define COLOR_INFOTEXT 23
#define COLOR_INFOBK 24
#define COLOR_HOTLIGHT 26
#define COLOR_GRADIENTACTIVECAPTION 27
#define COLOR_GRADIENTINACTIVECAPTION 28
#define COLOR_MENUHILIGHT 29
#define COLOR_MENUBAR 30
WINUSERAPI DWORD WINAPI GetSysColor(int index);
WINUSERAPI HBRUSH WINAPI GetSysColorBrush(int index);
WINUSERAPI BOOL WINAPI SetSysColors(int count, const INT *indices, const COLORREF *colors);
WINUSERAPI int WINAPI FillRect(HDC context, const RECT *rect, HBRUSH brush);
WINUSERAPI int WINAPI FrameRect(HDC context, const RECT *rect, HBRUSH brush);
WINUSERAPI BOOL WINAPI InvertRect(HDC context, const RECT *rect);
WINUSERAPI BOOL WINAPI DrawFocusRect(HDC context, const RECT *rect);

#define BDR_RAISEDOUTER 0x0001
#define BDR_SUNKENOUTER 0x0002
#define BDR_RAISEDINNER 0x0004
#define BDR_SUNKENINNER 0x0008
#define BDR_OUTER 0x0003
#define BDR_INNER 0x000C
#define EDGE_RAISED (BDR_RAISEDOUTER | BDR_RAISEDINNER)
#define EDGE_SUNKEN (BDR_SUNKENOUTER | BDR_SUNKENINNER)
#define EDGE_ETCHED (BDR_SUNKENOUTER | BDR_RAISEDINNER)
#define EDGE_BUMP (BDR_RAISEDOUTER | BDR_SUNKENINNER)
#define BF_LEFT 0x0001
#define BF_TOP 0x0002
#define BF_RIGHT 0x0004
#define BF_BOTTOM 0x0008
#define BF_TOPLEFT (BF_TOP | BF_LEFT)
#define BF_TOPRIGHT (BF_TOP | BF_RIGHT)
#define BF_BOTTOMLEFT (BF_BOTTOM | BF_LEFT)
#define BF_BOTTOMRIGHT (BF_BOTTOM | BF_RIGHT)
#define BF_RECT (BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM)
#define BF_DIAGONAL 0x0010
#define BF_DIAGONAL_ENDTOPRIGHT (BF_DIAGONAL | BF_TOP | BF_RIGHT)
#define BF_DIAGONAL_ENDTOPLEFT (BF_DIAGONAL | BF_TOP | BF_LEFT)
#define BF_DIAGONAL_ENDBOTTOMLEFT (BF_DIAGONAL | BF_BOTTOM | BF_LEFT)
#define BF_DIAGONAL_ENDBOTTOMRIGHT (BF_DIAGONAL | BF_BOTTOM | BF_RIGHT)
#define BF_MIDDLE 0x0800
#define BF_SOFT 0x1000
#define BF_ADJUST 0x2000
#define BF_FLAT 0x4000
#define BF_MONO 0x8000
WINUSERAPI BOOL WINAPI DrawEdge(HDC context, LPRECT rect, UINT edge, UINT flags);
#define DFC_CAPTION 1
#define DFC_MENU 2
#define DFC_SCROLL 3
#define DFC_BUTTON 4
#define DFCS_CAPTIONCLOSE 0x0000
#define DFCS_CAPTIONMIN 0x0001
#define DFCS_CAPTIONMAX 0x0002
#define DFCS_CAPTIONRESTORE 0x0003
#define DFCS_CAPTIONHELP 0x0004
#define DFCS_MENUARROW 0x0000
#define DFCS_MENUCHECK 0x0001
#define DFCS_MENUBULLET 0x0002
#define DFCS_MENUARROWRIGHT 0x0004
#define DFCS_SCROLLUP 0x0000
#define DFCS_SCROLLDOWN 0x0001
#define DFCS_SCROLLLEFT 0x0002
#define DFCS_SCROLLRIGHT 0x0003
#define DFCS_SCROLLCOMBOBOX 0x0005
#define DFCS_SCROLLSIZEGRIP 0x0008
#define DFCS_SCROLLSIZEGRIPRIGHT 0x0010
#define DFCS_BUTTONCHECK 0x0000
#define DFCS_BUTTONRADIOIMAGE 0x0001
#define DFCS_BUTTONRADIOMASK 0x0002
#define DFCS_BUTTONRADIO 0x0004
#define DFCS_BUTTON3STATE 0x0008
#define DFCS_BUTTONPUSH 0x0010
#define DFCS_INACTIVE 0x0100
#define DFCS_PUSHED 0x0200
#define DFCS_CHECKED 0x0400
#define DFCS_ADJUSTRECT 0x2000
#define DFCS_FLAT 0x4000
#define DFCS_MONO 0x8000
WINUSERAPI BOOL WINAPI DrawFrameControl(HDC context, LPRECT rect, UINT type, UINT state);

#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CXVSCROLL 2
#define SM_CYHSCROLL 3
#define SM_CYCAPTION 4
#define SM_CXBORDER 5
#define SM_CYBORDER 6
#define SM_CXDLGFRAME 7
#define SM_CYDLGFRAME 8
#define SM_CXFIXEDFRAME SM_CXDLGFRAME
#define SM_CYFIXEDFRAME SM_CYDLGFRAME
#define SM_CYVTHUMB 9
#define SM_CXHTHUMB 10
#define SM_CXICON 11
#define SM_CYICON 12
#define SM_CXCURSOR 13
#define SM_CYCURSOR 14
#define SM_CYMENU 15
#define SM_CXFULLSCREEN 16
#define SM_CYFULLSCREEN 17
#define SM_CYKANJIWINDOW 18
#define SM_MOUSEPRESENT 19
#define SM_CYVSCROLL 20
#define SM_CXHSCROLL 21
#define SM_DEBUG 22
#define SM_SWAPBUTTON 23
#define SM_CXMIN 28
#define SM_CYMIN 29
#define SM_CXSIZE 30
#define SM_CYSIZE 31
#define SM_CXFRAME 32
#define SM_CYFRAME 33
#define SM_CXSIZEFRAME SM_CXFRAME
#define SM_CYSIZEFRAME SM_CYFRAME
#define SM_CXMINTRACK 34
#define SM_CYMINTRACK 35
#define SM_CXDOUBLECLK 36
#define SM_CYDOUBLECLK 37
#define SM_CXICONSPACING 38
#define SM_CYICONSPACING 39
#define SM_MENUDROPALIGNMENT 40
#define SM_PENWINDOWS 41
#define SM_DBCSENABLED 42
#define SM_CMOUSEBUTTONS 43
#define SM_SECURE 44
#define SM_CXEDGE 45
#define SM_CYEDGE 46
#define SM_CXMINSPACING 47
#define SM_CYMINSPACING 48
#define SM_CXSMICON 49
#define SM_CYSMICON 50
#define SM_CYSMCAPTION 51
#define SM_CXSMSIZE 52
#define SM_CYSMSIZE 53
#define SM_CXMENUSIZE 54
#define SM_CYMENUSIZE 55
#define SM_ARRANGE 56
#define SM_CXMINIMIZED 57
#define SM_CYMINIMIZED 58
#define SM_CXMAXTRACK 59
#define SM_CYMAXTRACK 60
#define SM_CXMAXIMIZED 61
#define SM_CYMAXIMIZED 62
#define SM_NETWORK 63
#define SM_CLEANBOOT 67
#define SM_CXDRAG 68
#define SM_CYDRAG 69
#define SM_SHOWSOUNDS 70
#define SM_CXMENUCHECK 71
#define SM_CYMENUCHECK 72
#define SM_SLOWMACHINE 73
#define SM_MIDEASTENABLED 74
#define SM_MOUSEWHEELPRESENT 75
#define SM_XVIRTUALSCREEN 76
#define SM_YVIRTUALSCREEN 77
#define SM_CXVIRTUALSCREEN 78
#define SM_CYVIRTUALSCREEN 79
#define SM_CMONITORS 80
#define SM_SAMEDISPLAYFORMAT 81
#define SM_IMMENABLED 82
#define SM_CXFOCUSBORDER 83
#define SM_CYFOCUSBORDER 84
// 0 for an index that is not known.
WINUSERAPI int WINAPI GetSystemMetrics(int index);

// Message boxes, and the controls that they are made of.
#define MB_OK 0x0000
#define MB_OKCANCEL 0x0001
#define MB_ABORTRETRYIGNORE 0x0002
#define MB_YESNOCANCEL 0x0003
#define MB_YESNO 0x0004
#define MB_RETRYCANCEL 0x0005
#define MB_TYPEMASK 0x000F
#define MB_ICONHAND 0x0010
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONSTOP MB_ICONHAND
#define MB_ICONQUESTION 0x0020
#define MB_ICONEXCLAMATION 0x0030
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONASTERISK 0x0040
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_ICONMASK 0x00F0
#define MB_DEFBUTTON1 0x0000
#define MB_DEFBUTTON2 0x0100
#define MB_DEFBUTTON3 0x0200
#define MB_DEFMASK 0x0F00
#define MB_APPLMODAL 0x0000
#define MB_SYSTEMMODAL 0x1000
#define MB_TASKMODAL 0x2000
#define MB_HELP 0x4000
#define MB_SETFOREGROUND 0x00010000
#define MB_TOPMOST 0x00040000
#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8
#define IDHELP 9
// A real window with buttons; Return presses the default one, Escape cancels. In a program whose screen nobody
// sees it waits for scripted input like any other window.
WINUSERAPI int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);
#define MessageBox MessageBoxA

#define BS_PUSHBUTTON 0x0000
#define BS_DEFPUSHBUTTON 0x0001
#define BS_CHECKBOX 0x0002
#define BS_AUTOCHECKBOX 0x0003
#define BS_RADIOBUTTON 0x0004
#define BS_AUTORADIOBUTTON 0x0009
#define BS_GROUPBOX 0x0007
#define BS_NOTIFY 0x4000
#define BM_GETCHECK 0x00F0
#define BM_SETCHECK 0x00F1
#define BM_GETSTATE 0x00F2
#define BM_SETSTATE 0x00F3
#define BM_SETSTYLE 0x00F4
#define BM_CLICK 0x00F5
#define BN_CLICKED 0
#define BN_SETFOCUS 6
#define BN_KILLFOCUS 7
#define BST_UNCHECKED 0
#define BST_CHECKED 1
#define BST_INDETERMINATE 2
#define BST_PUSHED 4
#define BST_FOCUS 8
#define SS_LEFT 0x0000
#define SS_CENTER 0x0001
#define SS_RIGHT 0x0002
#define SS_ICON 0x0003
#define SS_BLACKRECT 0x0004
#define SS_GRAYRECT 0x0005
#define SS_WHITERECT 0x0006
#define SS_BLACKFRAME 0x0007
#define SS_SIMPLE 0x000B
#define SS_LEFTNOWORDWRAP 0x000C
#define SS_NOPREFIX 0x0080
#define DLGC_WANTARROWS 0x0001
#define DLGC_WANTTAB 0x0002
#define DLGC_WANTALLKEYS 0x0004
#define DLGC_DEFPUSHBUTTON 0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_STATIC 0x0100
#define DLGC_BUTTON 0x2000

#define MF_INSERT 0x0000
#define MF_CHANGE 0x0080
#define MF_APPEND 0x0100
#define MF_DELETE 0x0200
#define MF_REMOVE 0x1000
#define MF_BYCOMMAND 0x0000
#define MF_BYPOSITION 0x0400
#define MF_SEPARATOR 0x0800
#define MF_ENABLED 0x0000
#define MF_GRAYED 0x0001
#define MF_DISABLED 0x0002
#define MF_UNCHECKED 0x0000
#define MF_CHECKED 0x0008
#define MF_USECHECKBITMAPS 0x0200
#define MF_STRING 0x0000
#define MF_BITMAP 0x0004
#define MF_OWNERDRAW 0x0100
#define MF_POPUP 0x0010
#define MF_MENUBARBREAK 0x0020
#define MF_MENUBREAK 0x0040
#define MF_UNHILITE 0x0000
#define MF_HILITE 0x0080
#define MF_DEFAULT 0x1000
#define MF_SYSMENU 0x2000
#define MF_HELP 0x4000
#define MF_RIGHTJUSTIFY 0x4000
#define MF_MOUSESELECT 0x8000
#define MFT_STRING MF_STRING
#define MFT_BITMAP MF_BITMAP
#define MFT_MENUBARBREAK MF_MENUBARBREAK
#define MFT_MENUBREAK MF_MENUBREAK
#define MFT_OWNERDRAW MF_OWNERDRAW
#define MFT_RADIOCHECK 0x0200
#define MFT_SEPARATOR MF_SEPARATOR
#define MFT_RIGHTORDER 0x2000
#define MFT_RIGHTJUSTIFY MF_RIGHTJUSTIFY
#define MFS_GRAYED 0x0003
#define MFS_DISABLED MFS_GRAYED
#define MFS_CHECKED MF_CHECKED
#define MFS_HILITE MF_HILITE
#define MFS_ENABLED MF_ENABLED
#define MFS_UNCHECKED MF_UNCHECKED
#define MFS_UNHILITE MF_UNHILITE
#define MFS_DEFAULT MF_DEFAULT

#define MIIM_STATE 0x0001
#define MIIM_ID 0x0002
#define MIIM_SUBMENU 0x0004
#define MIIM_CHECKMARKS 0x0008
#define MIIM_TYPE 0x0010
#define MIIM_DATA 0x0020
#define MIIM_STRING 0x0040
#define MIIM_BITMAP 0x0080
#define MIIM_FTYPE 0x0100
typedef struct tagMENUITEMINFOA {
    UINT cbSize;
    UINT fMask;
    UINT fType;
    UINT fState;
    UINT wID;
    HMENU hSubMenu;
    HBITMAP hbmpChecked;
    HBITMAP hbmpUnchecked;
    ULONG_PTR dwItemData;
    LPSTR dwTypeData;
    UINT cch;
    HBITMAP hbmpItem;
} MENUITEMINFOA, *LPMENUITEMINFOA;
typedef const MENUITEMINFOA *LPCMENUITEMINFOA;

#define MNS_NOCHECK 0x80000000
#define MNS_MODELESS 0x40000000
#define MNS_DRAGDROP 0x20000000
#define MNS_AUTODISMISS 0x10000000
#define MNS_NOTIFYBYPOS 0x08000000
#define MNS_CHECKORBMP 0x04000000
#define MIM_MAXHEIGHT 0x00000001
#define MIM_BACKGROUND 0x00000002
#define MIM_HELPID 0x00000004
#define MIM_MENUDATA 0x00000008
#define MIM_STYLE 0x00000010
#define MIM_APPLYTOSUBMENUS 0x80000000
typedef struct tagMENUINFO {
    DWORD cbSize;
    DWORD fMask;
    DWORD dwStyle;
    UINT cyMax;
    HBRUSH hbrBack;
    DWORD dwContextHelpID;
    ULONG_PTR dwMenuData;
} MENUINFO, *LPMENUINFO;
typedef const MENUINFO *LPCMENUINFO;

WINUSERAPI HMENU WINAPI CreateMenu(void);
WINUSERAPI HMENU WINAPI CreatePopupMenu(void);
WINUSERAPI BOOL WINAPI DestroyMenu(HMENU menu);
WINUSERAPI BOOL WINAPI AppendMenuA(HMENU menu, UINT flags, UINT_PTR id, LPCSTR content);
WINUSERAPI BOOL WINAPI InsertMenuA(HMENU menu, UINT before, UINT flags, UINT_PTR id, LPCSTR content);
WINUSERAPI BOOL WINAPI ModifyMenuA(HMENU menu, UINT item, UINT flags, UINT_PTR id, LPCSTR content);
WINUSERAPI BOOL WINAPI DeleteMenu(HMENU menu, UINT item, UINT flags);
WINUSERAPI DWORD WINAPI CheckMenuItem(HMENU menu, UINT item, UINT flags);
WINUSERAPI BOOL WINAPI EnableMenuItem(HMENU menu, UINT item, UINT flags);
WINUSERAPI UINT WINAPI GetMenuState(HMENU menu, UINT item, UINT flags);
WINUSERAPI int WINAPI GetMenuStringA(HMENU menu, UINT item, LPSTR buffer, int size, UINT flags);
WINUSERAPI int WINAPI GetMenuItemCount(HMENU menu);
WINUSERAPI UINT WINAPI GetMenuItemID(HMENU menu, int position);
WINUSERAPI HMENU WINAPI GetSubMenu(HMENU menu, int position);
WINUSERAPI BOOL WINAPI GetMenuItemInfoA(HMENU menu, UINT item, BOOL isByPosition, LPMENUITEMINFOA info);
WINUSERAPI BOOL WINAPI SetMenuItemInfoA(HMENU menu, UINT item, BOOL isByPosition, LPCMENUITEMINFOA info);
WINUSERAPI BOOL WINAPI GetMenuInfo(HMENU menu, LPMENUINFO info);
WINUSERAPI BOOL WINAPI SetMenuInfo(HMENU menu, LPCMENUINFO info);
WINUSERAPI HMENU WINAPI GetMenu(HWND window);
WINUSERAPI BOOL WINAPI SetMenu(HWND window, HMENU menu);
WINUSERAPI BOOL WINAPI DrawMenuBar(HWND window);
WINUSERAPI BOOL WINAPI HiliteMenuItem(HWND window, HMENU menu, UINT item, UINT flags);
// With a null window only a menu that is on the screen as a pop-up has rectangles.
WINUSERAPI BOOL WINAPI GetMenuItemRect(HWND window, HMENU menu, UINT item, LPRECT rect);
WINUSERAPI HMENU WINAPI GetSystemMenu(HWND window, BOOL reset);
typedef void MENUTEMPLATEA;
WINUSERAPI HMENU WINAPI LoadMenuA(HINSTANCE module, LPCSTR name);
WINUSERAPI HMENU WINAPI LoadMenuIndirectA(const MENUTEMPLATEA *menuTemplate);

#define MSGF_MENU 2
#define MNC_IGNORE 0
#define MNC_CLOSE 1
#define MNC_EXECUTE 2
#define MNC_SELECT 3

#define ODT_MENU 1
#define ODA_DRAWENTIRE 0x0001
#define ODA_SELECT 0x0002
#define ODS_SELECTED 0x0001
#define ODS_GRAYED 0x0002
#define ODS_DISABLED 0x0004
#define ODS_CHECKED 0x0008
#define ODS_DEFAULT 0x0020
typedef struct tagMEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
} MEASUREITEMSTRUCT, *PMEASUREITEMSTRUCT, *LPMEASUREITEMSTRUCT;
typedef struct tagDRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem; // of a menu's item the menu
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
} DRAWITEMSTRUCT, *PDRAWITEMSTRUCT, *LPDRAWITEMSTRUCT;

#define TPM_LEFTBUTTON 0x0000
#define TPM_RECURSE 0x0001
#define TPM_RIGHTBUTTON 0x0002
#define TPM_LEFTALIGN 0x0000
#define TPM_CENTERALIGN 0x0004
#define TPM_RIGHTALIGN 0x0008
#define TPM_TOPALIGN 0x0000
#define TPM_VCENTERALIGN 0x0010
#define TPM_BOTTOMALIGN 0x0020
#define TPM_HORIZONTAL 0x0000
#define TPM_VERTICAL 0x0040
#define TPM_NONOTIFY 0x0080
#define TPM_RETURNCMD 0x0100
typedef struct tagTPMPARAMS {
    UINT cbSize;
    RECT rcExclude;
} TPMPARAMS, *LPTPMPARAMS;
WINUSERAPI BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner, const RECT *ignored);
WINUSERAPI BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, LPTPMPARAMS parameters);
// Ends the menu that the calling thread shows.
WINUSERAPI BOOL WINAPI EndMenu(void);

#endif
