#include "font_catalog.h"

#include "builtin_font.h"
#include "vertical_text.h"
#include "kernel/code_pages.h"
#include "kernel/code_page_table.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>

namespace win32::gdi {

std::atomic<uint32_t> catalogGeneration{1};

namespace {

// WIN32_FONTS=builtin leaves the built-in font only, as on a machine without any.
FcConfig *systemFonts()
{
    static FcConfig *made = [] {
        const char *setting = getenv("WIN32_FONTS");
        return setting && strcmp(setting, "builtin") == 0 ? nullptr : FcInitLoadConfigAndFonts();
    }();
    return made;
}

struct FontconfigDeleter {
    void operator()(FcPattern *pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet *objects) const { FcObjectSetDestroy(objects); }
    void operator()(FcFontSet *set) const { FcFontSetDestroy(set); }
};
template <class T> using Owned = std::unique_ptr<T, FontconfigDeleter>;

struct AddedFile {
    std::string path;
    int uses;
};

struct Catalog {
    Catalog();

    std::vector<CatalogFace> faces;
    std::vector<AddedFile> added;
};

Catalog &catalog()
{
    static auto *made = new Catalog;
    return *made;
}

std::string textOf(FcPattern *pattern, const char *object, int index = 0)
{
    FcChar8 *text = nullptr;
    return FcPatternGetString(pattern, object, index, &text) == FcResultMatch ? reinterpret_cast<const char *>(text)
                                                                              : "";
}

int numberOf(FcPattern *pattern, const char *object, int otherwise)
{
    int number = otherwise;
    return FcPatternGetInteger(pattern, object, 0, &number) == FcResultMatch ? number : otherwise;
}

constexpr struct {
    const char *language;
    BYTE charSet;
} doubleByteLanguages[] = {
    {"ja", SHIFTJIS_CHARSET}, {"ko", HANGUL_CHARSET}, {"zh-cn", GB2312_CHARSET}, {"zh-tw", CHINESEBIG5_CHARSET}};

std::vector<BYTE> charSetsOf(FcPattern *pattern)
{
    std::vector<BYTE> charSets;
    FcLangSet *languages = nullptr;
    if (FcPatternGetLangSet(pattern, FC_LANG, 0, &languages) != FcResultMatch)
        return charSets;
    for (const auto &entry : doubleByteLanguages) {
        auto *language = reinterpret_cast<const FcChar8 *>(entry.language);
        if (FcLangSetHasLang(languages, language) == FcLangEqual)
            charSets.push_back(entry.charSet);
    }
    return charSets;
}

std::optional<CatalogFace> faceOf(FcPattern *pattern)
{
    CatalogFace face;
    for (int i = 0; i < 8; ++i) {
        std::string family = textOf(pattern, FC_FAMILY, i);
        if (!family.empty())
            face.families.push_back(family);
    }
    face.location.path = textOf(pattern, FC_FILE);
    face.location.index = numberOf(pattern, FC_INDEX, 0);
    if (face.families.empty() || face.location.path.empty())
        return std::nullopt;
    face.style = textOf(pattern, FC_STYLE);
    face.weight = FcWeightToOpenType(numberOf(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR));
    face.width = numberOf(pattern, FC_WIDTH, FC_WIDTH_NORMAL);
    face.isItalic = numberOf(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
    face.isFixedPitch = numberOf(pattern, FC_SPACING, FC_PROPORTIONAL) >= FC_DUAL;
    FcBool isScalable = FcFalse;
    face.isScalable = FcPatternGetBool(pattern, FC_SCALABLE, 0, &isScalable) == FcResultMatch && isScalable;
    face.charSets = charSetsOf(pattern);
    return face;
}

Catalog::Catalog()
{
    FcConfig *config = systemFonts();
    Owned<FcPattern> all(config ? FcPatternCreate() : nullptr);
    Owned<FcObjectSet> objects(FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_FILE, FC_INDEX, FC_WEIGHT, FC_WIDTH, FC_SLANT,
                                                FC_SPACING, FC_SCALABLE, FC_LANG, nullptr));
    Owned<FcFontSet> set(all && objects ? FcFontList(config, all.get(), objects.get()) : nullptr);
    for (int i = 0; set && i < set->nfont; ++i) {
        if (auto face = faceOf(set->fonts[i]))
            faces.push_back(std::move(*face));
    }
    // The same choice whatever order the folders were read in.
    std::stable_sort(faces.begin(), faces.end(), [](const CatalogFace &a, const CatalogFace &b) {
        return std::tie(a.families.front(), a.location.path, a.location.index)
               < std::tie(b.families.front(), b.location.path, b.location.index);
    });
}

bool hasFamily(const CatalogFace &face, std::string_view family)
{
    return std::any_of(face.families.begin(), face.families.end(),
                       [&](const std::string &name) { return equalsIgnoringCase(name, family); });
}

bool wantsBold(const LOGFONTA &description)
{
    return description.lfWeight > 550;
}

// How far a face is from what is wanted of its family.
int distance(const CatalogFace &face, const LOGFONTA &description)
{
    int weight = description.lfWeight ? std::clamp<int>(description.lfWeight, 100, 900) : FW_NORMAL;
    int result = std::abs(face.weight - weight) + 4 * std::abs(face.width - FC_WIDTH_NORMAL);
    if (face.isItalic != (description.lfItalic != 0))
        result += description.lfItalic ? 300 : 2000;
    return result;
}

const CatalogFace *bestOf(std::string_view family, const LOGFONTA &description)
{
    const CatalogFace *best = nullptr;
    for (const CatalogFace &face : catalog().faces) {
        if (hasFamily(face, family) && (!best || distance(face, description) < distance(*best, description)))
            best = &face;
    }
    return best;
}

bool choose(std::string_view family, const LOGFONTA &description, ChosenFace &chosen)
{
    const CatalogFace *found = bestOf(family, description);
    chosen.face = found ? openFace(found->location) : nullptr;
    if (!chosen.face)
        return false;
    chosen.made.isBold = wantsBold(description) && found->weight <= 550;
    chosen.made.isItalic = description.lfItalic && !found->isItalic;
    chosen.weight = chosen.made.isBold ? FW_BOLD : found->weight;
    return true;
}

bool chooseByTable(std::string_view name, const LOGFONTA &description, ChosenFace &chosen)
{
    const FamilyName *entry = findFamilyName(name);
    if (!entry)
        return false;
    if (!entry->candidates[0])
        return true;
    return std::any_of(std::begin(entry->candidates), std::end(entry->candidates),
                       [&](const char *candidate) { return candidate && choose(candidate, description, chosen); });
}

const char *languageOf(BYTE charSet)
{
    for (const auto &entry : doubleByteLanguages) {
        if (entry.charSet == charSet)
            return entry.language;
    }
    return nullptr;
}

const char *genericFamily(const LOGFONTA &description)
{
    if ((description.lfPitchAndFamily & 3) == FIXED_PITCH || (description.lfPitchAndFamily & 0xf0) == FF_MODERN)
        return "monospace";
    return (description.lfPitchAndFamily & 0xf0) == FF_ROMAN ? "serif" : "sans-serif";
}

// What fontconfig puts in the place of a family, or of any that has a character.
Owned<FcPattern> match(const std::string &family, const LOGFONTA &description, char32_t character)
{
    FcConfig *config = systemFonts();
    Owned<FcPattern> owned(config ? FcPatternCreate() : nullptr);
    FcPattern *pattern = owned.get();
    if (!pattern)
        return nullptr;
    auto addText = [pattern](const char *object, const char *text) {
        FcPatternAddString(pattern, object, reinterpret_cast<const FcChar8 *>(text));
    };
    if (!family.empty())
        addText(FC_FAMILY, family.c_str());
    addText(FC_FAMILY, genericFamily(description));
    if (const char *language = languageOf(description.lfCharSet))
        addText(FC_LANG, language);
    FcPatternAddInteger(pattern, FC_WEIGHT, wantsBold(description) ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern, FC_SLANT, description.lfItalic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    FcCharSet *characters = character ? FcCharSetCreate() : nullptr;
    if (characters) {
        FcCharSetAddChar(characters, character);
        FcPatternAddCharSet(pattern, FC_CHARSET, characters);
        FcCharSetDestroy(characters);
    }
    FcConfigSubstitute(config, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result;
    return Owned<FcPattern>(FcFontMatch(config, pattern, &result));
}

std::optional<CatalogFace> matchedFace(const std::string &family, const LOGFONTA &description, char32_t character)
{
    Owned<FcPattern> found = match(family, description, character);
    return found ? faceOf(found.get()) : std::nullopt;
}

std::string utf8Name(const LOGFONTA &description)
{
    std::string_view name(description.lfFaceName, strnlen(description.lfFaceName, LF_FACESIZE));
    if (isVerticalFace(description))
        name.remove_prefix(1);
    return utf8FromUtf16(utf16FromAnsi(name));
}

// Null when the file cannot be read.
std::shared_ptr<const std::vector<uint8_t>> readFile(const std::string &path)
{
    constexpr std::streamoff most = 256 << 20;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::streamoff size = file ? std::streamoff{file.tellg()} : -1;
    if (size <= 0 || size > most || !file.seekg(0))
        return nullptr;
    auto bytes = std::make_shared<std::vector<uint8_t>>(static_cast<size_t>(size));
    if (!file.read(reinterpret_cast<char *>(bytes->data()), size))
        return nullptr;
    return bytes;
}

std::vector<CatalogFace> facesOfFile(const std::string &path)
{
    std::vector<CatalogFace> faces;
    FaceLocation location{path, 0, readFile(path)};
    FaceFacts facts;
    facts.faces = 1;
    for (; location.bytes && location.index < facts.faces; ++location.index) {
        if (!readFacts(location, facts))
            continue;
        CatalogFace face;
        face.families.push_back(facts.family.empty() ? path.substr(path.rfind('/') + 1) : facts.family);
        face.style = facts.style;
        face.location = location;
        face.weight = facts.weight;
        face.isItalic = facts.isItalic;
        face.isFixedPitch = facts.isFixedPitch;
        face.isScalable = facts.isScalable;
        faces.push_back(std::move(face));
    }
    return faces;
}

} // namespace

const std::vector<CatalogFace> &catalogFaces()
{
    return catalog().faces;
}

ChosenFace chooseFace(const LOGFONTA &description)
{
    ChosenFace chosen;
    std::string name = utf8Name(description);
    chosen.name = name;
    if (equalsIgnoringCase(name, builtinFaceName))
        return chosen;
    if (!name.empty() && (choose(name, description, chosen) || chooseByTable(name, description, chosen)))
        return chosen;
    if (auto face = matchedFace(name, description, 0)) {
        chosen.name = face->families.front();
        if (choose(chosen.name, description, chosen))
            return chosen;
    }
    chosen.name = builtinFaceName;
    return chosen;
}

std::shared_ptr<FontFace> openFaceWith(char32_t character, const LOGFONTA &description)
{
    auto found = matchedFace(utf8Name(description), description, character);
    std::shared_ptr<FontFace> face = found ? openFace(found->location) : nullptr;
    return face && face->isScalable() && face->glyphIndex(character) != 0 ? face : nullptr;
}

int addFontFile(const std::string &path)
{
    Catalog &all = catalog();
    auto isFile = [&](const AddedFile &file) { return file.path == path; };
    if (auto known = std::find_if(all.added.begin(), all.added.end(), isFile); known != all.added.end()) {
        ++known->uses;
        return static_cast<int>(std::count_if(all.faces.begin(), all.faces.end(), [&](const CatalogFace &face) {
            return face.location.bytes && face.location.path == path;
        }));
    }
    std::vector<CatalogFace> faces = facesOfFile(path);
    if (faces.empty())
        return 0;
    all.added.reserve(all.added.size() + 1);
    all.faces.reserve(all.faces.size() + faces.size());
    all.added.push_back({path, 1});
    all.faces.insert(all.faces.begin(), std::make_move_iterator(faces.begin()), std::make_move_iterator(faces.end()));
    ++catalogGeneration;
    return static_cast<int>(faces.size());
}

bool removeFontFile(const std::string &path)
{
    Catalog &all = catalog();
    auto known =
        std::find_if(all.added.begin(), all.added.end(), [&](const AddedFile &file) { return file.path == path; });
    if (known == all.added.end())
        return false;
    if (--known->uses > 0)
        return true;
    all.added.erase(known);
    std::erase_if(all.faces,
                  [&](const CatalogFace &face) { return face.location.bytes && face.location.path == path; });
    ++catalogGeneration;
    return true;
}

} // namespace win32::gdi
