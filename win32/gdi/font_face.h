// Faces of font files, opened through FreeType, and glyphs from them at one size.
#pragma once

#include "glyph_source.h"

#include <windows.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

struct FT_FaceRec_;

namespace win32::gdi {

// Held by whoever works with faces or with the catalog of fonts: FreeType serves one thread at a time.
std::recursive_mutex &fontMutex();

// Where a face lies. The bytes are those of a file that a program added; files of the system are read as needed.
struct FaceLocation {
    std::string path;
    int index = 0;
    std::shared_ptr<const std::vector<uint8_t>> bytes;
};

class FontFace {
public:
    explicit FontFace(const FaceLocation &location);
    ~FontFace();
    FontFace(const FontFace &) = delete;
    FontFace &operator=(const FontFace &) = delete;

    explicit operator bool() const { return face_ != nullptr; }
    bool isScalable() const;
    FT_FaceRec_ *handle() const { return face_; }
    // 0 when the face lacks the character.
    unsigned glyphIndex(char32_t character) const;
    void setSize(int width, int height);

private:
    FaceLocation location_;
    FT_FaceRec_ *face_ = nullptr;
    int width_ = 0;
    int height_ = 0;
};

// An open face, shared by all who use it; null when the file is none that FreeType reads.
std::shared_ptr<FontFace> openFace(const FaceLocation &location);

// What a face tells of itself.
struct FaceFacts {
    std::string family;
    std::string style;
    int weight = 400; // FW_
    bool isItalic = false;
    bool isFixedPitch = false;
    bool isScalable = false;
    int faces = 0; // in the file
};
bool readFacts(const FaceLocation &location, FaceFacts &facts);

// What a family lacks and its glyphs are given.
struct MadeStyles {
    bool isBold = false;
    bool isItalic = false;
};

std::unique_ptr<GlyphSource> faceSource(std::shared_ptr<FontFace> face, const LOGFONTA &description, MadeStyles made);

} // namespace win32::gdi
