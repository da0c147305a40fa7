/// A painter with its window, as a host has them.
#pragma once

#include "kolm.h"
#include "Scene.h"

namespace bench {

using Pixels = std::vector<uint32_t>;

inline COLORREF ColorOf(uint32_t pixel)
{
    return (pixel & 0xFF00) | (pixel >> 16 & 0xFF) | (pixel & 0xFF) << 16;
}

/// The pixels that a device context shows, 0x00RRGGBB from the top left.
inline Pixels ReadFrame(CDC& dc)
{
    CBitmap bitmap; // outlives the device context that selects it
    bitmap.CreateCompatibleBitmap(&dc, kFrameWidth, kFrameHeight);
    CDC memory;
    memory.CreateCompatibleDC(&dc);
    memory.SelectObject(&bitmap);
    memory.BitBlt(0, 0, kFrameWidth, kFrameHeight, &dc, 0, 0, SRCCOPY);
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), kFrameWidth, -kFrameHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    Pixels pixels(size_t(kFrameWidth) * kFrameHeight);
    ::GetDIBits(memory.m_hDC, bitmap, 0, kFrameHeight, pixels.data(), &info, DIB_RGB_COLORS);
    return pixels;
}

/// Shows shapes at one pixel a millimetre unless told otherwise, the frame's top left corner at logical (0, 0) and y
/// downward negated.
class BenchPainter : public CKPainter
{
public:
    BenchPainter()
    {
        Init();
        SetPixcelPerMM(1.0);
        SetScale(1.0);
        SetLogicalCenter(kFrameWidth / 2, -kFrameHeight / 2);
    }
    void Show(const View& view)
    {
        SetScale(view.scale);
        SetLogicalCenter(view.centerX, -view.centerY);
    }
    /// Strokes and arcs become shapes; pads are drawn by the host, since shapes have outlines only.
    void Add(const Scene& scene)
    {
        for (const Stroke& s : scene.strokes)
            Add(m_shapes, new CKGeomLine(s.x1, -s.y1, s.x2, -s.y2, s.width));
        for (const Arc& a : scene.arcs) {
            CKGeomArc* const arc = new CKGeomArc(a.startX, -a.startY, a.endX, -a.endY, a.x, -a.y, a.width);
            arc->setDirection(-1); // in device pixels the code is the device's: clockwise as seen
            Add(m_shapes, arc);
        }
        m_pads = scene.pads;
    }
    void Add(const std::vector<Track>& tracks)
    {
        for (const Track& t : tracks)
            Add(m_shapes, new CKGeomLine(t.x1, -t.y1, t.x2, -t.y2, t.width));
    }
    static void Add(CKGeomArray& shapes, CKGeom* shape)
    {
        shape->SetColor(ColorOf(PixelOf(size_t(shapes.GetSize()))));
        shapes.Add(shape);
    }
    void DrawEnding(CWnd*, CDC* dc) override
    {
        DrawGeoms(dc, &m_shapes);
        size_t index = size_t(m_shapes.GetSize());
        for (const Pad& p : m_pads) {
            const COLORREF color = ColorOf(PixelOf(index++));
            if (p.disc)
                DrawCircleNoWorldTransform(dc, color, p.halfWidth, p.x, -p.y, 1);
            else
                DrawRectangleNoWorldTransform(dc, color, p.x, -p.y, 2 * p.halfWidth, 2 * p.halfHeight, 1);
        }
    }

private:
    CKGeomArray m_shapes;
    std::vector<Pad> m_pads;
};

class KolmFrame
{
public:
    KolmFrame() : m_dc(Create(m_window)) {}

    BenchPainter& Painter() { return m_painter; }
    /// One frame of what the painter has.
    void Frame() { m_painter.DrawView(&m_window, &m_dc); }
    /// Shows the last frame with shapes over it, or as it is.
    void Overlay(CKGeomArray& shapes) { m_painter.DrawGeomsAndDrawSavedDC(&m_window, &shapes, nullptr); }
    void Transfer() { m_painter.DrawSavedDC(&m_window, &m_dc); }
    Pixels Shown() { return ReadFrame(m_dc); }

private:
    static CWnd* Create(CWnd& window)
    {
        window.CreateEx(0, "", "", WS_POPUP, 0, 0, kFrameWidth, kFrameHeight, nullptr, nullptr);
        return &window;
    }

    CWnd m_window;
    CClientDC m_dc;
    BenchPainter m_painter;
};

} // namespace bench
