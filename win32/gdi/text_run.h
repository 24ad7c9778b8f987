// A piece of text in the font of a context: its characters with their widths, in pixels.
#pragma once

#include "device_context.h"
#include "realized_font.h"

#include <type_traits>

namespace win32::gdi {

class TextRun {
public:
    // The widths, when there are some, are logical ones, one for each byte.
    TextRun(DeviceContext &dc, const char *text, size_t count, const INT *widths = nullptr)
        : font_(dc.realizedFont()), dc_(dc), text_(reinterpret_cast<const uint8_t *>(text)), count_(count),
          widths_(widths)
    {
        const ContextState &state = dc.state;
        characterExtra_ =
            dc.isTranslation() ? state.characterExtra : static_cast<int>(scaledWidth(state.characterExtra));
        if (state.breakCount > 0 && state.breakExtra != 0) {
            breakExtra_ = dc.deviceWidth(state.breakExtra) / state.breakCount;
            widerBreaks_ = dc.deviceWidth(state.breakExtra) % state.breakCount;
        }
        isPlain_ = font_.isSingleByte() && !widths_ && characterExtra_ == 0 && breakExtra_ == 0 && widerBreaks_ == 0;
    }

    RealizedFont &font() const { return font_; }

    int64_t width() const
    {
        int64_t sum = 0;
        if (isPlain_) {
            for (const uint8_t *place = text_; place != text_ + count_; ++place)
                sum += font_.advance(*place);
        } else {
            each([&sum](uint16_t, size_t, int64_t, int64_t right) { sum = right; });
        }
        return sum;
    }

    // Calls visit(code, bytes, left, right) for each character, with positions from the start of the text, until
    // the end or until visit gives false.
    template <class Visit> void each(Visit visit) const
    {
        const uint8_t *place = text_;
        const uint8_t *end = text_ + count_;
        int64_t left = 0;
        int64_t logical = 0;
        int breaks = 0;
        while (place != end) {
            const uint8_t *start = place;
            uint16_t code = font_.take(place, end);
            int64_t right;
            if (widths_) {
                for (const uint8_t *byte = start; byte != place; ++byte)
                    logical += widths_[byte - text_];
                right = dc_.isTranslation() ? logical : scaledWidth(logical);
            } else {
                right = left + font_.advance(code) + characterExtra_;
                if (code == ' ')
                    right += breakExtra_ + (breaks++ < widerBreaks_ ? 1 : 0);
            }
            if constexpr (std::is_same_v<decltype(visit(code, size_t{}, left, right)), bool>) {
                if (!visit(code, static_cast<size_t>(place - start), left, right))
                    return;
            } else {
                visit(code, static_cast<size_t>(place - start), left, right);
            }
            left = right;
        }
    }

private:
    int64_t scaledWidth(int64_t logical) const
    {
        const ContextState &state = dc_.state;
        double scale = std::fabs(double{1} * state.viewportExtent.cx / state.windowExtent.cx);
        return roundedToInt(static_cast<double>(logical) * scale);
    }

    RealizedFont &font_;
    const DeviceContext &dc_;
    const uint8_t *text_;
    size_t count_;
    const INT *widths_;
    int characterExtra_ = 0;
    int breakExtra_ = 0;
    int widerBreaks_ = 0;
    bool isPlain_ = true;
};

// Pixels as logical units of a context, to the nearest.
int logicalWidth(const DeviceContext &dc, int64_t pixels);
int logicalHeight(const DeviceContext &dc, int64_t pixels);

} // namespace win32::gdi
