// Glyphs of a face at one size, as one-bit pictures or smooth ones.
#include "font_catalog.h"
#include "font_face.h"
#include "realized_font.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cstdlib>

namespace win32::gdi {
namespace {

constexpr int largestSize = 1000;    // pixels an em
constexpr int largestPicture = 8192; // pixels each way
constexpr int defaultHeight = 16;    // of a font that asks for none

// A length in the font's units as pixels, to the nearest.
int scaled(int64_t length, int size, int unitsPerEm)
{
    int64_t product = length * size;
    return static_cast<int>((product >= 0 ? product + unitsPerEm / 2 : product - unitsPerEm / 2) / unitsPerEm);
}

bool wantsSmooth(BYTE quality)
{
    static const bool isSetSmooth = [] {
        const char *setting = getenv("WIN32_FONT_SMOOTHING");
        return setting && *setting && *setting != '0';
    }();
    return quality >= ANTIALIASED_QUALITY || (isSetSmooth && quality != NONANTIALIASED_QUALITY);
}

class FaceSource final : public GlyphSource {
public:
    FaceSource(std::shared_ptr<FontFace> face, const LOGFONTA &description, MadeStyles made);
    GlyphImage load(char32_t character, Posture posture) override;
    bool loadOutline(char32_t character, Posture posture, GlyphOutline &outline) override;

private:
    void setScalableMetrics();
    void setStrikeMetrics();
    int strikeFor(int height) const;
    FontFace &faceWith(char32_t character, unsigned &index);
    GlyphImage render(FontFace &face, unsigned index, Posture posture);
    bool isTurned() const { return metrics_.isScalable && !direction_.isLevel(); }
    FT_Int32 loadFlags(Posture posture) const;
    void shapeOutline(FT_GlyphSlotRec_ &glyph, Posture posture) const;
    void layOnItsBack(FT_GlyphSlotRec_ &glyph) const;
    int boldPixels() const { return 1 + height_ / 48; }
    void copyBitmap(const FT_Bitmap_ &bitmap, GlyphImage &image) const;

