// The check at start-up that the display can do what imaging needs.
#include "DisplayCapabilities_internal.h"

#include "Frame/Strings_internal.h"

#include <mtbx/MTBXGdi.h>
#include <mtbx/MTBXGlobals.h>

#include <string_view>

namespace {

enum : SInt32 {
    kNotSupportedText = 9,
    kFatalTitle = 10,
    kWarningTitle = 21,
    kFewColorsQuestion = 22,
    kTooFewColorsText = 23
};

struct Capability {
    UInt16 bit;
    const char *name;
};
constexpr Capability basicCapabilities[] = {
    {RC_BITBLT, "RC_BITBLT"}, {RC_DI_BITMAP, "RC_DI_BITMAP"}, {RC_DIBTODEV, "DIBTODEV"}, {RC_BITMAP64, "BITMAP > 64K"}};
constexpr Capability stretchCapabilities[] = {{RC_STRETCHBLT, "STRETCHBLT"}, {RC_STRETCHDIB, "STRETCHDIB"}};

template <size_t count> const char *firstMissing(const Capability (&capabilities)[count], UInt16 present)
{
    for (const Capability &capability : capabilities)
        if (!(present & capability.bit))
            return capability.name;
    return nullptr;
}

const char *missingCapability(UInt16 present, bool shortCheck)
{
    const char *missing = firstMissing(basicCapabilities, present);
    return missing || shortCheck ? missing : firstMissing(stretchCapabilities, present);
}

void showFailure(const char *text)
{
    MessageBoxA(hWndMain, text, MTBX_GetStringConstant(kFatalTitle), MB_ICONHAND | MB_SYSTEMMODAL);
}

class Text {
public:
    void add(char c)
    {
        if (length_ < sizeof characters_ - 1)
            characters_[length_++] = c;
    }
    void add(std::string_view text)
    {
        for (char c : text)
            add(c);
    }
    const char *characters() const { return characters_; }

private:
    char characters_[512] = "";
    size_t length_ = 0;
};

// The host may have translated the text, so it is not trusted as a format: only %s and %% mean
// something.
void showMissing(const char *name)
{
    Text text;
    for (const char *c = MTBX_GetStringConstant(kNotSupportedText); *c; ++c) {
        if (c[0] == '%' && (c[1] == 's' || c[1] == '%')) {
            ++c;
            text.add(*c == 's' ? std::string_view(name) : std::string_view("%"));
        } else {
            text.add(*c);
        }
    }
    showFailure(text.characters());
}

bool acceptsFewColors()
{
    return MessageBoxA(hWndMain, MTBX_GetStringConstant(kFewColorsQuestion), MTBX_GetStringConstant(kWarningTitle),
                       MB_YESNO | MB_ICONEXCLAMATION | MB_SYSTEMMODAL)
           != IDNO;
}

bool judgeDepth(int bitsPerPixel)
{
    if (bitsPerPixel == 8)
        return acceptsFewColors();
    if (bitsPerPixel > 8)
        return true;
    showFailure(MTBX_GetStringConstant(kTooFewColorsText));
    return false;
}

} // namespace

bool judgeDisplay(UInt16 rasterCapabilities, int bitsPerPixel, bool shortCheck)
{
    if (const char *missing = missingCapability(rasterCapabilities, shortCheck)) {
        showMissing(missing);
        return false;
    }
    return shortCheck || judgeDepth(bitsPerPixel);
}

Boolean MTBX_VerifyDisplayCapabilities(Boolean shortCheck)
{
    HDC context = MTBX_CreateCompatibleDC(nullptr);
    auto rasterCapabilities = static_cast<UInt16>(GetDeviceCaps(context, RASTERCAPS));
    int bitsPerPixel = GetDeviceCaps(context, BITSPIXEL);
    DeleteDC(context);
    return judgeDisplay(rasterCapabilities, bitsPerPixel, shortCheck);
}
