#include "realized_font.h"

#include "builtin_font.h"
#include "font_catalog.h"
#include "vertical_text.h"

#include "kernel/code_pages.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <unordered_map>

namespace win32::gdi {
namespace {

constexpr struct {
    BYTE charSet;
    UINT codePage;
} charSetPages[] = {
    {ANSI_CHARSET, 1252},       {SHIFTJIS_CHARSET, 932},    {HANGUL_CHARSET, 949},   {GB2312_CHARSET, 936},
    {CHINESEBIG5_CHARSET, 950}, {GREEK_CHARSET, 1253},      {TURKISH_CHARSET, 1254}, {VIETNAMESE_CHARSET, 1258},
    {HEBREW_CHARSET, 1255},     {ARABIC_CHARSET, 1256},     {BALTIC_CHARSET, 1257},  {RUSSIAN_CHARSET, 1251},
    {THAI_CHARSET, 874},        {EASTEUROPE_CHARSET, 1250},
};

// Character sets without a page of their own are read in the active one.
const CodePage *codePageOf(BYTE charSet)
{
    if (charSet == SYMBOL_CHARSET)
        return nullptr;
    for (const auto &entry : charSetPages) {
        if (entry.charSet == charSet)
            return findCodePage(entry.codePage);
    }
    return &activeCodePage();
}

struct DescriptionHash {
    size_t operator()(const LOGFONTA &description) const
    {
        return std::hash<std::string_view>()({reinterpret_cast<const char *>(&description), sizeof description});
    }
};
struct DescriptionEquals {
    bool operator()(const LOGFONTA &a, const LOGFONTA &b) const { return memcmp(&a, &b, sizeof a) == 0; }
};

// Fonts that were realized, for a while beyond their last use.
class FontCache {
public:
    std::shared_ptr<RealizedFont> find(const LOGFONTA &description);

private:
    struct Entry {
        std::shared_ptr<RealizedFont> font;
        uint64_t lastUse;
    };

    void makeRoom();

