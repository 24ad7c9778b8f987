/* Text of QuickDraw: drawn at the pen of the current port, on the base line, in the port's font.

   Text is bytes of the system's code page; two-byte characters are kept whole. The font goes into the port's
   context when it is first needed, and stays the former one when it cannot be had. Heights and widths are the
   system's, in pixels. */
#ifndef MTBX_QUICKDRAWTEXT_H
#define MTBX_QUICKDRAWTEXT_H

#include <mtbx/Quickdraw.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The bits of a style. outline and those behind it show no difference. */
enum { normal = 0, bold = 1, italic = 2, underline = 4, outline = 8, shadow = 0x10, condense = 0x20, extend = 0x40 };

/* Justifications of TextBox. */
enum { teJustLeft = 0, teJustCenter = 1, teJustRight = -1 };

/* The text state of the current port. Of the style, bold (1), italic (2) and underline (4) count; the size is
   the height of the characters in pixels. */
MTBX_API void TextFont(SInt16 font);
MTBX_API void TextFace(SInt16 face);
MTBX_API void TextSize(SInt16 size);
/* 1 (srcOr) leaves what is behind the characters, every other mode paints the background colour there. Only
   DrawString knows one more mode. */
MTBX_API void TextMode(SInt16 mode);

/* Puts the font that the port's text state asks for into its context, or takes the library's font out again;
   drawing and measuring do this by themselves. Results are those of Fonts.h. */
MTBX_API SInt16 MTBX_SelectFont(GrafPtr port);
MTBX_API SInt16 MTBX_UnselectFont(GrafPtr port);

/* Draws byteCount bytes from firstByte on; a NUL ends them. Carriage returns and line feeds end a line: the
   next one begins below, at the same h. The pen moves behind the last line, and one line further down for a
   line end that is the last byte. At most 32765 bytes. */
MTBX_API void MacDrawText(const void *text, SInt16 firstByte, SInt16 byteCount);
/* In mode 2 (srcXor) turns over the pixels of at most 200 by 20 around the text, and leaves the pen. */
MTBX_API void DrawString(ConstStr255Param text);
/* One byte, or two where the high byte is neither 0 nor 0xFF. A font that cannot be had is told by QDError. */
MTBX_API void DrawChar(SInt16 character);

/* Widths, with what slanted characters hang over. Of a vertical face, whose name begins with '@', TextWidth
   and TextWidthVertical change places; of others the latter is the height of so many lines. */
MTBX_API SInt32 StringWidth(ConstStr255Param text);
MTBX_API SInt32 CharWidth(SInt16 character);
MTBX_API SInt16 TextWidth(const void *text, SInt16 firstByte, SInt16 byteCount);
MTBX_API SInt32 TextWidthVertical(const void *text, SInt16 firstByte, SInt16 byteCount);
/* Writes the byte for the character set too. */
MTBX_API void GetFontInfo(FontInfo *info);

/* Draws a C string with its first line at the top of the box. Nothing is wrapped, cut or erased, and the
   length does not count. The pen is where the text began afterwards. */
MTBX_API void TextBox(const void *text, SInt32 length, const Rect *box, SInt16 justification);

#ifdef __cplusplus
}
#endif

#endif
