// Calls of the user interface.
#ifndef WIN32_WINUSER_H
#define WIN32_WINUSER_H

#pragma GCC system_header

#include <windef.h>

#define RT_BITMAP ((LPSTR)2)
#define RT_STRING ((LPSTR)6)

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
#define CharNext CharNextA
#define CharPrev CharPrevA

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
#define BF_MIDDLE 0x0800
#define BF_SOFT 0x1000
#define BF_ADJUST 0x2000
#define BF_FLAT 0x4000
#define BF_MONO 0x8000
// Straight sides only; BF_DIAGONAL is not known.
WINUSERAPI BOOL WINAPI DrawEdge(HDC context, LPRECT rect, UINT edge, UINT flags);
#define DFC_CAPTION 1
#define DFC_SCROLL 3
#define DFC_BUTTON 4
#define DFCS_CAPTIONCLOSE 0x0000
#define DFCS_CAPTIONMIN 0x0001
#define DFCS_CAPTIONMAX 0x0002
#define DFCS_CAPTIONRESTORE 0x0003
#define DFCS_CAPTIONHELP 0x0004
#define DFCS_SCROLLUP 0x0000
#define DFCS_SCROLLDOWN 0x0001
#define DFCS_SCROLLLEFT 0x0002
#define DFCS_SCROLLRIGHT 0x0003
#define DFCS_SCROLLCOMBOBOX 0x0005
#define DFCS_SCROLLSIZEGRIP 0x0008
#define DFCS_BUTTONCHECK 0x0000
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
// 0 for an index that is not known.
WINUSERAPI int WINAPI GetSystemMetrics(int index);

#endif
