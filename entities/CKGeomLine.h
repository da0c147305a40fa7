#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"

/// A straight stroke from start to end with a thickness, in logical millimetres, type code 2. A new one has all five
/// numbers 0. Nothing is validated: a line may have no length or a negative thickness.
class KOLM_API CKGeomLine : public CKGeom
{
public:
    CKGeomLine() = default;
    /// Ends and thickness in millimetres.
    CKGeomLine(double startX, double startY, double endX, double endY, double thickness);
    /// @{
    /// Copying and comparing follow CKGeom, with the five numbers of the line on top.
    CKGeomLine(const CKGeomLine& other) = default;
    CKGeomLine& operator=(const CKGeomLine& other) = default;
    int operator==(const CKGeomLine& other) const;
    int operator!=(const CKGeomLine& other) const;
    /// @}

    /// The geometry header, then version, start x, start y, end x, end y, thickness: 100 bytes.
    void Serialize(CArchive& ar) override;
    CKGeom* clone() const override;
    void Draw(CKPainter* painter, CDC* dc, unsigned long color) override;
    void DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color) override;
    int GetType() override;

    /// @{
    /// Ends and thickness in millimetres, as they were set.
    double GetStartX() { return m_startX; }
    double GetStartY() { return m_startY; }
    double GetEndX() { return m_endX; }
    double GetEndY() { return m_endY; }
    double GetThickness() { return m_thickness; }
    /// @}
    /// @{
    /// Nothing is checked, and nothing else changes.
    void SetStart(double x, double y)
    {
        m_startX = x;
        m_startY = y;
    }
    void SetEnd(double x, double y)
    {
        m_endX = x;
        m_endY = y;
    }
    void SetThickness(double thickness) { m_thickness = thickness; }
    /// @}
    /// Both ends at once; the thickness stays.
    void SetLocation(double startX, double startY, double endX, double endY)
    {
        SetStart(startX, startY);
        SetEnd(endX, endY);
    }

    /// The length, without thickness and offset.
    double GetDistance();
    /// The distance of (x, y) from the centre line between the ends, without thickness and offset.
    double GetDistance(double x, double y);
    /// The direction from start to end in degrees, in (-180, 180]; a float value widened. 0 for a line of no length.
    double GetLineAngle();

private:
    double m_startX = 0;
    double m_startY = 0;
    double m_endX = 0;
    double m_endY = 0;
    double m_thickness = 0;
};
