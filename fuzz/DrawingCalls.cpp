/// Sequences of drawing calls with any coordinates, pens, brushes, modes and transforms. Three device contexts get the
/// same calls: one of them sees more of the plane, which must not change a pixel of what the smaller one sees, and one
/// gets each call twice under exclusive-or, which must leave it as it was.
#include "Fuzz.h"

#include <vector>

using fuzz::Require;

namespace {

constexpr int kWidth = 61, kHeight = 43;

/// A bitmap of 32 bits in a memory device context of its own.
class Canvas
{
public:
    Canvas(int width, int height) : m_width(width)
    {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        m_dc = CreateCompatibleDC(nullptr);
        m_bitmap = CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        m_bits = static_cast<const DWORD*>(bits);
        m_former = ::SelectObject(m_dc, m_bitmap);
    }
    ~Canvas()
    {
        ::SelectObject(m_dc, m_former);
        ::SelectObject(m_dc, GetStockObject(BLACK_PEN));
        ::SelectObject(m_dc, GetStockObject(WHITE_BRUSH));
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Dc() const { return m_dc; }
    const DWORD* Row(int y) const { return m_bits + size_t(y) * size_t(m_width); }

private:
    int m_width;
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_former;
    const DWORD* m_bits = nullptr;
};

bool SameInside(const Canvas& a, const Canvas& b)
{
    for (int y = 0; y < kHeight; ++y) {
        if (std::memcmp(a.Row(y), b.Row(y), kWidth * sizeof(DWORD)) != 0)
            return false;
    }
    return true;
}

struct Call
{
    int kind;
    int v[8];
};

/// A path of some lines and arcs; drawn by the last call's kind.
struct Figure
{
    std::vector<Call> calls;
    int finish;
};

class Session
{
public:
    explicit Session(fuzz::Input& input) : m_input(input) { ::SetROP2(m_twice.Dc(), R2_XORPEN); }

    void Step()
    {
        switch (m_input.Below(12)) {
        case 0:
            SelectPen();
            break;
        case 1:
            SelectBrush();
            break;
        case 2:
            SetMode();
            break;
        case 3:
            SetTransform();
            break;
        default:
            DrawFigure();
            break;
        }
    }

    void Check() const
    {
        Require(SameInside(m_small, m_large), "what lies outside does not change what is seen");
        Require(SameInside(m_twice, m_untouched), "exclusive-or undoes itself");
    }

private:
    template <class Action>
    void OnAll(Action action)
    {
        for (const Canvas* canvas : {&m_small, &m_large, &m_twice})
            action(canvas->Dc());
    }
    void Select(HGDIOBJ object)
    {
        OnAll([object](HDC dc) { ::SelectObject(dc, object); });
        DeleteObject(object); // lives until the next one is selected
    }
    void SelectPen()
    {
        const int style = m_input.Below(8);
        const int width = m_input.Coordinate();
        const COLORREF color = m_input.Take<COLORREF>();
        const LOGBRUSH brush = {BS_SOLID, color, 0};
        Select(m_input.Byte() & 1 ? CreatePen(style, width, color)
                                  : ExtCreatePen(DWORD(PS_GEOMETRIC | style), DWORD(width), &brush, 0, nullptr));
    }
    void SelectBrush()
    {
        const int kind = m_input.Below(8);
        const COLORREF color = m_input.Take<COLORREF>();
        Select(kind < 6    ? CreateHatchBrush(kind, color)
               : kind == 6 ? CreateSolidBrush(color)
                           : GetStockObject(NULL_BRUSH));
    }
    void SetMode()
    {
        constexpr int kRops[] = {R2_BLACK, R2_NOT, R2_XORPEN, R2_NOP, R2_COPYPEN, R2_WHITE};
        const int rop = kRops[m_input.Below(6)], flags = m_input.Byte();
        ::SetROP2(m_small.Dc(), rop);
        ::SetROP2(m_large.Dc(), rop);
        OnAll([flags](HDC dc) {
            ::SetBkMode(dc, flags & 1 ? OPAQUE : TRANSPARENT);
            ::SetPolyFillMode(dc, flags & 2 ? WINDING : ALTERNATE);
            ::SetArcDirection(dc, flags & 4 ? AD_CLOCKWISE : AD_COUNTERCLOCKWISE);
            ::SetBkColor(dc, COLORREF(flags) << 9);
        });
    }
    void SetTransform()
    {
        const int mode = m_input.Byte() & 3 ? GM_ADVANCED : GM_COMPATIBLE;
        const auto real = [this] { return float(m_input.Real()); };
        XFORM transform = {real(), 0, 0, real(), real(), real()};
        if (m_input.Byte() & 1) {
            transform.eM12 = real();
            transform.eM21 = real();
        }
        OnAll([&](HDC dc) {
            ::SetGraphicsMode(dc, mode);
            ::SetWorldTransform(dc, &transform);
        });
    }

    void DrawFigure()
    {
        Figure figure;
        figure.finish = m_input.Below(5);
        for (int count = m_input.Below(6); count >= 0; --count) {
            Call call = {m_input.Below(8), {}};
            const int values = call.kind < 5 ? 2 : call.kind == 7 ? 4 : 8;
            for (int i = 0; i < values; ++i)
                call.v[i] = m_input.Coordinate();
            figure.calls.push_back(call);
        }
        Draw(m_small.Dc(), figure);
        Draw(m_large.Dc(), figure);
        DrawTwice(figure);
    }
    /// Both times from the same position.
    void DrawTwice(const Figure& figure)
    {
        POINT start = {};
        GetCurrentPositionEx(m_twice.Dc(), &start);
        Draw(m_twice.Dc(), figure);
        MoveToEx(m_twice.Dc(), start.x, start.y, nullptr);
        Draw(m_twice.Dc(), figure);
    }

    static void Draw(HDC dc, const Figure& figure)
    {
        if (figure.finish < 4)
            BeginPath(dc);
        for (const Call& call : figure.calls)
            Add(dc, call);
        if (figure.finish == 4)
            return;
        EndPath(dc);
        if (figure.finish == 0)
            FillPath(dc);
        else if (figure.finish == 1)
            StrokeAndFillPath(dc);
        else
            StrokePath(dc);
    }
    static void Add(HDC dc, const Call& call)
    {
        const int* const v = call.v;
        if (call.kind < 1)
            MoveToEx(dc, v[0], v[1], nullptr);
        else if (call.kind < 4)
            LineTo(dc, v[0], v[1]);
        else if (call.kind == 4)
            CloseFigure(dc);
        else if (call.kind == 5)
            ArcTo(dc, v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7]);
        else if (call.kind == 6) // a circle, which has ways of its own
            ArcTo(dc, v[0], v[1], int(unsigned(v[0]) + unsigned(v[2])), int(unsigned(v[1]) + unsigned(v[2])), v[4],
                  v[5], v[6], v[7]);
        else
            Rectangle(dc, v[0], v[1], v[2], v[3]);
    }

    fuzz::Input& m_input;
    Canvas m_small{kWidth, kHeight};
    Canvas m_large{3 * kWidth, 2 * kHeight};
    Canvas m_twice{kWidth, kHeight};
    Canvas m_untouched{kWidth, kHeight};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > 600)
        return 0;
    fuzz::Input input(data, size);
    const fuzz::SameGdiObjects sameObjects;
    Session session(input);
    while (!input.IsEmpty()) {
        session.Step();
        session.Check();
    }
    return 0;
}
