// A browser of illustrated documents and a paint program, in the Macintosh style.
#pragma once

#include <hostkit/classic.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

// Pascal strings.

class PascalText {
public:
    PascalText(const std::string &text)
    {
        text_[0] = static_cast<UInt8>(text.size() < 255 ? text.size() : 255);
        BlockMove(text.data(), text_ + 1, text_[0]);
    }
    operator ConstStr255Param() const { return text_; }

private:
    Str255 text_;
};

// Documents.

enum class Kind { Painting, Text, Resources };

struct Document {
    Kind kind = Kind::Painting;
    WindowPtr window = nullptr;
    std::string path; // empty for a painting that was never saved
    std::string title;
    // The whole document as pixels. Null when memory was taken back; it is drawn anew then.
    GWorldPtr world = nullptr;
    GWorldPtr before = nullptr; // before the last change of a painting
    Point size{};
    Point scrolled{};
    Rect selection{};
    bool isChanged = false;
};

Document *documentOf(WindowPtr window);
Document *frontDocument();
// By its extension: .bmp, .txt, and anything else as a resource file. Tells the user what is wrong.
void openDocument(const std::string &path);
void newPainting();
void closeDocument(Document &document);
bool saveDocument(Document &document);
void closeAllDocuments();
// The pixels, drawn again if they were purged; false when memory is short.
bool havePixels(Document &document);
// Gives back what can be made again; the bytes freed.
SInt32 purgeDocuments(Size bytesWanted);

// What documents are made of.

OSErr readFile(const std::string &path, Handle data);
std::string fullPath(const std::string &path);
bool isThere(const std::string &path);
OSErr writeFile(const std::string &path, const std::vector<char> &bytes);
// Bitmap files: uncompressed, of any depth. The world is the caller's.
OSErr readBitmap(const std::string &path, GWorldPtr &world);
OSErr writeBitmap(const std::string &path, GWorldPtr world);
// Draws a document's content into a new world.
OSErr renderText(const std::string &path, GWorldPtr &world);
OSErr renderResources(const std::string &path, GWorldPtr &world);

// Windows of documents.

Rect viewOf(const Document &document);
void drawDocument(Document &document);
// Shows a part of the document, in its own coordinates.
void showPart(Document &document, const Rect &part);
void clickInDocument(Document &document, Point where);
void sizeDocument(Document &document);
void scrollTo(Document &document, Point place);
void scrollByKey(Document &document, UInt8 character);
Point documentPoint(const Document &document, Point local);

// Scroll bars, drawn and followed by the program itself.

struct ScrollBar {
    Rect box{};
    bool isVertical = false;
    SInt16 value = 0;
    SInt16 most = 0; // the greatest value
    SInt16 page = 1; // what is seen at once
};
constexpr SInt16 scrollBarWidth = 16; // one pixel of it lies on the window's edge
void drawScrollBar(const ScrollBar &bar, bool isActive);
// Follows a press in the bar; calls with each new value until the button is released.
void trackScrollBar(ScrollBar &bar, Point start, const std::function<void(SInt16 value)> &scroll);

// Painting.

struct Brush {
    int tool = 1;
    int pattern = 4;
    int color = 0;
    int mode = 0;
    int width = 1;
};
extern Brush brush;

enum Tool {
    selectTool,
    pencilTool,
    brushTool,
    eraserTool,
    lineTool,
    rectTool,
    roundTool,
    ovalTool,
    regionTool,
    toolCount
};
void paintAt(Document &document, Point where);
void invertSelection(Document &document);
void selectAll(Document &document);
void undo(Document &document);
void drawSelection(const Document &document);

// The palette of tools.

void openPalette();
void closePalette();
bool isPalette(WindowPtr window);
void drawPalette();
void clickInPalette(Point local);
const Pattern &chosenPattern();
RGBColor chosenColor();
SInt16 chosenMode();

// Notices and the picture about the program.

void showNotice(const std::string &text);
void showAbout();
bool isNotice(WindowPtr window);
void drawNotice(WindowPtr window);
void closeNotices();

// The program.

void handleEvent(const EventRecord &event);
void quit();
extern bool isOver;
// How many events of each kind were handled.
extern UInt32 handled[16];
// Prints how fast the front document is redrawn, so many times through the whole cycle of an update.
void measureRedraws(int count);
// To be called when no document is open: the first time counts.
void noteMemory();
// Prints the events that were handled, and the memory when the first documents were closed and now.
void report();
