/// One digest for each drawing primitive, over its pixels at many scales, mirrored or not, copied and with
/// exclusive-or. What is drawn twice with exclusive-or leaves every pixel as it was. Text is left out: its pixels are
/// those of the fonts that are installed.
#include "digests/Digest.h"
#include "entities/CKGeomArc.h"
#include "entities/CKGeomArray.h"
#include "entities/CKGeomCircle.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"
#include "painter/CKPainter.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace digests {
namespace {

constexpr int kWidth = 160, kHeight = 96; // rows of 1, 24 and 32 bits need no padding

/// A memory device context over pixels that the test can reach.
class Picture
{
public:
    explicit Picture(int bitsPerPixel) : m_size(size_t(kWidth) * kHeight * size_t(bitsPerPixel) / 8)
    {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, kWidth, -kHeight, 1, WORD(bitsPerPixel), BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        m_bitmap.Attach(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        m_bits = static_cast<uint8_t*>(bits);
        m_dc.CreateCompatibleDC(nullptr);
        m_former = m_dc.SelectObject(&m_bitmap);
        m_mask = bitsPerPixel == 32 ? 0x00FFFFFF00FFFFFFu : ~uint64_t(0); // the fourth byte is no colour
    }
    ~Picture() { m_dc.SelectObject(m_former); }

    CDC* Get() { return &m_dc; }
    std::vector<uint64_t> Pixels() const
    {
        std::vector<uint64_t> words(m_size / sizeof(uint64_t));
        std::memcpy(words.data(), m_bits, m_size);
        for (uint64_t& word : words)
            word &= m_mask;
        return words;
    }
    void Cover(Numbers numbers)
    {
        for (size_t i = 0; i < m_size; i += sizeof(uint64_t)) {
            const uint64_t word = numbers.Bits() & m_mask;
            std::memcpy(m_bits + i, &word, sizeof word);
        }
    }

private:
    CDC m_dc;
    CBitmap m_bitmap;
    CBitmap* m_former;
    uint8_t* m_bits;
    size_t m_size;
    uint64_t m_mask;
};

/// Coordinates of one view: on a board of a few centimetres, around the window, and now and then beyond all bounds.
class Board : public Numbers
{
public:
    Board(uint64_t seed, double pixelsPerMM) : Numbers(seed), m_pixelsPerMM(pixelsPerMM) {}

