/// GEOS through its C interface, with objects that free themselves.
#pragma once

#include "GeometryWorkloads.h"

#include <geos_c.h>

#include <memory>
#include <vector>

namespace bench {

/// One context. Geometries have to go before it.
class Geos
{
public:
    struct Free
    {
        GEOSContextHandle_t context;
        void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context, geometry); }
    };
    using Geometry = std::unique_ptr<GEOSGeometry, Free>;

    Geos() : m_context(GEOS_init_r()) {}
    Geos(const Geos&) = delete;
    Geos& operator=(const Geos&) = delete;
    ~Geos() { GEOS_finish_r(m_context); }

    Geometry Point(bench::Point p) const { return Own(GEOSGeom_createPointFromXY_r(m_context, p.x, p.y)); }
    Geometry LineString(const std::vector<bench::Point>& points) const
    {
        GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(m_context, unsigned(points.size()), 2);
        for (size_t i = 0; i < points.size(); ++i)
            GEOSCoordSeq_setXY_r(m_context, sequence, unsigned(i), points[i].x, points[i].y);
        return Own(GEOSGeom_createLineString_r(m_context, sequence));
    }
    double Distance(const Geometry& a, const Geometry& b) const
    {
        double distance = -1;
        GEOSDistance_r(m_context, a.get(), b.get(), &distance);
        return distance;
    }
    bool Intersects(const Geometry& a, const Geometry& b) const
    {
        return GEOSIntersects_r(m_context, a.get(), b.get()) == 1;
    }

private:
    Geometry Own(GEOSGeometry* geometry) const { return Geometry(geometry, Free{m_context}); }

    GEOSContextHandle_t m_context;
};

} // namespace bench
