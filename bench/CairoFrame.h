#pragma once

#include "Scene.h"

#include <cairo.h>

#include <cstring>

namespace bench {

/// A frame drawn by cairo into an image surface.
class CairoFrame
{
public:
    static constexpr const char* kName = "cairo";

    CairoFrame()
        : m_surface(Create()), m_window(Create()), m_cairo(cairo_create(m_surface)), m_target(cairo_create(m_window))
    {
        cairo_set_antialias(m_cairo, CAIRO_ANTIALIAS_NONE);
        cairo_set_line_cap(m_cairo, CAIRO_LINE_CAP_ROUND);
        cairo_set_operator(m_target, CAIRO_OPERATOR_SOURCE);
    }
    ~CairoFrame()
    {
        cairo_destroy(m_target);
        cairo_destroy(m_cairo);
        cairo_surface_destroy(m_window);
        cairo_surface_destroy(m_surface);
    }
    CairoFrame(const CairoFrame&) = delete;
    CairoFrame& operator=(const CairoFrame&) = delete;

    void Clear(uint32_t color)
    {
        UseColor(color);
        cairo_paint(m_cairo);
    }
    void Show()
    {
        cairo_set_source_surface(m_target, m_surface, 0, 0);
        cairo_paint(m_target);
        cairo_surface_flush(m_window);
    }
    std::vector<uint32_t> Shown() const
    {
        std::vector<uint32_t> pixels(size_t(kFrameWidth) * kFrameHeight);
        std::memcpy(pixels.data(), cairo_image_surface_get_data(m_window), pixels.size() * sizeof(uint32_t));
        return pixels;
    }

    void Draw(const Scene& scene) { DrawScene(*this, scene); }

    // Pixel centres lie at halves.
    void Line(const Stroke& s, uint32_t color)
    {
        UseColor(color);
        cairo_set_line_width(m_cairo, s.width > 1 ? s.width : 1);
        cairo_set_line_cap(m_cairo, s.width > 1 ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
        cairo_move_to(m_cairo, s.x1 + 0.5, s.y1 + 0.5);
        cairo_line_to(m_cairo, s.x2 + 0.5, s.y2 + 0.5);
        cairo_stroke(m_cairo);
    }

    void DrawArc(const Arc& a, uint32_t color)
    {
        UseColor(color);
        cairo_set_line_width(m_cairo, a.width);
        cairo_arc(m_cairo, a.x + 0.5, a.y + 0.5, a.radius, std::atan2(a.startY - a.y, a.startX - a.x),
                  std::atan2(a.endY - a.y, a.endX - a.x));
        cairo_stroke(m_cairo);
    }

    void DrawPad(const Pad& p, uint32_t color)
    {
        UseColor(color);
        if (p.disc)
            cairo_arc(m_cairo, p.x + 0.5, p.y + 0.5, p.halfWidth, 0, 6.283185307179586);
        else
            cairo_rectangle(m_cairo, p.x - p.halfWidth, p.y - p.halfHeight, 2 * p.halfWidth, 2 * p.halfHeight);
        cairo_fill(m_cairo);
    }

private:
    static cairo_surface_t* Create()
    {
        return cairo_image_surface_create(CAIRO_FORMAT_RGB24, kFrameWidth, kFrameHeight);
    }

    void UseColor(uint32_t color)
    {
        cairo_set_source_rgb(m_cairo, (color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0,
                             (color & 0xFF) / 255.0);
    }

    cairo_surface_t* m_surface;
    cairo_surface_t* m_window;
    cairo_t* m_cairo;
    cairo_t* m_target;
};

} // namespace bench
