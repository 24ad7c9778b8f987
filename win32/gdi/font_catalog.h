// The fonts that there are: those of the system, as fontconfig knows them, and files that programs added.
// Whoever calls holds fontMutex.
#pragma once

#include "font_face.h"

#include <atomic>
#include <string_view>

namespace win32::gdi {

struct CatalogFace {
    std::vector<std::string> families; // the first is the one to show; UTF-8
    std::string style;
    FaceLocation location;
    int weight = 400; // FW_
    int width = 100;  // per cent of the usual
    bool isItalic = false;
    bool isFixedPitch = false;
    bool isScalable = false;
    std::vector<BYTE> charSets; // of double-byte pages that the face serves
};

// All faces; those that were added last come first.
const std::vector<CatalogFace> &catalogFaces();

// What a description is realized with.
struct ChosenFace {
    std::shared_ptr<FontFace> face; // null for the built-in font
    std::string name;               // as GetTextFaceA tells it
    MadeStyles made;
    int weight = 400;
};
ChosenFace chooseFace(const LOGFONTA &description);

// Some face that has a character; null when none has.
std::shared_ptr<FontFace> openFaceWith(char32_t character, const LOGFONTA &description);

// How many fonts of a file joined the catalog; 0 when it is none. A file counts how often it was added.
int addFontFile(const std::string &path);
bool removeFontFile(const std::string &path);

// Changes whenever the catalog does: fonts realized before are realized anew.
extern std::atomic<uint32_t> catalogGeneration;

// Families that Windows programs ask for, and what stands for each: the first of the candidates that is there.
struct FamilyName {
    const char *name;
    bool isListed;             // shown among the families when a candidate is there
    const char *candidates[5]; // null after the last; empty for the built-in font
};
const FamilyName *findFamilyName(std::string_view name);
const std::vector<FamilyName> &familyNames();

bool equalsIgnoringCase(std::string_view a, std::string_view b);

} // namespace win32::gdi