    static constexpr size_t most = 128;
    std::unordered_map<LOGFONTA, Entry, DescriptionHash, DescriptionEquals> fonts_;
    uint64_t uses_ = 0;
    uint32_t generation_ = 0;
};

std::shared_ptr<RealizedFont> newFont(const LOGFONTA &description)
{
    ChosenFace chosen = chooseFace(description);
    auto source = chosen.face ? faceSource(chosen.face, description, chosen.made) : builtinSource(description);
    int weight = chosen.face ? chosen.weight : source->metrics().weight;
    std::u16string name;
    if (!utf16FromUtf8(chosen.name, name))
        name.clear();
    if (chosen.face && isVerticalFace(description))
        name.insert(name.begin(), '@');
    return std::make_shared<RealizedFont>(description, std::move(source), ansiFromUtf16(name), weight);
}

std::shared_ptr<RealizedFont> FontCache::find(const LOGFONTA &description)
{
    if (generation_ != catalogGeneration) {
        fonts_.clear();
        generation_ = catalogGeneration;
    }
    auto known = fonts_.find(description);
    if (known == fonts_.end()) {
        auto font = newFont(description);
        makeRoom();
        known = fonts_.emplace(description, Entry{std::move(font), 0}).first;
    }
    known->second.lastUse = ++uses_;
    return known->second.font;
}

// Fonts in use are kept by their users anyway.
void FontCache::makeRoom()
{
    if (fonts_.size() < most)
        return;
    fonts_.erase(std::min_element(fonts_.begin(), fonts_.end(),
                                  [](const auto &a, const auto &b) { return a.second.lastUse < b.second.lastUse; }));
}

// The same description in the same bytes.
LOGFONTA normalized(const LOGFONTA &description)
{
    LOGFONTA result = description;
    memset(result.lfFaceName, 0, sizeof result.lfFaceName);
    memcpy(result.lfFaceName, description.lfFaceName, strnlen(description.lfFaceName, LF_FACESIZE - 1));
    return result;
}

} // namespace

BYTE charSetOf(UINT codePage)
{
    for (const auto &entry : charSetPages) {
        if (entry.codePage == codePage)
            return entry.charSet;
    }
    return DEFAULT_CHARSET;
}

RealizedFont::RealizedFont(const LOGFONTA &description, std::unique_ptr<GlyphSource> source, std::string faceName,
                           int weight)
    : description_(description), source_(std::move(source)),
      direction_(source_->metrics().isScalable ? directionOf(description) : TextDirection{}),
      faceName_(std::move(faceName)), weight_(weight), isVertical_(isVerticalFace(description)),
      charSet_(description.lfCharSet == DEFAULT_CHARSET ? charSetOf(activeCodePage().number) : description.lfCharSet),
      codePage_(codePageOf(description.lfCharSet)),
      isSingleByte_(!codePage_ || (codePage_->iconvName && !codePage_->isDoubleByte()))
{
    for (auto &advance : advances_)
        advance.store(-1, std::memory_order_relaxed);
}

RealizedFont::~RealizedFont()
{
    for (auto &page : pages_)
        delete page.load(std::memory_order_relaxed);
}

RealizedFont::Page::~Page()
{
    for (auto &glyph : glyphs)
        delete glyph.load(std::memory_order_relaxed);
}

const Glyph &RealizedFont::load(uint16_t code)
{
    std::lock_guard lock(fontMutex());
    std::atomic<Page *> &slot = pages_[code >> 8];
    Page *page = slot.load(std::memory_order_relaxed);
    if (!page) {
        page = new Page;
        slot.store(page, std::memory_order_release);
    }
    std::atomic<const Glyph *> &place = page->glyphs[code & 0xff];
    const Glyph *known = place.load(std::memory_order_relaxed);
    if (!known) {
        known = new Glyph(glyphOf(source_->load(characterOf(code), postureOf(code))));
        place.store(known, std::memory_order_release);
        if (code < 0x100)
            advances_[code].store(known->advance, std::memory_order_relaxed);
    }
    return *known;
}

bool RealizedFont::outline(uint16_t code, GlyphOutline &outline)
{
    std::lock_guard lock(fontMutex());
    return source_->loadOutline(characterOf(code), postureOf(code), outline);
}

char32_t RealizedFont::characterOf(uint16_t code) const
{
    if (!codePage_ || !codePage_->iconvName)
        return code;
    return codePageTable(*codePage_).fromCode[code];
}

// Of two bytes are the characters of full width.
Posture RealizedFont::postureOf(uint16_t code) const
{
    if (!isVertical_ || isSingleByte_)
        return Posture::WithLine;
    char32_t character = characterOf(code);
    bool isFull = codePage_->iconvName ? code > 0xff : isFullWidth(character);
    return isFull && !followsItsLine(character) ? Posture::OnItsBack : Posture::WithLine;
}

uint16_t RealizedFont::takeLong(const uint8_t *&text, const uint8_t *end) const
{
    unsigned first = *text++;
    if (codePage_->iconvName) {
        bool isDouble = codePage_->isLeadByte(first) && text != end && *text != 0;
        return static_cast<uint16_t>(isDouble ? first << 8 | *text++ : first);
    }
    // UTF-8; what is malformed or beyond 16 bits is shown as the character for the unknown.
    constexpr uint16_t unknown = 0xfffd;
    int following = first < 0x80                    ? 0
                    : first >= 0xc2 && first < 0xe0 ? 1
                    : first >= 0xe0 && first < 0xf0 ? 2
                    : first >= 0xf0 && first < 0xf5 ? 3
                                                    : -1;
    if (following < 0 || end - text < following)
        return unknown;
    unsigned character = following == 0 ? first : first & (0x3fu >> following);
    for (int i = 0; i < following; ++i) {
        if ((text[i] & 0xc0) != 0x80)
            return unknown;
        character = character << 6 | (text[i] & 0x3f);
    }
    text += following;
    return character < 0x10000 ? static_cast<uint16_t>(character) : unknown;
}

std::shared_ptr<RealizedFont> realize(const LOGFONTA &description)
{
    static auto *cache = new FontCache;
    LOGFONTA wanted = normalized(description);
    std::lock_guard lock(fontMutex());
    return cache->find(wanted);
}

} // namespace win32::gdi
