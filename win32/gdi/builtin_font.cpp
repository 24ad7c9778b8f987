#include "builtin_font.h"

#include <algorithm>
#include <cstdlib>

namespace win32::gdi {
namespace {

using Measures = BuiltinMeasures;
constexpr int firstDrawnRow = 2;
constexpr uint8_t unknownBox[] = {0x7e, 0x42, 0x42, 0x42, 0x42, 0x42, 0x42, 0x7e};

using Cell = uint8_t[Measures::height];

template <class Entry> const Entry *find(std::span<const Entry> entries, char32_t character)
{
    auto found = std::lower_bound(entries.begin(), entries.end(), character,
                                  [](const Entry &entry, char32_t wanted) { return entry.character < wanted; });
    return found != entries.end() && found->character == character ? &*found : nullptr;
}

bool isCapital(char16_t letter)
{
    return letter >= 'A' && letter <= 'Z';
}

void draw(char32_t character, Cell &cell)
{
    // The blanks and the hyphen that differ only in where lines break.
    if (character == 0xa0)
        character = ' ';
    else if (character == 0xad)
        character = '-';
    const BuiltinComposition *composition = find(builtinCompositions(), character);
    char32_t letter = composition ? composition->letter : character;
    if (const BuiltinDrawing *drawing = find(builtinDrawings(), letter)) {
        std::copy(std::begin(drawing->rows), std::end(drawing->rows), cell + firstDrawnRow);
    } else if (letter >= ' ') {
        std::copy(std::begin(unknownBox), std::end(unknownBox), cell + firstDrawnRow);
    }
    if (!composition)
        return;
    const BuiltinMark &mark = builtinMark(composition->mark);
    uint8_t *row = cell + (isCapital(composition->letter) ? mark.capitalRow : mark.smallRow);
    for (uint8_t bits : mark.rows)
        *row++ |= bits;
}

class BuiltinSource final : public GlyphSource {
public:
    explicit BuiltinSource(const LOGFONTA &description);
    GlyphImage load(char32_t character, Posture posture) override;

private:
    int scaleX_;
    int scaleY_;
    bool isBold_;
    bool isItalic_;
};

// The largest multiple of a length that is not above the wanted one, and at least the length itself.
int scaleFor(int64_t wanted, int length)
{
    return static_cast<int>(std::clamp<int64_t>(wanted / length, 1, 64));
}

BuiltinSource::BuiltinSource(const LOGFONTA &description)
    : scaleY_(description.lfHeight < 0
                  ? scaleFor(-int64_t{description.lfHeight}, Measures::height - Measures::internalLeading)
                  : scaleFor(description.lfHeight, Measures::height)),
      isBold_(description.lfWeight > 550), isItalic_(description.lfItalic != 0)
{
    scaleX_ = description.lfWidth ? scaleFor(std::abs(int64_t{description.lfWidth}), Measures::width) : scaleY_;
    metrics_.ascent = Measures::ascent * scaleY_;
    metrics_.descent = (Measures::height - Measures::ascent) * scaleY_;
    metrics_.internalLeading = Measures::internalLeading * scaleY_;
    metrics_.averageWidth = metrics_.maximalWidth = Measures::width * scaleX_;
    metrics_.underlineTop = scaleY_;
    metrics_.strikeoutTop = -3 * scaleY_;
    metrics_.lineThickness = scaleY_;
    metrics_.weight = isBold_ ? FW_BOLD : FW_NORMAL;
    metrics_.isItalic = isItalic_;
    metrics_.isFixedPitch = true;
    metrics_.family = FF_MODERN;
    metrics_.unitsPerEm = Measures::height - Measures::internalLeading;
}

GlyphImage BuiltinSource::load(char32_t character, Posture)
{
    Cell cell{};
    draw(character, cell);
    GlyphImage image;
    image.resize(Measures::width * scaleX_, Measures::height * scaleY_);
    image.top = -metrics_.ascent;
    image.advance = Measures::width * scaleX_;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            image.row(y)[x] = cell[y / scaleY_] >> (7 - x / scaleX_) & 1;
    // Letters leave the last column free, so bold ones need no wider cell.
    if (isBold_)
        makeBold(image, scaleX_);
    image.advance = Measures::width * scaleX_;
    if (isItalic_)
        makeItalic(image);
    return image;
}

} // namespace

std::unique_ptr<GlyphSource> builtinSource(const LOGFONTA &description)
{
    return std::make_unique<BuiltinSource>(description);
}

} // namespace win32::gdi
