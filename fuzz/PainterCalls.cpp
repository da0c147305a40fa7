/// Sequences of the painter's operations with any numbers, in a small window under any view.
#include "entities/CKGeomArc.h"
#include "entities/CKGeomArray.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomText.h"
#include "Fuzz.h"
#include "painter/CKPainter.h"

using fuzz::Require;

namespace {

class Session
{
public:
    explicit Session(fuzz::Input& input) : m_input(input)
    {
        m_window.CreateEx(0, "", "", WS_POPUP, 0, 0, 48, 36, nullptr, nullptr);
        m_painter.Init(nullptr);
    }

    void Step(CDC& dc)
    {
        switch (m_input.Below(6)) {
        case 0:
            SetView(dc);
            break;
        case 1:
            Frame(dc);
            break;
        case 2:
            Outline(dc);
            break;
        case 3:
            Text(dc);
            break;
        default:
            Figure(dc);
            break;
        }
    }
    CWnd& Window() { return m_window; }

private:
    /// The arguments of one call, read ahead: the order in which a call's own arguments are computed is the compiler's.
    struct Arguments
    {
        double r[10] = {};
        int i[6] = {};
        int flags = 0;

        int Flag(int bit) const { return flags >> bit & 1; }
        float F(int index) const { return float(r[index]); }
    };
    Arguments Take(int reals, int ints = 0)
    {
        Arguments arguments;
        arguments.flags = m_input.Byte();
        for (int n = 0; n < reals; ++n)
            arguments.r[n] = m_input.Real();
        for (int n = 0; n < ints; ++n)
            arguments.i[n] = m_input.Coordinate();
        return arguments;
    }

    void SetView(CDC& dc)
    {
        const Arguments a = Take(5, 6);
        switch (m_input.Below(9)) {
        case 0:
            m_painter.SetScale(a.r[0]);
            break;
        case 1:
            m_painter.SetLogicalCenter(a.r[0], a.r[1]);
            break;
        case 2:
            m_painter.ZoomArea(a.i[0], a.i[1], a.r[0], a.r[1], a.r[2], a.r[3], a.r[4]);
            break;
        case 3:
            m_painter.ZoomAreaByPhysicalSize(a.i[0], a.i[1], a.i[2], a.i[3], a.i[4], a.i[5], a.r[0]);
            break;
        case 4:
            m_painter.MovedOriginByPhysicalDistance(a.i[0], a.i[1]);
            break;
        case 5:
            m_painter.SetBoardMirrorX(a.Flag(0));
            break;
        case 6:
            dc.SetROP2(a.Flag(0) ? R2_XORPEN : R2_COPYPEN);
            break;
        case 7:
            m_painter.ZoomOutScale(a.r[0], a.Flag(0));
            break;
        default:
            SetTransform(dc);
            break;
        }
    }
    void SetTransform(CDC& dc)
    {
        const Arguments a = Take(3);
        const XFORM transform = a.Flag(0) ? m_painter.GenerateXFormMirrorY(a.Flag(1))
                                          : m_painter.GenerateXFormRotated(a.F(0), a.F(1), a.F(2));
        dc.SetGraphicsMode(GM_ADVANCED);
        dc.SetWorldTransform(&transform);
    }

    void SetIdentity(CDC& dc)
    {
        const XFORM identity = m_painter.GenerateXFormOriginal();
        dc.SetWorldTransform(&identity);
    }

    void Frame(CDC& dc)
    {
        CKGeomArray shapes;
        const Arguments l = Take(7), a = Take(7, 2);
        shapes.Add(new CKGeomLine(l.r[0], l.r[1], l.r[2], l.r[3], l.r[4]));
        shapes.GetAt(0)->SetOffsetXY(l.r[5], l.r[6]);
        shapes.Add(new CKGeomArc(a.r[0], a.r[1], a.r[2], a.r[3], a.r[4], a.r[5], a.r[6]));
        switch (m_input.Below(4)) {
        case 0:
            m_painter.DrawView(&m_window, &dc);
            m_painter.DrawGeomsAndDrawSavedDC(&m_window, &shapes, nullptr);
            break;
        case 1:
            m_painter.Capture(&m_window, a.i[0] % 64, a.i[1] % 64, l.F(0), l.F(1), l.F(2), l.F(3));
            if (m_painter.GetCaptureBitmap())
                DeleteObject(*m_painter.GetCaptureBitmap());
            break;
        case 2:
            m_painter.AddEventObject(shapes.GetAt(0)->clone());
            m_painter.DrawGeoms(&dc, m_painter.GetEventObjects());
            break;
        default:
            m_painter.DrawGeoms(&dc, &shapes, m_input.Take<COLORREF>());
            break;
        }
    }

