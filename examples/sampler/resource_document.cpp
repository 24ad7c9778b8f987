// Resource files, as a page with a row for each resource; pictures are shown.
#include "sampler.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr SInt16 pageWidth = 460, margin = 16, rowHeight = 20, headHeight = 52;
constexpr SInt16 firstID = 128, lastID = 191; // text files have no index: these are asked for

struct Entry {
    ResType type;
    SInt16 id;
    std::string name;
    Size size;
    Rect frame; // of a picture
};

std::string textOf(ConstStr255Param text)
{
    return {reinterpret_cast<const char *>(text + 1), text[0]};
}

std::string nameOf(ResType type)
{
    return {static_cast<char>(type >> 24), static_cast<char>(type >> 16), static_cast<char>(type >> 8),
            static_cast<char>(type)};
}

SInt16 heightOf(const Entry &entry)
{
    int height = rowHeight;
    if (entry.type == 'PICT')
        height = std::max<int>(height, std::clamp<int>(entry.frame.bottom - entry.frame.top, 0, 200) + 8);
    return static_cast<SInt16>(height);
}

void note(Handle resource, std::vector<Entry> &entries)
{
    Entry entry = {};
    Str255 name = {};
    GetResInfo(resource, &entry.id, &entry.type, name);
    entry.name = textOf(name);
    entry.size = GetResourceSize(resource);
    if (entry.type == 'PICT' && GetHandleSize(resource) >= static_cast<Size>(sizeof(Picture)))
        QDGetPictureBounds(reinterpret_cast<PicHandle>(resource), &entry.frame);
    entries.push_back(entry);
}

void listType(ResType type, std::vector<Entry> &entries)
{
    UInt16 count = Count1Resources(type);
    bool isModule = GetResFileInst(CurResFile()) != reinterpret_cast<HMODULE>(~ULONG_PTR{0});
    for (UInt16 i = 1; isModule && i <= count; ++i) {
        if (Handle resource = Get1IndResource(type, static_cast<SInt16>(i)))
            note(resource, entries);
    }
    for (SInt16 id = firstID; !isModule && count && id <= lastID; ++id) {
        if (Handle resource = Get1Resource(type, id))
            note(resource, entries);
    }
}

std::vector<Entry> listFile()
{
    std::vector<Entry> entries;
    for (ResType type : {'PICT', 'TEXT', 'STR ', 'STR#', 'CURS', 'ICON', 'WIND', 'DLOG', 'DITL', 'MBAR', 'clut'})
        listType(static_cast<ResType>(type), entries);
    return entries;
}

void drawTextAt(SInt16 h, SInt16 v, const std::string &text)
{
    MoveTo(h, v);
    DrawString(PascalText(text));
}

void setFont(SInt16 face, SInt16 size)
{
    SInt16 family = 0;
    GetFNum(PascalText("Arial"), &family);
    TextFont(family);
    TextSize(size);
    TextFace(face);
}

void drawHead(const std::string &path, size_t count)
{
    setFont(bold, 18);
    drawTextAt(margin, 26, path.substr(path.find_last_of("\\/:") + 1));
    setFont(normal, 12);
    drawTextAt(margin, 43, std::to_string(count) + (count == 1 ? " resource" : " resources"));
    MoveTo(margin, headHeight - 3);
    LineTo(pageWidth - margin, headHeight - 3);
}

void drawEntry(const Entry &entry, SInt16 top)
{
    constexpr RGBColor band = {0xEEEE, 0xF2F2, 0xF8F8}, black = {0, 0, 0};
    Rect row = {top, margin, static_cast<SInt16>(top + heightOf(entry)), pageWidth - margin};
    RGBForeColor(&band);
    row.bottom -= 2;
    PaintRect(&row);
    RGBForeColor(&black);
    auto line = static_cast<SInt16>(top + 14);
    setFont(bold, 12);
    drawTextAt(margin + 6, line, nameOf(entry.type));
    setFont(normal, 12);
    drawTextAt(72, line, std::to_string(entry.id));
    drawTextAt(120, line, std::to_string(entry.size) + " bytes");
    drawTextAt(200, line, entry.name);
    if (entry.type != 'PICT')
        return;
    if (PicHandle picture = reinterpret_cast<PicHandle>(Get1Resource('PICT', entry.id))) {
        Rect place = entry.frame;
        OffsetRect(&place, static_cast<SInt16>(pageWidth - margin - 8 - place.right),
                   static_cast<SInt16>(top + 3 - place.top));
        DrawPicture(picture, &place);
    }
}

OSErr draw(const std::string &path, GWorldPtr &world)
{
    std::vector<Entry> entries = listFile();
    int height = headHeight + margin;
    for (const Entry &entry : entries)
        height += heightOf(entry);
    Rect bounds = {0, 0, static_cast<SInt16>(std::min(height, 16000)), pageWidth};
    OSErr error = NewGWorld(&world, 32, &bounds, nullptr, nullptr, 0);
    if (error != noErr)
        return error;
    SetPort(world);
    EraseRect(&bounds);
    TextMode(srcOr);
    drawHead(path, entries.size());
    SInt16 top = headHeight;
    for (const Entry &entry : entries) {
        drawEntry(entry, top);
        top = static_cast<SInt16>(top + heightOf(entry));
    }
    return noErr;
}

} // namespace

OSErr renderResources(const std::string &path, GWorldPtr &world)
try {
    // A text file of resources counts as open even when there is none.
    if (!isThere(path))
        return fnfErr;
    SInt16 current = CurResFile();
    SInt16 refNum = OpenResFile(PascalText(path));
    if (refNum < 0)
        return badResFormat;
    UseResFile(refNum);
    MTBX_BeginEnableSearchResourcesInTextFiles();
    OSErr error = draw(path, world);
    MTBX_EndEnableSearchResourcesInTextFiles();
    CloseResFile(refNum);
    UseResFile(current);
    return error;
} catch (const std::bad_alloc &) {
    return memFullErr;
}
