/* The order of bytes in a Macintosh's files and resources: the highest comes first. B is that order, L the other, N the
   processor's; EndianS32_BtoN(value) makes a value that was read from such a file a number here, EndianS32_NtoB one
   that is to be written. */
#ifndef HOSTKIT_BYTE_ORDER_H
#define HOSTKIT_BYTE_ORDER_H

#include <mtbx/MacTypes.h>

#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
#define HOSTKIT_BIG_TO_NATIVE(bits, value) __builtin_bswap##bits((UInt##bits)(value))
#define HOSTKIT_LITTLE_TO_NATIVE(bits, value) ((UInt##bits)(value))
#else
#define HOSTKIT_BIG_TO_NATIVE(bits, value) ((UInt##bits)(value))
#define HOSTKIT_LITTLE_TO_NATIVE(bits, value) __builtin_bswap##bits((UInt##bits)(value))
#endif

#define EndianU16_BtoN(value) ((UInt16)HOSTKIT_BIG_TO_NATIVE(16, value))
#define EndianS16_BtoN(value) ((SInt16)HOSTKIT_BIG_TO_NATIVE(16, value))
#define EndianU32_BtoN(value) ((UInt32)HOSTKIT_BIG_TO_NATIVE(32, value))
#define EndianS32_BtoN(value) ((SInt32)HOSTKIT_BIG_TO_NATIVE(32, value))
#define EndianU64_BtoN(value) ((UInt64)HOSTKIT_BIG_TO_NATIVE(64, value))
#define EndianS64_BtoN(value) ((SInt64)HOSTKIT_BIG_TO_NATIVE(64, value))
#define EndianU16_LtoN(value) ((UInt16)HOSTKIT_LITTLE_TO_NATIVE(16, value))
#define EndianS16_LtoN(value) ((SInt16)HOSTKIT_LITTLE_TO_NATIVE(16, value))
#define EndianU32_LtoN(value) ((UInt32)HOSTKIT_LITTLE_TO_NATIVE(32, value))
#define EndianS32_LtoN(value) ((SInt32)HOSTKIT_LITTLE_TO_NATIVE(32, value))
#define EndianU64_LtoN(value) ((UInt64)HOSTKIT_LITTLE_TO_NATIVE(64, value))
#define EndianS64_LtoN(value) ((SInt64)HOSTKIT_LITTLE_TO_NATIVE(64, value))

/* The way back is the same. */
#define EndianU16_NtoB EndianU16_BtoN
#define EndianS16_NtoB EndianS16_BtoN
#define EndianU32_NtoB EndianU32_BtoN
#define EndianS32_NtoB EndianS32_BtoN
#define EndianU64_NtoB EndianU64_BtoN
#define EndianS64_NtoB EndianS64_BtoN
#define EndianU16_NtoL EndianU16_LtoN
#define EndianS16_NtoL EndianS16_LtoN
#define EndianU32_NtoL EndianU32_LtoN
#define EndianS32_NtoL EndianS32_LtoN
#define EndianU64_NtoL EndianU64_LtoN
#define EndianS64_NtoL EndianS64_LtoN

#endif
