#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"

/// A circle that is drawn as a white outline, in logical millimetres. A new one has centre and radius 0.
///
/// It is not made for keeping: its type code is the base's 0, so no archive can bring it back; its record is the
/// geometry header alone, and comparison looks at offset and corners but not at centre and radius. Its offset is not
/// drawn either.
class KOLM_API CKGeomCircle : public CKGeom
{
public:
    CKGeomCircle();
    CKGeomCircle(double centerX, double centerY, double radius); ///< in millimetres
    /// @{
    /// Copying follows CKGeom, with centre and radius on top.
    CKGeomCircle(const CKGeomCircle& other) = default;
    CKGeomCircle& operator=(const CKGeomCircle& other) = default;
    /// @}

    CKGeom* clone() const override;
    void DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color) override;

    /// @{
    /// Centre and radius in millimetres.
    double GetCenterX() { return m_centerX; }
    double GetCenterY() { return m_centerY; }
    double GetRadius() { return m_radius; }
    void SetCenterPoint(double x, double y)
    {
        m_centerX = x;
        m_centerY = y;
    }
    /// @}
    /// Takes a float, so that 0.1f is kept as 0.10000000149011612.
    void SetRadius(float radius) { m_radius = radius; }

private:
    double m_centerX = 0;
    double m_centerY = 0;
    double m_radius = 0;
};