    double Mm()
    {
        static const double kSpecial[] = {std::numeric_limits<double>::quiet_NaN(),
                                          -std::numeric_limits<double>::infinity(), 1e300, -1e12};
        if (OneIn(60))
            return OneOf(kSpecial);
        return OneIn(3) ? Whole(-80, 80) * 0.25 : Real(OneIn(4) ? 2000 : 110) / m_pixelsPerMM;
    }
    double Length() { return OneIn(3) ? Whole(0, 12) * 0.25 : Whole(0, 300) * 0.1 / m_pixelsPerMM; }
    float Angle() { return OneIn(2) ? float(Whole(-4, 8) * 45) : float(Real(360)); }
    COLORREF Color() { return COLORREF(Bits() & 0xFFFFFF); }
    int Pixel()
    {
        return OneIn(40) ? (OneIn(2) ? INT32_MAX : INT32_MIN) : OneIn(5) ? Whole(-9999, 9999) : Whole(-40, 200);
    }
    int Flag() { return Whole(0, 1); }

private:
    double m_pixelsPerMM;
};

struct Pen
{
    CDC* dc;
    CPen pen;
    CPen* former;
    Pen(CDC* target, int style, int width, COLORREF color) : dc(target), pen(style, width, color)
    {
        former = dc->SelectObject(&pen);
    }
    ~Pen() { dc->SelectObject(former); }
};

struct Brush
{
    CDC* dc;
    HBRUSH brush;
    HGDIOBJ former;
    Brush(CDC* target, HBRUSH own) : dc(target), brush(own), former(dc->SelectObject(HGDIOBJ(own))) {}
    ~Brush()
    {
        dc->SelectObject(former);
        DeleteObject(brush);
    }
};

/// Ends of a figure, drawn before its kind is known.
struct Four
{
    double a, b, c, d;
    explicit Four(Board& n) : a(n.Mm()), b(n.Mm()), c(n.Mm()), d(n.Mm()) {}
};

/// Where a figure is placed: mostly where it is.
struct Offset
{
    double x, y;
    explicit Offset(Board& n) : x(n.OneIn(2) ? 0 : n.Length()), y(n.OneIn(2) ? 0 : n.Length()) {}
};

struct Turn
{
    double sx, sy, ex, ey, cx, cy;
    int flag;
    /// An arc whose ends lie on one circle, often a full one.
    explicit Turn(Board& n) : cx(n.Mm()), cy(n.Mm()), flag(n.Flag())
    {
        const KPointD arms[] = {{3, 4}, {-5, 0}, {0, 5}, {4, -3}, {-3, -4}};
        const double size = n.Length();
        const KPointD start = n.OneOf(arms), end = n.OneIn(3) ? start : n.OneOf(arms);
        sx = cx + start.x * size, sy = cy + start.y * size;
        ex = cx + end.x * size, ey = cy + end.y * size;
    }
};

/// A zigzag of lines as one figure.
void ZigzagPath(CKPainter& p, CDC* dc, Board& n, int lines)
{
    KPointD at = {n.Mm(), n.Mm()};
    for (int i = 0; i < lines; ++i) {
        const KPointD to = {n.Mm(), n.Mm()};
        p.AddLinePath(dc, at.x, at.y, to.x, to.y, i == 0);
        at = to;
    }
}

/// `add` between BeginPath and EndPath, then stroked, filled, or both, by the number.
template <class Add>
void Path(CKPainter& p, CDC* dc, Board& n, Add add)
{
    dc->BeginPath();
    add();
    dc->EndPath();
    const int fillMode = dc->SetPolyFillMode(n.Whole(ALTERNATE, WINDING));
    const int width = n.Whole(0, 9);
    switch (n.Whole(0, 2)) {
    case 0:
        p.StrokePath(dc, width, n.Color());
        break;
    case 1:
        p.FillPath(dc, n.Color());
        break;
    default:
        p.StrokeAndFillPath(dc, width, n.Color());
    }
    dc->SetPolyFillMode(fillMode);
}

void PixelPolygon(CDC* dc, Board& n, int corners)
{
    dc->BeginPath();
    for (int i = 0; i < corners; ++i) {
        const int x = n.Pixel(), y = n.Pixel();
        i == 0 ? dc->MoveTo(x, y), 0 : dc->LineTo(x, y);
    }
    dc->CloseFigure();
    dc->EndPath();
}

void PixelArc(CDC* dc, Board& n)
{
    const int left = n.Pixel(), top = n.Pixel(), right = n.Pixel(), bottom = n.Pixel();
    const int x = n.Pixel(), y = n.Pixel(), fromX = n.Pixel(), fromY = n.Pixel();
    const bool whole = n.OneIn(4);
    const int x2 = whole ? x : n.Pixel(), y2 = whole ? y : n.Pixel();
    dc->SetArcDirection(n.Whole(AD_COUNTERCLOCKWISE, AD_CLOCKWISE));
    dc->MoveTo(fromX, fromY);
    dc->ArcTo(left, top, right, bottom, x, y, x2, y2);
    dc->SetArcDirection(AD_COUNTERCLOCKWISE);
}

enum class Frame
{
    World,  ///< under the world transform of a frame
    Device, ///< in device pixels, compatible mode
    Turned, ///< in pixels under a turn, which widens pens and turns hatches' outlines but not their patterns
};

struct Primitive
{
    const char* name;
    Frame frame;
    void (*draw)(CKPainter& p, CDC* dc, Board& n);
};

// The order in which arguments of one call are worked out is the compiler's choice, so numbers that matter are taken
// one statement at a time.
const Primitive kPrimitives[] = {
    {"DrawLine", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const double width = n.Length();
         p.DrawLine(dc, n.Color(), at.a, at.b, at.c, at.d, width, 0);
     }},
    {"DrawLine thin", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         p.DrawLine(dc, n.Color(), at.a, at.b, at.c, at.d, 0, 0);
     }},
    {"DrawLineNoWorldTransform", Frame::Device,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const double width = n.Length();
         p.DrawLineNoWorldTransform(dc, n.Color(), at.a, at.b, at.c, at.d, width);
     }},
    {"DrawArc", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Turn t(n);
         const double width = n.Length();
         p.DrawArc(dc, n.Color(), t.sx, t.sy, t.ex, t.ey, t.cx, t.cy, t.flag ? -1 : 1, width, 0);
     }},
    {"DrawArc thin", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Turn t(n);
         p.DrawArc(dc, n.Color(), t.sx, t.sy, t.ex, t.ey, t.cx, t.cy, t.flag ? -1 : 1, 0, 0);
     }},
    {"DrawArcNoWorldTransform", Frame::Device,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Turn t(n);
         const double width = n.Length();
         p.DrawArcNoWorldTransform(dc, n.Color(), t.sx, t.sy, t.ex, t.ey, t.cx, t.cy, t.flag ? -1 : 1, width, 0);
     }},
    {"DrawCircle", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const double radius = n.Length();
         const int fill = n.Flag();
         p.DrawCircle(dc, n.Color(), radius, at.a, at.b, fill);
     }},
    {"DrawCircleNoWorldTransform", Frame::Device,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const double radius = n.Length();
         const int fill = n.Flag();
         p.DrawCircleNoWorldTransform(dc, n.Color(), radius, at.a, at.b, fill);
     }},
    {"DrawRectangle", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const int fill = n.Flag();
         p.DrawRectangle(dc, n.Color(), at.a, at.b, at.c, at.d, fill);
     }},
    {"DrawRectangleWithIntPenWidth", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const int fill = n.Flag(), width = n.Whole(0, 8);
         p.DrawRectangleWithIntPenWidth(dc, n.Color(), at.a, at.b, at.c, at.d, fill, width);
     }},
    {"DrawRectangleNoWorldTransform", Frame::Device,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const int fill = n.Flag();
         p.DrawRectangleNoWorldTransform(dc, n.Color(), at.a, at.b, at.c, at.d, fill);
     }},
    {"DrawCross", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         p.DrawCross(dc, n.Color(), at.a, at.b, at.c);
     }},
    {"DrawCross in pixels", Frame::Device,
     [](CKPainter& p, CDC* dc, Board& n) {
         const int x = n.Pixel(), y = n.Pixel(), size = n.Pixel();
         p.DrawCross(dc, n.Color(), x, y, size);
     }},
    {"DrawArrow", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const int both = n.Flag();
         p.DrawArrow(dc, n.Color(), at.a, at.b, at.c, at.d, both);
     }},
    {"DrawArrowWithPenWidth", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const double width = n.Length();
         const int start = n.Flag(), end = n.Flag();
         const float limit = float(n.Length());
         p.DrawArrowWithPenWidth(dc, n.Color(), at.a, at.b, at.c, at.d, width, start, end, limit);
     }},
    {"DrawArrowNoWorldTransform", Frame::Device,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const int both = n.Flag();
         p.DrawArrowNoWorldTransform(dc, n.Color(), at.a, at.b, at.c, at.d, both);
     }},
    {"DrawArrowNoWorldTransformWithPenWidth", Frame::Device,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n);
         const double width = n.Length();
         const int start = n.Flag(), end = n.Flag();
         const float limit = float(n.Length());
         p.DrawArrowNoWorldTransformWithPenWidth(dc, n.Color(), at.a, at.b, at.c, at.d, width, start, end, limit);
     }},
    {"StrokeDashLine", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         dc->BeginPath();
         ZigzagPath(p, dc, n, 3);
         dc->EndPath();
         const int width = n.Whole(0, 3);
         p.StrokeDashLine(dc, width, n.Color());
     }},
    {"AddLinePath", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) { Path(p, dc, n, [&] { ZigzagPath(p, dc, n, n.Whole(1, 12)); }); }},
    {"AddLinePath placed", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         Path(p, dc, n, [&] {
             for (int first = 1; first >= 0; --first) {
                 const Four at(n);
                 const Offset offset(n);
                 const float angle = n.Angle();
                 p.AddLinePath(dc, at.a, at.b, at.c, at.d, offset.x, offset.y, angle, n.Flag(), first);
             }
         });
     }},
    {"AddCirclePath", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         Path(p, dc, n, [&] {
             for (int i = 0; i < 3; ++i) {
                 const Four at(n);
                 p.AddCirclePath(dc, at.a, at.b, n.Length(), 1);
             }
         });
     }},
    {"AddCirclePath in pixels", Frame::Device,
     [](CKPainter& p, CDC* dc, Board& n) {
         Path(p, dc, n, [&] {
             const int x = n.Pixel(), y = n.Pixel();
             p.AddCirclePath(dc, x, y, n.Whole(0, 90), 1);
         });
     }},
    {"AddRectanglePath", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         Path(p, dc, n, [&] {
             const Four at(n);
             const float angle = n.Angle();
             p.AddRectanglePath(dc, at.a, at.b, at.c, at.d, angle, n.Flag(), 1);
         });
     }},
    {"AddArcPath", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         Path(p, dc, n, [&] {
             for (int first = 1; first >= 0; --first) {
                 const Turn t(n);
                 const Offset offset(n);
                 const float angle = n.Angle();
                 p.AddArcPath(dc, t.sx, t.sy, t.ex, t.ey, t.cx, t.cy, t.flag, offset.x, offset.y, angle, 0, n.Flag(),
                              first);
             }
         });
     }},
    {"AddLineOutlinePath", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         Path(p, dc, n, [&] {
             const Four at(n);
             const float width = float(n.Length());
             p.AddLineOutlinePath(dc, at.a, at.b, at.c, at.d, width, n.Flag());
         });
     }},
    {"AddArcOutlinePath", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         Path(p, dc, n, [&] {
             const Turn t(n);
             const Offset offset(n);
             const double width = n.Length();
             const float angle = n.Angle();
             dc->MoveTo(0, 0);
             p.AddArcOutlinePath(dc, t.sx, t.sy, t.ex, t.ey, t.cx, t.cy, width, t.flag, offset.x, offset.y, angle, 0,
                                 n.Flag());
         });
     }},
    {"StrokeAndFillPathHatchStyle", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         dc->BeginPath();
         ZigzagPath(p, dc, n, 4);
         dc->CloseFigure();
         dc->EndPath();
         const int width = n.Whole(0, 6), hatch = n.Whole(-1, 5);
         p.StrokeAndFillPathHatchStyle(dc, width, n.Color(), hatch);
     }},
    {"DrawGeoms", Frame::World,
     [](CKPainter& p, CDC* dc, Board& n) {
         const Four at(n), other(n);
         const Turn t(n);
         const double size = n.Length(), width = n.Length();
         CKGeomArray shapes;
         shapes.Add(new CKGeomLine(at.a, at.b, at.c, at.d, width));
         shapes.Add(new CKGeomArc(t.sx, t.sy, t.ex, t.ey, t.cx, t.cy, width));
         shapes.Add(new CKGeomCircle(other.a, other.b, size));
         shapes.Add(new CKGeomPoint(other.c, other.d));
         p.DrawGeoms(dc, &shapes, n.Color());
     }},
    {"LineTo with every pen style", Frame::Device,
     [](CKPainter&, CDC* dc, Board& n) {
         dc->SetBkMode(n.Whole(TRANSPARENT, OPAQUE));
         dc->SetBkColor(n.Color());
         const int style = n.Whole(PS_SOLID, PS_INSIDEFRAME), width = n.Whole(0, 3);
         const Pen pen(dc, style, width, n.Color());
         dc->MoveTo(kWidth / 2, kHeight / 2);
         for (int i = 0; i < 3; ++i) {
             const int x = n.Pixel();
             dc->LineTo(x, n.Pixel());
         }
     }},
    {"Rectangle hatched", Frame::Device,
     [](CKPainter&, CDC* dc, Board& n) {
         dc->SetBkMode(n.Whole(TRANSPARENT, OPAQUE));
         dc->SetBkColor(n.Color());
         const int width = n.Whole(0, 5), hatch = n.Whole(0, 5);
         const Pen pen(dc, PS_SOLID, width, n.Color());
         const Brush brush(dc, CreateHatchBrush(hatch, n.Color()));
         const int left = n.Pixel(), top = n.Pixel(), right = n.Pixel();
         dc->Rectangle(left, top, right, n.Pixel());
     }},
    {"Polygon turned", Frame::Turned,
     [](CKPainter&, CDC* dc, Board& n) {
         dc->SetPolyFillMode(n.Whole(ALTERNATE, WINDING));
         const int width = n.Whole(0, 9);
         const Pen pen(dc, PS_SOLID, width, n.Color());
         const Brush brush(dc, CreateSolidBrush(n.Color()));
         PixelPolygon(dc, n, n.Whole(2, 30));
         n.Flag() ? dc->FillPath() : dc->StrokeAndFillPath();
     }},
    {"ArcTo", Frame::Device,
     [](CKPainter&, CDC* dc, Board& n) {
         const int width = n.OneIn(2) ? 0 : n.Whole(2, 20);
         const Pen pen(dc, PS_SOLID, width, n.Color());
         PixelArc(dc, n);
     }},
    {"ArcTo turned", Frame::Turned,
     [](CKPainter&, CDC* dc, Board& n) {
         const int width = n.OneIn(2) ? 0 : n.Whole(2, 20);
         const Pen pen(dc, PS_SOLID, width, n.Color());
         dc->BeginPath();
         PixelArc(dc, n);
         dc->EndPath();
         n.Flag() ? dc->StrokePath() : dc->StrokeAndFillPath();
     }},
    {"PatBlt with exclusive-or", Frame::Device,
     [](CKPainter&, CDC* dc, Board& n) {
         const Brush brush(dc, CreateSolidBrush(n.Color()));
         const int x = n.Pixel(), y = n.Pixel(), width = n.Whole(-20, 90);
         dc->PatBlt(x, y, width, n.Whole(-20, 90), PATINVERT);
         dc->PatBlt(y, x, 60, n.Whole(0, 60), DSTINVERT);
     }},
};

