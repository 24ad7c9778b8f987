// Rectangles of the user interface: plain ones, edges and the frames of controls.
#include "scenes.h"

namespace scenes {
namespace {

// The colours of a classic desktop, which another one may have changed.
class ClassicColors {
public:
    ClassicColors()
    {
        for (int i = 0; i < count; ++i)
            old_[i] = GetSysColor(elements[i]);
        SetSysColors(count, elements, classic);
    }
    ~ClassicColors() { SetSysColors(count, elements, old_); }
    ClassicColors(const ClassicColors &) = delete;
    ClassicColors &operator=(const ClassicColors &) = delete;

private:
    static constexpr int count = 8;
    static constexpr int elements[count] = {COLOR_BTNFACE,    COLOR_BTNSHADOW,   COLOR_BTNHIGHLIGHT, COLOR_3DLIGHT,
                                            COLOR_3DDKSHADOW, COLOR_WINDOWFRAME, COLOR_WINDOW,       COLOR_BTNTEXT};
    static constexpr COLORREF classic[count] = {RGB(212, 208, 200), RGB(128, 128, 128), RGB(255, 255, 255),
                                                RGB(212, 208, 200), RGB(64, 64, 64),    RGB(0, 0, 0),
                                                RGB(255, 255, 255), RGB(0, 0, 0)};
    COLORREF old_[count];
};

void rectangles(Canvas &canvas)
{
    HDC dc = canvas.dc();
    HBRUSH brush = CreateHatchBrush(HS_CROSS, RGB(255, 0, 0));
    for (int i = 0; i < 6; ++i) {
        RECT rect{5 + i * 30, 5, 30 + i * 34, 40 + i * 5};
        FillRect(dc, &rect, brush);
        OffsetRect(&rect, 3, 70);
        FrameRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        InflateRect(&rect, -i, -i);
        FrameRect(dc, &rect, brush);
        OffsetRect(&rect, 5, -20);
        InvertRect(dc, &rect);
    }
    RECT reversed{60, 150, 20, 130};
    FillRect(dc, &reversed, brush);
    FrameRect(dc, &reversed, brush);
    DeleteObject(brush);
}

template <UINT style> void edges(Canvas &canvas)
{
    ClassicColors colors;
    constexpr UINT kinds[] = {EDGE_RAISED, EDGE_SUNKEN, EDGE_ETCHED, EDGE_BUMP, BDR_RAISEDOUTER, BDR_SUNKENINNER};
    constexpr UINT sides[] = {BF_RECT,
                              BF_RECT | BF_MIDDLE,
                              BF_TOPLEFT,
                              BF_BOTTOM | BF_RIGHT,
                              BF_LEFT | BF_BOTTOM,
                              BF_RECT | BF_ADJUST | BF_MIDDLE};
    for (int i = 0; i < 36; ++i) {
        RECT rect{i % 6 * 35 + 2, i / 6 * 26 + 2, i % 6 * 35 + 32, i / 6 * 26 + 24};
        DrawEdge(canvas.dc(), &rect, kinds[i % 6], sides[i / 6] | style);
        // What the call leaves of the rectangle.
        FrameRect(canvas.dc(), &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }
}

void diagonals(Canvas &canvas)
{
    ClassicColors colors;
    constexpr UINT kinds[] = {EDGE_RAISED, EDGE_SUNKEN, EDGE_ETCHED, EDGE_BUMP};
    constexpr UINT ways[] = {BF_DIAGONAL_ENDTOPRIGHT, BF_DIAGONAL_ENDTOPLEFT, BF_DIAGONAL_ENDBOTTOMLEFT,
                             BF_DIAGONAL_ENDBOTTOMRIGHT};
    for (int i = 0; i < 16; ++i) {
        RECT rect{i % 4 * 50 + 2, i / 4 * 39 + 2, i % 4 * 50 + 40, i / 4 * 39 + 32};
        DrawEdge(canvas.dc(), &rect, kinds[i % 4], ways[i / 4] | (i % 3 ? 0u : unsigned{BF_MIDDLE}));
    }
}

void pushButtons(Canvas &canvas)
{
    ClassicColors colors;
    constexpr UINT states[] = {0, DFCS_PUSHED, DFCS_CHECKED, DFCS_FLAT, DFCS_MONO, DFCS_INACTIVE};
    for (int i = 0; i < 6; ++i) {
        // Where colours are few, the mixture of two is not the same everywhere.
        if (states[i] == DFCS_CHECKED && canvas.depth() <= 8)
            continue;
        RECT rect{i % 3 * 70 + 4, i / 3 * 50 + 4, i % 3 * 70 + 60, i / 3 * 50 + 40};
        DrawFrameControl(canvas.dc(), &rect, DFC_BUTTON, DFCS_BUTTONPUSH | states[i]);
    }
}

void signs(Canvas &canvas)
{
    ClassicColors colors;
    constexpr UINT controls[][2] = {{DFC_BUTTON, DFCS_BUTTONCHECK},   {DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED},
                                    {DFC_BUTTON, DFCS_BUTTONRADIO},   {DFC_BUTTON, DFCS_BUTTONRADIO | DFCS_CHECKED},
                                    {DFC_SCROLL, DFCS_SCROLLUP},      {DFC_SCROLL, DFCS_SCROLLRIGHT | DFCS_PUSHED},
                                    {DFC_CAPTION, DFCS_CAPTIONCLOSE}, {DFC_CAPTION, DFCS_CAPTIONMAX}};
    for (int i = 0; i < 8; ++i) {
        RECT rect{i % 4 * 50 + 6, i / 4 * 50 + 6, i % 4 * 50 + 22, i / 4 * 50 + 22};
        DrawFrameControl(canvas.dc(), &rect, controls[i][0], controls[i][1]);
    }
}

} // namespace

std::vector<Scene> frameScenes()
{
    return {{"frames: rectangles", Agreement::Exact, rectangles},
            {"frames: edges", Agreement::Exact, edges<0>},
            {"frames: soft edges", Agreement::Exact, edges<BF_SOFT>},
            {"frames: flat edges", Agreement::Exact, edges<BF_FLAT>},
            {"frames: monochrome edges", Agreement::Exact, edges<BF_MONO>},
            {"frames: diagonal edges", Agreement::Exact, diagonals},
            {"frames: push buttons", Agreement::Exact, pushButtons},
            {"frames: signs", Agreement::Own, signs}};
}

} // namespace scenes
