/* Pictures, icons and cursors.

   There is no QuickDraw picture format. A picture is a packed bitmap with the picture header in front of it, or a
   record that names a Win32 bitmap; nothing is recorded. */
#ifndef MTBX_PICTURES_H
#define MTBX_PICTURES_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

#pragma pack(push, 2)

typedef struct Picture {
    SInt16 picSize;
    Rect picFrame;
} Picture;
typedef Picture *PicPtr;
typedef PicPtr *PicHandle;

/* What the Picture Utilities tell; only sourceRect is filled in. */
typedef struct PictInfo {
    SInt16 version;
    SInt32 uniqueColors;
    Handle thePalette;
    CTabHandle theColorTable;
    Fixed hRes;
    Fixed vRes;
    SInt16 depth;
    Rect sourceRect;
    UInt32 textCount;
    UInt32 lineCount;
    UInt32 rectCount;
    UInt32 rRectCount;
    UInt32 ovalCount;
    UInt32 arcCount;
    UInt32 polyCount;
    UInt32 regionCount;
    UInt32 bitMapCount;
    UInt32 pixMapCount;
    UInt32 commentCount;
    UInt32 uniqueComments;
    Handle commentHandle;
    UInt32 uniqueFonts;
    Handle fontHandle;
    Handle fontNamesHandle;
    UInt32 reserved1;
    UInt32 reserved2;
    UInt32 reserved3;
} PictInfo;

#pragma pack(pop)

MTBX_ASSERT(sizeof(Picture) == 10);
MTBX_ASSERT_OFFSET_32(PictInfo, sourceRect, 24);
MTBX_ASSERT_SIZE_32(PictInfo, 108);

typedef struct CIcon CIcon;
typedef CIcon **CIconHandle;
typedef CursHandle CCrsrHandle;

/* Indices of the system's cursors. */
enum { iBeamCursor = 1, crossCursor = 2, plusCursor = 3, watchCursor = 4 };

/* The PICT resource, as GetResource gives it. */
MTBX_API PicHandle GetPicture(SInt16 pictureID);
/* Draws at the rectangle's top left corner, without scaling: a packed bitmap in its own size, a Win32 bitmap cut
   off by the rectangle. In a one-bit bitmap 0 is the port's background colour and 1 black. Transfer modes play
   no part. A damaged picture draws nothing. */
MTBX_API void DrawPicture(PicHandle myPicture, const Rect *dstRect);
/* Null, and nothing: drawing between them goes to the port. */
MTBX_API PicHandle OpenPicture(const Rect *picFrame);
MTBX_API void ClosePicture(void);
/* Deletes the Win32 bitmap that the record names and releases the resource. */
MTBX_API void KillPicture(PicHandle myPicture);
/* The frame, and the pointer to it as the result. */
MTBX_API Rect *QDGetPictureBounds(PicHandle picture, Rect *outRect);

/* The arguments behind the record are not looked at; C++ programs may leave them out. */
#ifdef __cplusplus
#define MTBX_UNUSED_ARGUMENT = 0
#else
#define MTBX_UNUSED_ARGUMENT
#endif
MTBX_API OSErr GetPictInfo(PicHandle thePictHandle, PictInfo *thePictInfo, SInt16 verb MTBX_UNUSED_ARGUMENT,
                           SInt16 colorsRequested MTBX_UNUSED_ARGUMENT, SInt16 colorPickMethod MTBX_UNUSED_ARGUMENT,
                           SInt16 version MTBX_UNUSED_ARGUMENT);

/* The ICON resource. Without one, the bits of the host's Win32 bitmap of that number, with the ID, 'ICON' and the
   count of bytes behind them; the resource chain owns that too. Null when there is neither. */
MTBX_API Handle GetIcon(SInt16 iconID);
/* Null, and nothing. */
MTBX_API CIconHandle GetCIcon(SInt16 iconID);
MTBX_API void PlotCIcon(const Rect *theRect, CIconHandle theIcon);
MTBX_API void DisposeCIcon(CIconHandle theIcon);

/* A cursor: the system's for the indices above, else one made of the CURS resource with the number after the ID's,
   or the host's native cursor of that number. ID 1029 is the animated cursor while gAnimCursor is set. The handle
   holds an HCURSOR and is the library's; up to 256 are kept, then the oldest ends. Null when there is none. */
MTBX_API CursHandle MacGetCursor(SInt16 cursorID);
MTBX_API CCrsrHandle GetCCursor(SInt16 cursorID);
/* Does nothing: the library keeps it. */
MTBX_API void DisposCCursor(CCrsrHandle cursor);
/* Shows a cursor that is not shown already; null does nothing. */
MTBX_API void MacSetCursor(const Cursor *cursor);
/* The arrow. */
MTBX_API void InitCursor(void);
/* These nest as ShowCursor does. */
MTBX_API void HideCursor(void);
MTBX_API void MacShowCursor(void);
/* The folder beside the program that holds the animated cursor, render.ANI; "Required" unless it is said. */
MTBX_API void MTBX_SetAnimatedCursorDirectory(const char *directory);

#ifdef __cplusplus
}
#endif

#endif