constexpr int kPictures = 96; // of each primitive
constexpr double kScales[] = {0.02, 0.4, 1, 2.5, 3.7795275590551185, 7, 12.34, 41, 97.7, 650, 1e4, 1e9};

/// A view of that scale with the origin near the middle of the picture, set up as a frame is.
void Place(CKPainter& painter, CDC* dc, Frame frame, double scale, int mirror, Numbers n)
{
    painter.SetPixcelPerMM(1);
    painter.SetScale(scale);
    painter.SetBoardMirrorX(mirror);
    const double x = n.Real(8), y = n.Real(8);
    painter.SetLogicalCenter(x / scale, y / scale);
    painter.SetPhysicalCenter(kWidth / 2, kHeight / 2);
    if (frame == Frame::Device)
        return;
    dc->SetGraphicsMode(GM_ADVANCED);
    XFORM transform = painter.GenerateXFormMirrorY(mirror);
    if (frame == Frame::Turned) {
        transform = painter.GenerateXFormRotated(float(n.Whole(0, 24) * 15), 40, 30);
        if (mirror)
            transform.eM11 = -transform.eM11, transform.eM12 = -transform.eM12;
    }
    dc->SetWorldTransform(&transform);
}

/// The figures of one picture, the same whenever the seed is.
void DrawFigures(const Primitive& primitive, CKPainter& painter, CDC* dc, uint64_t seed, double scale)
{
    Board board(seed, scale);
    for (int i = 0; i < 5; ++i)
        primitive.draw(painter, dc, board);
}

