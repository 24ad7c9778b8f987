// The transfer modes of copied bits.
#include "CopyPaths_internal.h"

namespace {

// Codes without a name: not source and destination, source or not destination.
constexpr DWORD clearSourceBits = 0x00220326;

enum { adMin = 27 };

constexpr DWORD operationOf(int mode)
{
    switch (mode) {
    case srcOr:
    case patOr: return SRCPAINT;
    case srcXor:
    case addOver: return SRCINVERT;
    case srcBic: return clearSourceBits;
    case notSrcOr: return MERGEPAINT;
    case notSrcBic: return SRCAND;
    case adMin: return WHITENESS;
    default: return SRCCOPY;
    }
}

} // namespace

DWORD rasterOperationOf(SInt16 transferMode)
{
    return operationOf(transferMode);
}
