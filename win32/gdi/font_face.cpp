#include "font_face.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <map>
#include <utility>

namespace win32::gdi {
namespace {

// Null when FreeType cannot start. Lives as long as the process: faces may be closed at any time.
FT_Library library()
{
    static FT_Library made = [] {
        FT_Library result = nullptr;
        return FT_Init_FreeType(&result) == 0 ? result : nullptr;
    }();
    return made;
}

std::string textOf(const char *text)
{
    return text ? text : "";
}

} // namespace

std::recursive_mutex &fontMutex()
{
    static auto *mutex = new std::recursive_mutex;
    return *mutex;
}

FontFace::FontFace(const FaceLocation &location) : location_(location)
{
    std::lock_guard lock(fontMutex());
    if (!library())
        return;
    FT_Error error = location.bytes
                         ? FT_New_Memory_Face(library(), location_.bytes->data(),
                                              static_cast<FT_Long>(location_.bytes->size()), location.index, &face_)
                         : FT_New_Face(library(), location.path.c_str(), location.index, &face_);
    if (error != 0) {
        face_ = nullptr;
        return;
    }
    if (face_->num_glyphs <= 0 || (!isScalable() && face_->num_fixed_sizes <= 0)) {
        FT_Done_Face(face_);
        face_ = nullptr;
        return;
    }
    if (!face_->charmap && face_->num_charmaps > 0)
        FT_Set_Charmap(face_, face_->charmaps[0]);
}

FontFace::~FontFace()
{
    std::lock_guard lock(fontMutex());
    if (face_)
        FT_Done_Face(face_);
}

bool FontFace::isScalable() const
{
    return FT_IS_SCALABLE(face_) && face_->units_per_EM > 0;
}

// Symbol fonts have their characters in a private area; old ones know bytes only.
unsigned FontFace::glyphIndex(char32_t character) const
{
    constexpr char32_t symbolArea = 0xf000;
    FT_UInt index = FT_Get_Char_Index(face_, character);
    if (index == 0 && character < 0x100 && face_->charmap && face_->charmap->encoding == FT_ENCODING_MS_SYMBOL)
        index = FT_Get_Char_Index(face_, symbolArea + character);
    return index;
}

void FontFace::setSize(int width, int height)
{
    if (width_ == width && height_ == height)
        return;
    if (isScalable())
        FT_Set_Pixel_Sizes(face_, static_cast<FT_UInt>(width), static_cast<FT_UInt>(height));
    else
        FT_Select_Size(face_, height);
    width_ = width;
    height_ = height;
}

std::shared_ptr<FontFace> openFace(const FaceLocation &location)
{
    using Key = std::tuple<std::string, int, const void *>;
    static auto *opened = new std::map<Key, std::weak_ptr<FontFace>>;
    std::lock_guard lock(fontMutex());
    std::erase_if(*opened, [](const auto &entry) { return entry.second.expired(); });
    std::weak_ptr<FontFace> &known = (*opened)[{location.path, location.index, location.bytes.get()}];
    if (auto face = known.lock())
        return face;
    auto face = std::make_shared<FontFace>(location);
    if (!*face)
        return nullptr;
    known = face;
    return face;
}

bool readFacts(const FaceLocation &location, FaceFacts &facts)
{
    FontFace face(location);
    if (!face)
        return false;
    FT_Face handle = face.handle();
    facts.family = textOf(handle->family_name);
    facts.style = textOf(handle->style_name);
    facts.isItalic = (handle->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
    facts.isFixedPitch = FT_IS_FIXED_WIDTH(handle);
    facts.isScalable = face.isScalable();
    auto *os2 = static_cast<const TT_OS2 *>(FT_Get_Sfnt_Table(handle, FT_SFNT_OS2));
    bool hasWeight = os2 && os2->version != 0xffff && os2->usWeightClass >= 100 && os2->usWeightClass <= 1000;
    facts.weight = hasWeight ? os2->usWeightClass : handle->style_flags & FT_STYLE_FLAG_BOLD ? FW_BOLD : FW_NORMAL;
    facts.faces = static_cast<int>(std::clamp<FT_Long>(handle->num_faces, 1, 256));
    return true;
}

} // namespace win32::gdi
