// Telling programs which fonts there are.
#include "builtin_font.h"
#include "device_context.h"
#include "font_catalog.h"
#include "realized_font.h"

#include "kernel/code_pages.h"
#include "kernel/kernel_internal.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <set>

using namespace win32;
using namespace win32::gdi;

namespace {

// One call of the program's procedure.
struct Report {
    ENUMLOGFONTEXA font{};
    NEWTEXTMETRICA metrics{};
    DWORD type = 0;
};

struct FaceToReport {
    std::string family; // UTF-8
    std::string style;
    int weight;
    bool isItalic;
    BYTE charSet;
};

template <size_t size, class Unit> void copyName(Unit (&field)[size], const std::string &name)
{
    memset(field, 0, size);
    memcpy(field, name.data(), std::min(name.size(), size - 1));
}

std::string ansiName(const std::string &utf8)
{
    std::u16string name;
    return utf16FromUtf8(utf8, name) ? ansiFromUtf16(name) : std::string();
}

Report reportOf(const FaceToReport &face)
{
    Report report;
    LOGFONTA &font = report.font.elfLogFont;
    std::string name = ansiName(face.family);
    copyName(font.lfFaceName, name);
    font.lfWeight = face.weight;
    font.lfItalic = face.isItalic ? 255 : 0;
    font.lfCharSet = face.charSet;
    auto realized = realize(font);
    TEXTMETRICA metrics = textMetricsOf(*realized);
    memcpy(&report.metrics, &metrics, offsetof(NEWTEXTMETRICA, ntmFlags));
    bool isBold = face.weight > 550;
    report.metrics.ntmFlags =
        (face.isItalic ? NTM_ITALIC : 0u) | (isBold ? NTM_BOLD : 0u) | (!face.isItalic && !isBold ? NTM_REGULAR : 0u);
    report.metrics.ntmSizeEM = static_cast<UINT>(realized->metrics().unitsPerEm);
    int em = std::max<int>(metrics.tmHeight - metrics.tmInternalLeading, 1);
    report.metrics.ntmCellHeight =
        report.metrics.ntmSizeEM * static_cast<UINT>(metrics.tmHeight) / static_cast<UINT>(em);
    report.metrics.ntmAvgWidth =
        report.metrics.ntmSizeEM * static_cast<UINT>(metrics.tmAveCharWidth) / static_cast<UINT>(em);
    report.type = realized->metrics().isScalable ? TRUETYPE_FONTTYPE : RASTER_FONTTYPE;
    font.lfHeight = metrics.tmHeight;
    font.lfWidth = metrics.tmAveCharWidth;
    font.lfQuality = PROOF_QUALITY;
    font.lfPitchAndFamily = static_cast<BYTE>((metrics.tmPitchAndFamily & 0xf0)
                                              | (realized->metrics().isFixedPitch ? FIXED_PITCH : VARIABLE_PITCH));
    bool isPlain = face.style.empty() || equalsIgnoringCase(face.style, "Regular");
    copyName(report.font.elfFullName, isPlain ? name : name + " " + ansiName(face.style));
    copyName(report.font.elfStyle, face.style.empty() ? "Regular" : ansiName(face.style));
    return report;
}

BYTE ansiOrActive(const CatalogFace &face)
{
    BYTE active = charSetOf(activeCodePage().number);
    return std::count(face.charSets.begin(), face.charSets.end(), active) ? active : BYTE{ANSI_CHARSET};
}

// The character sets under which a face is reported, when a program asks for one, for all, or for none.
std::vector<BYTE> charSetsToReport(const CatalogFace &face, int wanted)
{
    constexpr int none = -1;
    if (wanted == none)
        return {ansiOrActive(face)};
    if (wanted != DEFAULT_CHARSET) {
        bool isDoubleByte = wanted == SHIFTJIS_CHARSET || wanted == HANGUL_CHARSET || wanted == GB2312_CHARSET
                            || wanted == CHINESEBIG5_CHARSET;
        bool has = !isDoubleByte || std::count(face.charSets.begin(), face.charSets.end(), wanted);
        return has ? std::vector<BYTE>{static_cast<BYTE>(wanted)} : std::vector<BYTE>{};
    }
    std::vector<BYTE> all{ANSI_CHARSET};
    all.insert(all.end(), face.charSets.begin(), face.charSets.end());
    return all;
}

// Collects faces, each family and style once.
class FaceList {
public:
    explicit FaceList(int charSet) : charSet_(charSet) {}