    void Outline(CDC& dc)
    {
        dc.BeginPath();
        for (int count = m_input.Below(4); count >= 0; --count)
            AddOutline(dc);
        dc.EndPath();
        const COLORREF color = m_input.Take<COLORREF>();
        const Arguments a = Take(0, 1);
        switch (m_input.Below(5)) {
        case 0:
            m_painter.StrokePath(&dc, a.i[0], color);
            break;
        case 1:
            m_painter.FillPath(&dc, color);
            break;
        case 2:
            m_painter.StrokeDashLine(&dc, a.i[0], color);
            break;
        default:
            m_painter.StrokeAndFillPathHatchStyle(&dc, a.i[0], color, a.flags % 8 - 1);
            break;
        }
    }
    void AddOutline(CDC& dc)
    {
        const Arguments a = Take(10);
        switch (m_input.Below(6)) {
        case 0:
            m_painter.AddLinePath(&dc, a.r[0], a.r[1], a.r[2], a.r[3], a.r[4], a.r[5], a.F(6), a.Flag(0), a.Flag(1));
            break;
        case 1:
            m_painter.AddCirclePath(&dc, a.r[0], a.r[1], a.r[2], a.Flag(0));
            break;
        case 2:
            m_painter.AddRectanglePath(&dc, a.r[0], a.r[1], a.r[2], a.r[3], a.F(4), a.Flag(0), a.Flag(1));
            break;
        case 3:
            m_painter.AddArcPath(&dc, a.r[0], a.r[1], a.r[2], a.r[3], a.r[4], a.r[5], a.Flag(0), a.r[6], a.r[7], a.F(8),
                                 0, a.Flag(1), a.Flag(2));
            break;
        case 4:
            m_painter.AddLineOutlinePath(&dc, a.r[0], a.r[1], a.r[2], a.r[3], a.F(4), a.Flag(0));
            break;
        default:
            m_painter.AddArcOutlinePath(&dc, a.r[0], a.r[1], a.r[2], a.r[3], a.r[4], a.r[5], a.r[6], a.Flag(0), a.r[7],
                                        a.r[8], a.F(9), 0, a.Flag(1));
            break;
        }
    }

    void Text(CDC& dc)
    {
        const std::string bytes = m_input.Text(m_input.Below(8));
        const CString text(bytes.data(), int(bytes.size()));
        const COLORREF color = m_input.Take<COLORREF>();
        const Arguments a = Take(4);
        switch (m_input.Below(3)) {
        case 0:
            m_painter.DrawWindowFontText(&dc, a.Flag(0), color, text, a.r[0], a.r[1], a.r[2], a.F(3));
            break;
        case 1:
            SetIdentity(dc); // its pixels are copied one by one, so a transform that shrinks would cost them all
            m_painter.DrawTextNoWorldTransform(&dc, color, a.Flag(0), text, a.r[0], a.r[1], a.r[2]);
            break;
        default:
            m_painter.DrawTextA(&dc, color, text, a.r[0], a.r[1], 0, 0);
            break;
        }
    }

    void Figure(CDC& dc)
    {
        const COLORREF color = m_input.Take<COLORREF>();
        const Arguments a = Take(7, 1);
        switch (m_input.Below(8)) {
        case 0:
            m_painter.DrawLine(&dc, color, a.r[0], a.r[1], a.r[2], a.r[3], a.r[4], 0);
            break;
        case 1:
            m_painter.DrawLineNoWorldTransform(&dc, color, a.r[0], a.r[1], a.r[2], a.r[3], a.r[4]);
            break;
        case 2:
            m_painter.DrawArc(&dc, color, a.r[0], a.r[1], a.r[2], a.r[3], a.r[4], a.r[5], a.Flag(0) ? 1 : -1, a.r[6],
                              0);
            break;
        case 3:
            m_painter.DrawArcNoWorldTransform(&dc, color, a.r[0], a.r[1], a.r[2], a.r[3], a.r[4], a.r[5],
                                              a.Flag(0) ? 1 : -1, a.r[6], 0);
            break;
        case 4:
            m_painter.DrawCircle(&dc, color, a.r[0], a.r[1], a.r[2], a.Flag(0));
            break;
        case 5:
            m_painter.DrawRectangleWithIntPenWidth(&dc, color, a.r[0], a.r[1], a.r[2], a.r[3], a.Flag(0), a.i[0]);
            break;
        case 6:
            m_painter.DrawCross(&dc, color, a.r[0], a.r[1], a.r[2]);
            break;
        default:
            m_painter.DrawArrowWithPenWidth(&dc, color, a.r[0], a.r[1], a.r[2], a.r[3], a.r[4], a.Flag(0), a.Flag(1),
                                            a.F(5));
            break;
        }
    }

    fuzz::Input& m_input;
    CWnd m_window;
    CKPainter m_painter;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > 600)
        return 0;
    fuzz::Input input(data, size);
    const fuzz::SameGdiObjects sameObjects;
    Session session(input);
    CClientDC dc(&session.Window());
    while (!input.IsEmpty())
        session.Step(dc);
    return 0;
}
