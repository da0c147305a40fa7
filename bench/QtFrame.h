#pragma once

#include "Scene.h"

#include <QImage>
#include <QPainter>

#include <cstring>
#include <memory>

namespace bench {

/// A frame drawn by a QPainter into a QImage.
class QtFrame
{
public:
    static constexpr const char* kName = "qt";

    QtFrame()
        : m_image(kFrameWidth, kFrameHeight, QImage::Format_RGB32), m_window(m_image.size(), m_image.format()),
          m_painter(&m_image), m_target(&m_window)
    {
        m_target.setCompositionMode(QPainter::CompositionMode_Source);
    }

    void Clear(uint32_t color) { m_painter.fillRect(0, 0, kFrameWidth, kFrameHeight, QColor(color)); }
    void Show() { m_target.drawImage(0, 0, m_image); }
    std::vector<uint32_t> Shown() const
    {
        std::vector<uint32_t> pixels(size_t(kFrameWidth) * kFrameHeight);
        std::memcpy(pixels.data(), m_window.constBits(), pixels.size() * sizeof(uint32_t));
        return pixels;
    }

    void Draw(const Scene& scene) { DrawScene(*this, scene); }

    void Line(const Stroke& s, uint32_t color)
    {
        m_painter.setPen(QPen(QColor(color), s.width > 1 ? s.width : 0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.drawLine(s.x1, s.y1, s.x2, s.y2);
    }

    void DrawArc(const Arc& a, uint32_t color)
    {
        // Sixteenths of a degree, counter-clockwise as seen.
        const auto angle = [&a](int x, int y) { return std::atan2(a.y - y, x - a.x) * 916.7324722093172; };
        const double start = angle(a.startX, a.startY);
        double span = angle(a.endX, a.endY) - start;
        span -= span >= 0 ? 5760 : 0;
        m_painter.setPen(QPen(QColor(color), a.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter.drawArc(a.x - a.radius, a.y - a.radius, 2 * a.radius, 2 * a.radius, int(std::lround(start)),
                          int(std::lround(span)));
    }

    void DrawPad(const Pad& p, uint32_t color)
    {
        const QRect box(p.x - p.halfWidth, p.y - p.halfHeight, 2 * p.halfWidth, 2 * p.halfHeight);
        if (!p.disc) {
            m_painter.fillRect(box, QColor(color));
            return;
        }
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(QColor(color));
        m_painter.drawEllipse(box);
    }

private:
    QImage m_image;
    QImage m_window;
    QPainter m_painter;
    QPainter m_target;
};

} // namespace bench