    std::shared_ptr<FontFace> face_;
    LOGFONTA description_;
    MadeStyles made_;
    TextDirection direction_;
    bool isSmooth_;
    int width_ = 0; // what FontFace::setSize takes
    int height_ = 0;
    std::vector<std::shared_ptr<FontFace>> substitutes_; // for characters that the face lacks
};

FaceSource::FaceSource(std::shared_ptr<FontFace> face, const LOGFONTA &description, MadeStyles made)
    : face_(std::move(face)), description_(description), made_(made), direction_(directionOf(description)),
      isSmooth_(wantsSmooth(description.lfQuality))
{
    FT_Face handle = face_->handle();
    metrics_.isScalable = face_->isScalable();
    if (metrics_.isScalable)
        setScalableMetrics();
    else
        setStrikeMetrics();
    metrics_.isItalic = made_.isItalic || (handle->style_flags & FT_STYLE_FLAG_ITALIC);
    metrics_.isFixedPitch = FT_IS_FIXED_WIDTH(handle);
    metrics_.averageWidth = std::max(metrics_.averageWidth, 1);
    metrics_.maximalWidth = std::max(metrics_.maximalWidth, metrics_.averageWidth);
    metrics_.lineThickness = std::max(metrics_.lineThickness, 1);
}

// The families of Windows' classes that the PANOSE numbers or the class of the OS/2 table tell.
uint8_t familyOf(const TT_OS2 &os2, bool isFixedPitch)
{
    if (isFixedPitch)
        return FF_MODERN;
    if (os2.panose[0] == 3)
        return FF_SCRIPT;
    if (os2.panose[0] == 4)
        return FF_DECORATIVE;
    int familyClass = os2.sFamilyClass >> 8;
    if (os2.panose[1] >= 11 || familyClass == 8)
        return FF_SWISS;
    return os2.panose[1] >= 2 || (familyClass >= 1 && familyClass <= 5) ? FF_ROMAN : FF_SWISS;
}

void FaceSource::setScalableMetrics()
{
    FT_Face handle = face_->handle();
    auto *os2 = static_cast<const TT_OS2 *>(FT_Get_Sfnt_Table(handle, FT_SFNT_OS2));
    int units = handle->units_per_EM;
    int64_t ascent = handle->ascender;
    int64_t descent = -int64_t{handle->descender};
    int64_t average = handle->max_advance_width / 2;
    if (os2 && os2->version != 0xffff) {
        if (os2->usWinAscent + os2->usWinDescent > 0) {
            ascent = os2->usWinAscent;
            descent = os2->usWinDescent;
        }
        if (os2->xAvgCharWidth > 0)
            average = os2->xAvgCharWidth;
        metrics_.family = familyOf(*os2, FT_IS_FIXED_WIDTH(handle));
    }
    if (ascent + descent <= 0) {
        ascent = units;
        descent = 0;
    }
    int64_t wanted = description_.lfHeight ? int64_t{description_.lfHeight} : defaultHeight;
    int64_t size = wanted < 0 ? -wanted : wanted * units / (ascent + descent);
    height_ = static_cast<int>(std::clamp<int64_t>(size, 1, largestSize));
    width_ = height_;
    if (description_.lfWidth && average > 0)
        width_ = static_cast<int>(std::clamp<int64_t>(
            (std::abs(int64_t{description_.lfWidth}) * units + average / 2) / average, 1, largestSize));

    metrics_.unitsPerEm = units;
    metrics_.ascent = scaled(ascent, height_, units);
    metrics_.descent = scaled(descent, height_, units);
    metrics_.internalLeading = std::max(metrics_.ascent + metrics_.descent - height_, 0);
    int64_t lineGap = int64_t{handle->height} - (ascent + descent);
    metrics_.externalLeading = lineGap > 0 ? scaled(lineGap, height_, units) : 0;
    metrics_.averageWidth = scaled(average, width_, units);
    metrics_.maximalWidth = scaled(handle->max_advance_width, width_, units) + (made_.isBold ? 1 : 0);
    metrics_.lineThickness = scaled(handle->underline_thickness, height_, units);
    metrics_.underlineTop =
        std::max(scaled(-int64_t{handle->underline_position}, height_, units) - metrics_.lineThickness / 2, 1);
    bool hasStrikeout = os2 && os2->version != 0xffff && os2->yStrikeoutPosition > 0;
    metrics_.strikeoutTop = -scaled(hasStrikeout ? os2->yStrikeoutPosition : ascent / 3, height_, units);
}

// The largest strike that is not higher than what is wanted, or the smallest.
int FaceSource::strikeFor(int height) const
{
    FT_Face handle = face_->handle();
    auto heightOf = [&](int strike) {
        const FT_Bitmap_Size &size = handle->available_sizes[strike];
        return height < 0 ? static_cast<int>(size.y_ppem >> 6) : size.height;
    };
    int64_t wanted = std::abs(height ? int64_t{height} : defaultHeight);
    int best = 0;
    for (int strike = 1; strike < handle->num_fixed_sizes; ++strike) {
        int bestHeight = heightOf(best), thisHeight = heightOf(strike);
        bool isNearer = thisHeight <= wanted ? bestHeight > wanted || thisHeight > bestHeight : thisHeight < bestHeight;
        if (isNearer)
            best = strike;
    }
    return best;
}

void FaceSource::setStrikeMetrics()
{
    FT_Face handle = face_->handle();
    height_ = strikeFor(description_.lfHeight);
    width_ = -1; // so that a strike is never taken for a size in pixels
    face_->setSize(width_, height_);
    const FT_Size_Metrics &size = handle->size->metrics;
    auto cut = [](FT_Pos length) {
        return static_cast<int>(std::clamp<FT_Pos>(length >> 6, -largestPicture, largestPicture));
    };
    metrics_.ascent = std::max(cut(size.ascender), 0);
    metrics_.descent = std::max(-cut(size.descender), 0);
    metrics_.internalLeading = std::max(metrics_.ascent + metrics_.descent - int{size.y_ppem}, 0);
    metrics_.averageWidth = std::max<int>(handle->available_sizes[height_].width, 1);
    metrics_.maximalWidth = cut(size.max_advance);
    metrics_.unitsPerEm = size.y_ppem;
    metrics_.strikeoutTop = -metrics_.ascent / 3;
}

FontFace &FaceSource::faceWith(char32_t character, unsigned &index)
{
    index = face_->glyphIndex(character);
    if (index != 0 || character < ' ')
        return *face_;
    for (const auto &substitute : substitutes_) {
        index = substitute->glyphIndex(character);
        if (index != 0)
            return *substitute;
    }
    std::shared_ptr<FontFace> found = metrics_.isScalable ? openFaceWith(character, description_) : nullptr;
    if (!found)
        return *face_;
    index = found->glyphIndex(character);
    substitutes_.push_back(found);
    return *substitutes_.back();
}

GlyphImage FaceSource::load(char32_t character, Posture posture)
{
    unsigned index = 0;
    FontFace &face = faceWith(character, index);
    return render(face, index, posture);
}

// Only outlines can be turned.
FT_Int32 FaceSource::loadFlags(Posture posture) const
{
    FT_Int32 target = isSmooth_ ? FT_LOAD_TARGET_NORMAL : FT_LOAD_TARGET_MONO;
    bool isLevel = direction_.isLevel() && posture == Posture::WithLine;
    return isLevel || !metrics_.isScalable ? target : target | FT_LOAD_NO_BITMAP;
}

GlyphImage FaceSource::render(FontFace &face, unsigned index, Posture posture)
{
    GlyphImage image;
    image.isSmooth = isSmooth_;
    image.advance = metrics_.averageWidth;
    face.setSize(width_, height_); // a substitute is scalable as the face itself is
    FT_Face handle = face.handle();
    if (FT_Load_Glyph(handle, index, loadFlags(posture)) != 0)
        return image;
    FT_GlyphSlot slot = handle->glyph;
    if (slot->format == FT_GLYPH_FORMAT_OUTLINE) {
        shapeOutline(*slot, posture);
        FT_BBox box;
        FT_Outline_Get_CBox(&slot->outline, &box);
        constexpr FT_Pos most = FT_Pos{largestPicture} * 64;
        bool isDrawable = box.xMin > -most && box.yMin > -most && box.xMax < most && box.yMax < most;
        if (!isDrawable || FT_Render_Glyph(slot, isSmooth_ ? FT_RENDER_MODE_NORMAL : FT_RENDER_MODE_MONO) != 0)
            return image;
    }
    image.advance = static_cast<int>(std::clamp<FT_Pos>((slot->advance.x + 32) >> 6, 0, largestPicture));
    image.left = std::clamp<int>(slot->bitmap_left, -largestPicture, largestPicture);
    image.top = -std::clamp<int>(slot->bitmap_top, -largestPicture, largestPicture);
    copyBitmap(slot->bitmap, image);
    if (made_.isBold) {
        int pixels = boldPixels();
        int advance = image.advance ? image.advance + (metrics_.isFixedPitch ? 0 : pixels) : 0;
        if (!isTurned())
            makeBold(image, pixels);
        image.advance = advance;
    }
    return image;
}

// Gives an outline the styles that its family lacks and the direction of its text. Level characters are made bold
// as pictures.
void FaceSource::shapeOutline(FT_GlyphSlotRec_ &glyph, Posture posture) const
{
    FT_Outline &outline = glyph.outline;
    if (made_.isItalic) {
        FT_Matrix slant{0x10000, 0x3700, 0, 0x10000};
        FT_Outline_Transform(&outline, &slant);
    }
    if (posture == Posture::OnItsBack)
        layOnItsBack(glyph);
    if (!isTurned())
        return;
    if (made_.isBold)
        FT_Outline_EmboldenXY(&outline, FT_Pos{boldPixels()} * 64, 0);
    auto fixed = [](double value) { return static_cast<FT_Fixed>(value * 0x10000); };
    FT_Matrix turn{fixed(direction_.cosine), fixed(-direction_.sine), fixed(direction_.sine), fixed(direction_.cosine)};
    FT_Outline_Transform(&outline, &turn);
}

// Turns a glyph about the middle of its cell, which is as long then as the characters are high.
void FaceSource::layOnItsBack(FT_GlyphSlotRec_ &glyph) const
{
    constexpr FT_Pos pixel = 64;
    FT_Pos width = glyph.advance.x, length = std::max(width, height_ * pixel);
    FT_Pos middle = (metrics_.ascent - metrics_.descent) * pixel / 2;
    auto toPixel = [](FT_Pos distance) { return (distance + pixel / 2) & -pixel; };
    FT_Matrix quarter{0, -0x10000, 0x10000, 0};
    FT_Outline_Transform(&glyph.outline, &quarter);
    FT_Outline_Translate(&glyph.outline, toPixel(length / 2 + middle), toPixel(middle - width / 2));
    glyph.advance.x = length;
}

// FreeType counts in sixty-fourths of a pixel, upwards.
GlyphOutline::Point outlinePoint(const FT_Vector *point)
{
    return {static_cast<double>(point->x) / 64, -static_cast<double>(point->y) / 64};
}

// Calls come back from C, which no exception may cross.
template <class Add> int addGuarded(void *outline, Add add)
{
    try {
        add(*static_cast<GlyphOutline *>(outline));
        return 0;
    } catch (const std::bad_alloc &) {
        return 1;
    }
}

bool decompose(FT_Outline_ &source, GlyphOutline &outline)
{
    FT_Outline_Funcs calls = {};
    calls.move_to = [](const FT_Vector *to, void *user) {
        return addGuarded(user, [=](GlyphOutline &o) { o.begin(outlinePoint(to)); });
    };
    calls.line_to = [](const FT_Vector *to, void *user) {
        return addGuarded(user, [=](GlyphOutline &o) { o.lineTo(outlinePoint(to)); });
    };
    calls.conic_to = [](const FT_Vector *control, const FT_Vector *to, void *user) {
        return addGuarded(user, [=](GlyphOutline &o) { o.conicTo(outlinePoint(control), outlinePoint(to)); });
    };
    calls.cubic_to = [](const FT_Vector *control1, const FT_Vector *control2, const FT_Vector *to, void *user) {
        return addGuarded(user, [=](GlyphOutline &o) {
            o.curveTo(outlinePoint(control1), outlinePoint(control2), outlinePoint(to));
        });
    };
    return FT_Outline_Decompose(&source, &calls, &outline) == 0;
}

bool FaceSource::loadOutline(char32_t character, Posture posture, GlyphOutline &outline)
{
    if (!metrics_.isScalable)
        return false;
    unsigned index = 0;
    FontFace &face = faceWith(character, index);
    face.setSize(width_, height_);
    FT_GlyphSlot slot = face.handle()->glyph;
    FT_Int32 flags = FT_LOAD_NO_BITMAP | loadFlags(posture);
    if (FT_Load_Glyph(face.handle(), index, flags) != 0 || slot->format != FT_GLYPH_FORMAT_OUTLINE)
        return false;
    shapeOutline(*slot, posture);
    if (made_.isBold && !isTurned())
        FT_Outline_EmboldenXY(&slot->outline, FT_Pos{boldPixels()} * 64, 0);
    if (!decompose(slot->outline, outline))
        throw std::bad_alloc();
    return true;
}

void FaceSource::copyBitmap(const FT_Bitmap_ &bitmap, GlyphImage &image) const
{
    if (!bitmap.buffer || bitmap.width > largestPicture || bitmap.rows > largestPicture)
        return;
    image.resize(static_cast<int>(bitmap.width), static_cast<int>(bitmap.rows));
    for (int y = 0; y < image.height; ++y) {
        const uint8_t *source = bitmap.buffer + ptrdiff_t{y} * bitmap.pitch;
        uint8_t *row = image.row(y);
        for (int x = 0; x < image.width; ++x) {
            int value = bitmap.pixel_mode == FT_PIXEL_MODE_MONO   ? (source[x >> 3] >> (7 - (x & 7)) & 1) * 255
                        : bitmap.pixel_mode == FT_PIXEL_MODE_GRAY ? source[x]
                        : bitmap.pixel_mode == FT_PIXEL_MODE_BGRA ? source[x * 4 + 3]
                                                                  : 0;
            row[x] = static_cast<uint8_t>(image.isSmooth ? value : value >> 7);
        }
    }
}

} // namespace

std::unique_ptr<GlyphSource> faceSource(std::shared_ptr<FontFace> face, const LOGFONTA &description, MadeStyles made)
{
    return std::make_unique<FaceSource>(std::move(face), description, made);
}

} // namespace win32::gdi
