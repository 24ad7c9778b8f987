// The documents that are open: made, found, closed, saved, and purged.
#include "sampler.h"

#include <algorithm>
#include <cctype>

namespace {

std::vector<std::unique_ptr<Document>> documents;
int paintingNumber, windowNumber;

std::string lowerExtension(const std::string &path)
{
    size_t dot = path.find_last_of(".\\/:");
    std::string extension = dot == std::string::npos || path[dot] != '.' ? "" : path.substr(dot);
    for (char &each : extension)
        each = static_cast<char>(tolower(static_cast<unsigned char>(each)));
    return extension;
}

Kind kindOf(const std::string &path)
{
    std::string extension = lowerExtension(path);
    return extension == ".bmp" ? Kind::Painting : extension == ".txt" ? Kind::Text : Kind::Resources;
}

std::string nameOf(const std::string &path)
{
    return path.substr(path.find_last_of("\\/:") + 1);
}

OSErr render(Document &document)
{
    switch (document.kind) {
    case Kind::Painting: return readBitmap(document.path, document.world);
    case Kind::Text: return renderText(document.path, document.world);
    case Kind::Resources: return renderResources(document.path, document.world);
    }
    return paramErr;
}

void noteSize(Document &document)
{
    const Rect &bounds = document.world->portRect;
    document.size = {static_cast<SInt16>(bounds.bottom - bounds.top), static_cast<SInt16>(bounds.right - bounds.left)};
}

// Each window a little below and beside the last, as large as its document if there is room.
Rect placeFor(const Document &document)
{
    constexpr SInt16 step = 22, firstLeft = 92, firstTop = 34, margin = 12;
    constexpr int barWidth = scrollBarWidth - 1;
    int number = windowNumber++ % 10;
    RECT desktop = {};
    GetClientRect(hWndMain, &desktop);
    auto left = static_cast<SInt16>(firstLeft + number * step), top = static_cast<SInt16>(firstTop + number * step);
    int right = std::min<int>(left + document.size.h + barWidth, desktop.right - margin);
    int bottom = std::min<int>(top + document.size.v + barWidth, desktop.bottom - margin);
    return {top, left, static_cast<SInt16>(std::max(bottom, top + 120)),
            static_cast<SInt16>(std::max(right, left + 180))};
}

bool openWindow(Document &document)
{
    Rect place = placeFor(document);
    document.window = NewCWindow(nullptr, &place, PascalText(document.title), true, zoomDocProc,
                                 reinterpret_cast<WindowPtr>(-1), true, reinterpret_cast<SRefCon>(&document));
    return document.window != nullptr;
}

std::string reasonFor(OSErr error)
{
    switch (error) {
    case memFullErr: return "there is not enough memory.";
    case fnfErr:
    case dirNFErr: return "it cannot be found.";
    case badResFormat: return "it is damaged, or of another kind than its name says.";
    default: return "of error " + std::to_string(error) + ".";
    }
}

void tellWhy(const std::string &name, OSErr error)
{
    showNotice("\"" + name + "\" cannot be opened, because " + reasonFor(error));
}

Document &addDocument(Kind kind, const std::string &path, const std::string &title)
{
    documents.push_back(std::make_unique<Document>());
    Document &document = *documents.back();
    document.kind = kind;
    document.path = path;
    document.title = title;
    return document;
}

void dropDocument(Document &document)
{
    DisposeGWorld(document.world);
    DisposeGWorld(document.before);
    std::erase_if(documents, [&](const auto &each) { return each.get() == &document; });
    if (documents.empty())
        noteMemory();
}

// Shows a document whose pixels are there, or tells why they are not and drops it.
void finishOpening(Document &document, OSErr error)
{
    if (error == noErr) {
        noteSize(document);
        if (!openWindow(document))
            error = memFullErr;
    }
    if (error != noErr) {
        tellWhy(document.title, error);
        dropDocument(document);
    }
}

// A file of the painting's name that is not there yet: none is written over.
std::string freePath(const std::string &title)
{
    std::string path = fullPath(title + ".bmp");
    for (int i = 2; isThere(path); ++i)
        path = fullPath(title + " (" + std::to_string(i) + ").bmp");
    return path;
}

Size bytesOf(GWorldPtr world)
{
    const Rect &bounds = world->portRect;
    return GetPixRowBytes(GetGWorldPixMap(world)) * (bounds.bottom - bounds.top);
}

Size release(GWorldPtr &world)
{
    if (!world)
        return 0;
    Size bytes = bytesOf(world);
    DisposeGWorld(world);
    world = nullptr;
    return bytes;
}

bool canBeMadeAgain(const Document &document)
{
    return !document.path.empty() && !document.isChanged && document.window != FrontWindow()
           && document.world != qd.thePort;
}

} // namespace

Document *documentOf(WindowPtr window)
{
    for (const auto &each : documents) {
        if (window && each->window == window)
            return each.get();
    }
    return nullptr;
}

Document *frontDocument()
{
    return documentOf(FrontWindow());
}

void openDocument(const std::string &path)
{
    for (const auto &each : documents) {
        if (each->path == path) {
            SelectWindow(each->window);
            return;
        }
    }
    Document &document = addDocument(kindOf(path), path, nameOf(path));
    finishOpening(document, render(document));
}

void newPainting()
{
    constexpr Rect page = {0, 0, 300, 420};
    Document &document = addDocument(Kind::Painting, "", "Untitled " + std::to_string(++paintingNumber));
    OSErr error = NewGWorld(&document.world, 32, &page, nullptr, nullptr, 0);
    if (error == noErr) {
        SetPort(document.world);
        EraseRect(&page);
    }
    finishOpening(document, error);
}

void closeDocument(Document &document)
{
    SetPort(nullptr);
    DisposeWindow(document.window);
    dropDocument(document);
}

void closeAllDocuments()
{
    while (!documents.empty())
        closeDocument(*documents.back());
}

bool saveDocument(Document &document)
{
    if (document.kind != Kind::Painting || !havePixels(document))
        return false;
    std::string path = document.path.empty() ? freePath(document.title) : document.path;
    OSErr error = writeBitmap(path, document.world);
    if (error != noErr) {
        showNotice("\"" + document.title + "\" cannot be saved, because of error " + std::to_string(error) + ".");
        return false;
    }
    document.path = path;
    document.title = nameOf(path);
    document.isChanged = false;
    SetWTitle(document.window, PascalText(document.title));
    return true;
}

bool havePixels(Document &document)
{
    if (document.world)
        return true;
    GrafPtr port;
    GetPort(&port);
    bool isMade = render(document) == noErr;
    if (isMade)
        noteSize(document); // the file may be another than before
    SetPort(port);
    return isMade;
}

SInt32 purgeDocuments(Size bytesWanted)
{
    Size freed = 0;
    for (const auto &each : documents) {
        if (freed < bytesWanted && each->window != FrontWindow())
            freed += release(each->before);
        if (freed < bytesWanted && canBeMadeAgain(*each))
            freed += release(each->world);
    }
    return freed;
}
