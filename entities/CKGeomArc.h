#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"

/// A circular stroke from start to end about a centre, in logical millimetres, type code 3. The direction code -1 means
/// that it runs counter-clockwise (through growing polar angle), 1 clockwise; every other code counts as clockwise.
///
/// The radius is not kept: it is the distance from the centre to the start. Nothing is validated, so start, end and
/// centre may disagree. A new arc has all numbers and the direction 0.
class KOLM_API CKGeomArc : public CKGeom
{
public:
    CKGeomArc() = default;
    /// The direction is 0 until it is set.
    CKGeomArc(double startX, double startY, double endX, double endY, double centerX, double centerY, double thickness);
    /// @{
    /// Copying and comparing follow CKGeom, with the eight numbers of the arc on top.
    CKGeomArc(const CKGeomArc& other) = default;
    CKGeomArc& operator=(const CKGeomArc& other) = default;
    int operator==(const CKGeomArc& other) const;
    int operator!=(const CKGeomArc& other) const;
    /// @}

    /// The geometry header, then version, start x, start y, end x, end y, thickness, centre x, centre y, direction:
    /// 120 bytes. The thickness stands before the centre.
    void Serialize(CArchive& ar) override;
    CKGeom* clone() const override;
    void Draw(CKPainter* painter, CDC* dc, unsigned long color) override;
    void DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color) override;
    int GetType() override;

    /// @{
    /// Ends, centre and thickness in millimetres, as they were set.
    double GetStartX() { return m_startX; }
    double GetStartY() { return m_startY; }
    double GetEndX() { return m_endX; }
    double GetEndY() { return m_endY; }
    double GetCenterX() { return m_centerX; }
    double GetCenterY() { return m_centerY; }
    double GetThickness() { return m_thickness; }
    /// @}
    int GetDirection() { return m_direction; } ///< the direction code
    /// 1 for direction code -1, else 0.
    int IsCCW() { return m_direction == -1 ? 1 : 0; }

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
    void SetCenter(double x, double y)
    {
        m_centerX = x;
        m_centerY = y;
    }
    void SetThickness(double thickness) { m_thickness = thickness; }
    void setDirection(int direction) { m_direction = direction; }
    /// @}

private:
    double m_startX = 0;
    double m_startY = 0;
    double m_endX = 0;
    double m_endY = 0;
    double m_centerX = 0;
    double m_centerY = 0;
    double m_thickness = 0;
    int m_direction = 0;
};
