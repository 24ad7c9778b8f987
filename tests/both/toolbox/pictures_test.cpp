// Pictures, icons and cursors of resources.
#include "CursorFiles.h"
#include "Graphics.h"
#include "ResourceChain.h"

namespace {

constexpr UInt32 paper = 0x336699, inverse = 0xCC9966;

class Pictures : public ResourceChain {
protected:
    Pictures() : mainWindow(100, 60, 320, 240)
    {
        hWndMain = mainWindow;
        hResInst = LoadLibraryA(modulePath().c_str());
        InitResources();
        InitGraf(nullptr);
        memory.emplace();
        memory->clear(paper);
        MacSetPort(memory->port());
    }
    ~Pictures() override
    {
        memory.reset();
        MTBX_ShutdownGraf();
        MTBX_ShutdownResources();
        FreeLibrary(hResInst);
        hResInst = GetModuleHandleA(nullptr);
        hWndMain = nullptr;
        InitResources();
    }

    UInt32 at(int x, int y) { return memory->pixel(x, y); }

    NativeWindow mainWindow;
    std::optional<PortInMemory> memory;
};

HCURSOR cursorIn(CursHandle handle)
{
    SInt32 value;
    memcpy(&value, *handle, sizeof value);
    return reinterpret_cast<HCURSOR>(static_cast<intptr_t>(value));
}

TEST_F(Pictures, OfOneBitTakeThePortsBackground)
{
    PicHandle picture = GetPicture(129);
    ASSERT_TRUE(picture);
    RGBColor red = {0xFFFF, 0, 0};
    RGBBackColor(&red);
    Rect twice = ltrb(10, 20, 26, 24);
    DrawPicture(picture, &twice);
    // Rows from the bottom up: 0x0F, then 0xCC.
    EXPECT_EQ(at(10, 20), 0u);
    EXPECT_EQ(at(12, 20), 0xFF0000u);
    EXPECT_EQ(at(13, 21), 0xFF0000u);
    EXPECT_EQ(at(14, 21), 0u);
    EXPECT_EQ(at(18, 20), paper) << "in its own size";
    EXPECT_EQ(at(10, 22), paper);
    Rect bounds;
    EXPECT_EQ(QDGetPictureBounds(picture, &bounds), &bounds);
    EXPECT_EQ(bounds, ltrb(0, 0, 8, 2));
    PictInfo info;
    memset(&info, 0xFF, sizeof info);
    EXPECT_EQ(GetPictInfo(picture, &info), noErr);
    EXPECT_EQ(Rect(info.sourceRect), bounds);
    EXPECT_TRUE(info.version == 0 && info.reserved3 == 0);
    KillPicture(picture);
}

TEST_F(Pictures, AreDrawnAtTheCornerAndDamagedOnesNotAtAll)
{
    Rect place = ltrb(5, 5, 6, 6);
    DrawPicture(GetPicture(130), &place);
    EXPECT_EQ(at(5, 5), 0x0000FFu);
    EXPECT_EQ(at(6, 5), 0xFFFFFFu);
    EXPECT_EQ(at(5, 6), 0xFF0000u);
    EXPECT_EQ(at(6, 6), 0x00FF00u);
    memory->clear(paper);
    for (SInt16 id : {128, 131})
        DrawPicture(GetPicture(id), &place);
    DrawPicture(nullptr, &place);
    Handle cut = NewHandle(12);
    DrawPicture(reinterpret_cast<PicHandle>(cut), &place);
    KillPicture(reinterpret_cast<PicHandle>(cut));
    DisposeHandle(cut);
    for (int x = 0; x < 64; ++x)
        ASSERT_EQ(at(x, 5), paper);
}

TEST_F(Pictures, ThatNameABitmapAreCutOff)
{
    PicHandle picture = GetPicture(300);
    ASSERT_TRUE(picture);
    Rect place = ltrb(5, 5, 7, 6);
    DrawPicture(picture, &place);
    auto color = [](const char *bgr) { return static_cast<UInt32>(bgr[2] << 16 | bgr[1] << 8 | bgr[0]); };
    EXPECT_EQ(at(5, 5), color("jkl"));
    EXPECT_EQ(at(6, 5), color("mno"));
    EXPECT_EQ(at(7, 5), paper);
    EXPECT_EQ(at(5, 6), paper);
    KillPicture(picture);
}

TEST_F(Pictures, AreNotRecorded)
{
    Rect frame = ltrb(0, 0, 9, 9);
    EXPECT_EQ(OpenPicture(&frame), nullptr);
    PaintRect(&frame);
    ClosePicture();
    EXPECT_EQ(at(4, 4), 0u);
}

TEST_F(Pictures, IconsAreResourcesOrTheHostsBitmaps)
{
    Handle icon = GetIcon(300);
    ASSERT_TRUE(icon);
    // 3 by 2 pixels: a word a row, the first bytes of the bitmap, then the trailer.
    ASSERT_EQ(GetHandleSize(icon), 4 + 10);
    SInt16 id;
    SInt32 size;
    memcpy(&id, *icon + 4, sizeof id);
    memcpy(&size, *icon + 10, sizeof size);
    EXPECT_TRUE(id == 300 && size == 4);
    EXPECT_EQ(memcmp(*icon + 6, "NOCI", 4), 0) << "the number of the type as it lies in memory";
    EXPECT_EQ(GetIcon(300), icon) << "of the chain from now on";
    EXPECT_EQ(GetIcon(301), nullptr);
    EXPECT_EQ(GetCIcon(300), nullptr);
}

TEST_F(Pictures, CursorsOfResourcesHaveFourKindsOfPixels)
{
    CursHandle cursor = MacGetCursor(128);
    ASSERT_TRUE(cursor);
    EXPECT_EQ(GetCCursor(128), cursor);
    EXPECT_EQ(GetHandleSize(reinterpret_cast<Handle>(cursor)), 4);
    ASSERT_TRUE(DrawIcon(memory->context(), 8, 8, cursorIn(cursor)));
    EXPECT_EQ(at(8, 8), paper);
    EXPECT_EQ(at(8 + 15, 8), inverse);
    EXPECT_EQ(at(8, 8 + 15), 0xFFFFFFu);
    EXPECT_EQ(at(8 + 15, 8 + 15), 0u);
    EXPECT_EQ(at(8 + 16, 8 + 15), paper) << "the rest lets the screen through";
    EXPECT_EQ(MacGetCursor(129), nullptr) << "too short";
    EXPECT_EQ(MacGetCursor(4711), nullptr);
    // A handle that leaves the chain leaves the cache.
    DetachResource(reinterpret_cast<Handle>(cursor));
    CursHandle again = MacGetCursor(128);
    EXPECT_NE(again, cursor);
    memory->clear(paper);
    DrawIcon(memory->context(), 8, 8, cursorIn(again));
    EXPECT_EQ(at(8 + 15, 8), inverse) << "from the same resource";
    DestroyCursor(cursorIn(cursor));
    DisposeHandle(reinterpret_cast<Handle>(cursor));
}

TEST_F(Pictures, SystemCursorsAreSetAndShown)
{
    CursHandle beam = MacGetCursor(iBeamCursor);
    ASSERT_TRUE(beam);
    EXPECT_EQ(MacGetCursor(iBeamCursor), beam);
    EXPECT_EQ(cursorIn(beam), LoadCursorA(nullptr, IDC_IBEAM));
    EXPECT_EQ(cursorIn(MacGetCursor(plusCursor)), LoadCursorA(nullptr, IDC_CROSS));
    EXPECT_EQ(cursorIn(MacGetCursor(watchCursor)), LoadCursorA(nullptr, IDC_WAIT));
    MacSetCursor(*beam);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_IBEAM));
    Cursor none = {};
    MacSetCursor(&none);
    MacSetCursor(nullptr);
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_IBEAM));
    InitCursor();
    EXPECT_EQ(GetCursor(), LoadCursorA(nullptr, IDC_ARROW));
    int level = ShowCursor(TRUE);
    HideCursor();
    HideCursor();
    MacShowCursor();
    EXPECT_EQ(ShowCursor(FALSE), level - 2);
    ShowCursor(TRUE);
}

TEST_F(Pictures, TheAnimatedCursorIsAFileBesideTheProgram)
{
    EXPECT_EQ(MacGetCursor(1029), nullptr);
    std::string folder = folderOfProgram() + "Animations";
    CreateDirectoryA(folder.c_str(), nullptr);
    MTBX_SetAnimatedCursorDirectory("Animations");
    std::string file = cursor_files::file(2, {{cursor_files::picture(32, 24, 0x204060), 32, 2, 2}});
    std::string bytes = cursor_files::animation({file, file}, 6), path = folder + "\\render.ANI";
    HANDLE made = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written;
    WriteFile(made, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(made);
    gAnimCursor = 0;
    EXPECT_EQ(MacGetCursor(1029), nullptr);
    gAnimCursor = 1;
    CursHandle cursor = MacGetCursor(1029);
    EXPECT_TRUE(cursor);
    EXPECT_EQ(MacGetCursor(1029), cursor);
    DeleteFileA(path.c_str());
    RemoveDirectoryA(folder.c_str());
    MTBX_SetAnimatedCursorDirectory("");
}

} // namespace