    void add(const std::string &family, const CatalogFace &face, bool isFamilyOnly)
    {
        for (BYTE charSet : charSetsToReport(face, charSet_)) {
            std::string key = family + '\n' + (isFamilyOnly ? "" : face.style) + '\n' + static_cast<char>(charSet);
            if (!seen_.insert(key).second)
                continue;
            faces.push_back({family, isFamilyOnly ? "" : face.style, isFamilyOnly ? int{FW_NORMAL} : face.weight,
                             !isFamilyOnly && face.isItalic, charSet});
        }
    }
    void addBuiltin(const char *family)
    {
        CatalogFace face;
        face.style = "Regular";
        add(family, face, false);
    }

    std::vector<FaceToReport> faces;

private:
    int charSet_;
    std::set<std::string> seen_;
};

bool hasFamily(const CatalogFace &face, std::string_view family)
{
    return std::any_of(face.families.begin(), face.families.end(),
                       [&](const std::string &name) { return equalsIgnoringCase(name, family); });
}

// Outlines of double-byte text come as a vertical face too.
void addFamilyOf(FaceList &list, const CatalogFace &face)
{
    list.add(face.families.front(), face, true);
    if (face.isScalable && !face.charSets.empty())
        list.add("@" + face.families.front(), face, true);
}

// Adds the faces of a family under a name; false when there are none.
bool addFamily(FaceList &list, const std::string &shown, std::string_view family, bool isFamilyOnly)
{
    bool found = false;
    for (const CatalogFace &face : catalogFaces()) {
        if (hasFamily(face, family)) {
            list.add(shown, face, isFamilyOnly);
            found = true;
        }
    }
    return found;
}

void addByTable(FaceList &list, const FamilyName &entry, bool isFamilyOnly)
{
    if (!entry.candidates[0])
        return list.addBuiltin(entry.name);
    for (const char *candidate : entry.candidates) {
        if (candidate && addFamily(list, entry.name, candidate, isFamilyOnly))
            return;
    }
}

std::vector<Report> reports(const char *family, int charSet)
{
    std::lock_guard lock(fontMutex());
    FaceList list(charSet);
    if (!family || !*family) {
        for (const CatalogFace &face : catalogFaces())
            addFamilyOf(list, face);
        for (const FamilyName &entry : familyNames()) {
            if (entry.isListed)
                addByTable(list, entry, true);
        }
        list.addBuiltin(builtinFaceName);
    } else {
        std::string name = utf8FromUtf16(utf16FromAnsi(family));
        if (equalsIgnoringCase(name, builtinFaceName))
            list.addBuiltin(builtinFaceName);
        else if (!addFamily(list, name, name.substr(name.starts_with('@')), false)) {
            if (const FamilyName *entry = findFamilyName(name))
                addByTable(list, *entry, false);
        }
    }
    std::vector<Report> result;
    for (const FaceToReport &face : list.faces)
        result.push_back(reportOf(face));
    return result;
}

// The procedure is called without any lock: it may do what it likes.
int enumerate(HDC context, const char *family, int charSet, FONTENUMPROCA procedure, LPARAM parameter)
{
    if (!procedure)
        return fail(ERROR_INVALID_PARAMETER, 0);
    if (!findContext(context))
        return 0;
    std::vector<Report> all;
    if (!guarded(false, [&] {
            all = reports(family, charSet);
            return true;
        }))
        return 0;
    int result = 1;
    for (const Report &report : all) {
        result = procedure(&report.font.elfLogFont, reinterpret_cast<const TEXTMETRICA *>(&report.metrics), report.type,
                           parameter);
        if (result == 0)
            break;
    }
    return result;
}

} // namespace

int EnumFontFamiliesA(HDC context, LPCSTR family, FONTENUMPROCA procedure, LPARAM parameter)
{
    constexpr int anyCharSet = -1;
    return enumerate(context, family, anyCharSet, procedure, parameter);
}

int EnumFontFamiliesExA(HDC context, LPLOGFONTA wanted, FONTENUMPROCA procedure, LPARAM parameter, DWORD)
{
    if (!wanted)
        return fail(ERROR_INVALID_PARAMETER, 0);
    char family[LF_FACESIZE]{};
    memcpy(family, wanted->lfFaceName, strnlen(wanted->lfFaceName, LF_FACESIZE - 1));
    return enumerate(context, family, wanted->lfCharSet, procedure, parameter);
}
