// Searches in strings of one- and two-byte characters of the active code page.
#ifndef WIN32_MBSTRING_H
#define WIN32_MBSTRING_H

#pragma GCC system_header

#ifdef __cplusplus
extern "C" {
#endif

// The first and the last place of a character; the second byte of a double-byte character is
// never taken for a character of its own. A character above 0xFF is a lead byte in its high and
// a trail byte in its low half.
__attribute__((visibility("default"))) unsigned char *_mbschr(const unsigned char *text, unsigned int character);
__attribute__((visibility("default"))) unsigned char *_mbsrchr(const unsigned char *text, unsigned int character);

#ifdef __cplusplus
}
#endif

#endif
