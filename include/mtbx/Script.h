/* The Script Manager: the numbers of scripts, native character sets and code pages, and double-byte text.
   Nothing here converts text between encodings. */
#ifndef MTBX_SCRIPT_H
#define MTBX_SCRIPT_H

#include <mtbx/MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
    smSystemScript = -1,
    smCurrentScript = -2,
    smRoman = 0,
    smJapanese = 1,
    smTradChinese = 2,
    smKorean = 3,
    smArabic = 4,
    smHebrew = 5,
    smGreek = 6,
    smCyrillic = 7,
    smThai = 21,
    smSimpChinese = 25,
    smCentralEuroRoman = 29,
    smVietnamese = 30
};

/* What CharByte and CharacterByteType give. */
enum {
    smFirstByte = -1,
    smSingleByte = 0,
    smLastByte = 1
};

/* Selectors of GetScriptManagerVariable. */
enum {
    smKeyScript = 22,
    smDoubleByte = 36
};

/* The native code page of a character set (lfCharSet of a font): that of the system for DEFAULT_CHARSET (1),
   1252 for a set that is not known. */
MTBX_API UInt32 MTBX_CharsetToCodePage(UInt8 characterSet);
/* The script of a character set, smRoman for one that has none; so for Turkish and Baltic sets. */
MTBX_API ScriptCode MTBX_CharSetToScript(UInt8 characterSet);

/* The character set and the code page of a script, those of Roman for a number that is none. smSystemScript has the
   character set of the system's font, smCurrentScript that of the current port's, or of the system's when the port
   has none yet. */
MTBX_API UInt8 MTBX_MacScriptToCharSet(ScriptCode script);
MTBX_API UInt32 MTBX_MacScriptToCodePage(ScriptCode script);

/* smKeyScript gives the keyboard's script, which is always smRoman; smDoubleByte is not 0 on a system with
   double-byte text; any other selector gives 0. */
MTBX_API SInt32 GetScriptManagerVariable(SInt16 selector);
/* There are no variables of scripts: 0. */
MTBX_API SInt32 GetScriptVariable(SInt16 script, SInt16 selector);

/* The resource itl1, 128 for id 1, itl0, 128 for any other, as it was when first asked for. The handle is the
   library's own and is never null; its master pointer is null when there was no such resource then. It must not be
   disposed or resized. The fields stand as the resource has them. */
MTBX_API Handle GetIntlResource(SInt16 id);

/* Whether the byte of a text at an offset is a character by itself or the first or last byte of one of two
   bytes, in the system's code page. text is the start of the text, not of the byte: only a walk from there
   tells. A negative offset gives smLastByte. */
MTBX_API SInt16 CharByte(const char *text, SInt16 offset);
/* The same in the code page of a script. */
MTBX_API SInt16 CharacterByteType(const char *text, SInt16 offset, ScriptCode script);

/* The height of a native menu bar in pixels. */
MTBX_API SInt32 GetMBarHeight(void);

#ifdef __cplusplus
}
#endif

#endif
