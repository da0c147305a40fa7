#pragma once

#include "Scene.h"

#include <agg_arc.h>
#include <agg_conv_stroke.h>
#include <agg_ellipse.h>
#include <agg_path_storage.h>
#include <agg_pixfmt_rgba.h>
#include <agg_rasterizer_scanline_aa.h>
#include <agg_renderer_base.h>
#include <agg_renderer_primitives.h>
#include <agg_renderer_scanline.h>
#include <agg_rendering_buffer.h>
#include <agg_scanline_bin.h>

namespace bench {

/// A frame drawn by AGG with bi-level scanlines; thin lines with its Bresenham lines.
class AggFrame
{
public:
    static constexpr const char* kName = "agg";

    AggFrame()
        : m_pixels(size_t(kFrameWidth) * kFrameHeight), m_shown(m_pixels.size()),
          m_buffer(Bytes(m_pixels), kFrameWidth, kFrameHeight, kFrameWidth * 4),
          m_window(Bytes(m_shown), kFrameWidth, kFrameHeight, kFrameWidth * 4), m_format(m_buffer), m_base(m_format),
          m_windowFormat(m_window), m_windowBase(m_windowFormat), m_primitives(m_base)
    {
        m_rasterizer.gamma([](double cover) { return cover < 0.5 ? 0.0 : 1.0; });
        m_rasterizer.clip_box(0, 0, kFrameWidth, kFrameHeight);
    }

    void Clear(uint32_t color) { m_base.clear(ColorOf(color)); }
    void Show() { m_windowBase.copy_from(m_buffer); }
    const std::vector<uint32_t>& Shown() const { return m_shown; }

    void Draw(const Scene& scene) { DrawScene(*this, scene); }
    void Line(const Stroke& s, uint32_t color)
    {
        if (s.width <= 1) {
            using Primitives = agg::renderer_primitives<Base>;
            m_primitives.line_color(ColorOf(color));
            m_primitives.line(Primitives::coord(s.x1), Primitives::coord(s.y1), Primitives::coord(s.x2),
                              Primitives::coord(s.y2));
            return;
        }
        m_path.remove_all();
        m_path.move_to(s.x1 + 0.5, s.y1 + 0.5);
        m_path.line_to(s.x2 + 0.5, s.y2 + 0.5);
        StrokeOf(m_path, s.width, color);
    }

    void DrawArc(const Arc& a, uint32_t color)
    {
        const double start = std::atan2(a.startY - a.y, a.startX - a.x);
        double end = std::atan2(a.endY - a.y, a.endX - a.x);
        end += end <= start ? 6.283185307179586 : 0;
        agg::arc arc(a.x + 0.5, a.y + 0.5, a.radius, a.radius, start, end);
        StrokeOf(arc, a.width, color);
    }

    void DrawPad(const Pad& p, uint32_t color)
    {
        if (!p.disc) {
            m_base.copy_bar(p.x - p.halfWidth, p.y - p.halfHeight, p.x + p.halfWidth - 1, p.y + p.halfHeight - 1,
                            ColorOf(color));
            return;
        }
        agg::ellipse disc(p.x + 0.5, p.y + 0.5, p.halfWidth, p.halfWidth);
        m_rasterizer.reset();
        m_rasterizer.add_path(disc);
        agg::render_scanlines_bin_solid(m_rasterizer, m_scanline, m_base, ColorOf(color));
    }

private:
    using Format = agg::pixfmt_bgra32;
    using Base = agg::renderer_base<Format>;

    static uint8_t* Bytes(std::vector<uint32_t>& pixels) { return reinterpret_cast<uint8_t*>(pixels.data()); }
    static agg::rgba8 ColorOf(uint32_t color) { return {color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF, 0xFF}; }

    template <class Source>
    void StrokeOf(Source& source, int width, uint32_t color)
    {
        agg::conv_stroke<Source> stroke(source);
        stroke.width(width);
        stroke.line_cap(agg::round_cap);
        stroke.line_join(agg::round_join);
        m_rasterizer.reset();
        m_rasterizer.add_path(stroke);
        agg::render_scanlines_bin_solid(m_rasterizer, m_scanline, m_base, ColorOf(color));
    }

    std::vector<uint32_t> m_pixels;
    std::vector<uint32_t> m_shown;
    agg::rendering_buffer m_buffer;
    agg::rendering_buffer m_window;
    Format m_format;
    Base m_base;
    Format m_windowFormat;
    Base m_windowBase;
    agg::renderer_primitives<Base> m_primitives;
    agg::rasterizer_scanline_aa<> m_rasterizer;
    agg::scanline_bin m_scanline;
    agg::path_storage m_path;
};

} // namespace bench