/// Adds the pixels of two pictures; 1 when the figures left a trace in the second.
int AddPicture(Digest& digest, const Primitive& primitive, double scale, int mirror, uint64_t seed)
{
    static const int kDepths[] = {32, 24, 1, 32};
    static const int kOperations[] = {R2_COPYPEN, R2_NOT, R2_BLACK, R2_COPYPEN, R2_WHITE, R2_COPYPEN, R2_NOP};
    Picture picture(kDepths[seed % 4]);
    CDC* const dc = picture.Get();
    CKPainter painter;
    Place(painter, dc, primitive.frame, scale, mirror, Numbers(seed));
    const auto addPixels = [&] {
        for (uint64_t word : picture.Pixels())
            digest.Add(word);
    };

    picture.Cover(Numbers(seed + 1));
    dc->SetROP2(kOperations[seed % 7]);
    DrawFigures(primitive, painter, dc, seed, scale);
    addPixels();

    picture.Cover(Numbers(seed + 2));
    const std::vector<uint64_t> before = picture.Pixels();
    dc->SetROP2(R2_XORPEN);
    DrawFigures(primitive, painter, dc, seed, scale);
    addPixels();
    const bool traces = picture.Pixels() != before;
    DrawFigures(primitive, painter, dc, seed, scale);
    EXPECT_EQ(picture.Pixels(), before) << primitive.name << " at " << scale << ", mirror " << mirror << ", seed "
                                        << seed;
    return traces;
}

TEST(Digests, EveryDrawingPrimitive)
{
    Record record;
    for (const Primitive& primitive : kPrimitives) {
        Digest digest;
        int traces = 0;
        for (int i = 0; i < kPictures; ++i)
            traces += AddPicture(digest, primitive, kScales[i / 2 % 12], i % 2, uint64_t(i + 1) * 1009);
        EXPECT_GT(traces, kPictures / 2) << primitive.name;
        record[primitive.name] = digest.Value();
    }
    ExpectRecorded("drawing", record);
}

} // namespace
} // namespace digests
