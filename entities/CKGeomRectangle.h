#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"

/// A rectangle kept as centre, size and rotation, in logical millimetres and degrees. A new one has all five numbers 0.
///
/// The rotation is kept only: the edges and the drawing ignore it. Like the circle it has type code 0, the geometry
/// header as its whole record and the comparison of the base.
class KOLM_API CKGeomRectangle : public CKGeom
{
public:
    CKGeomRectangle();
    /// @{
    /// Copying follows CKGeom, with centre, sizes and rotation on top.
    CKGeomRectangle(const CKGeomRectangle& other) = default;
    CKGeomRectangle& operator=(const CKGeomRectangle& other) = default;
    /// @}

    CKGeom* clone() const override;
    void DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color) override;

    /// From two x and two y in any order: the centre between them, and the absolute differences narrowed to float.
    void SetData(double x1, double x2, double y1, double y2, float rotation);

    /// @{
    /// Centre and sizes in millimetres, unrotated; the rotation in degrees. Nothing is checked.
    double GetCenterX() { return m_centerX; }
    double GetCenterY() { return m_centerY; }
    void SetCenterPoint(double x, double y)
    {
        m_centerX = x;
        m_centerY = y;
    }
    float GetWidth() { return m_width; }
    void SetWidth(float width) { m_width = width; }
    float GetHeight() { return m_height; }
    void SetHeight(float height) { m_height = height; }
    float GetRotation() { return m_rotation; }
    void SetRotation(float rotation) { m_rotation = rotation; }
    /// @}

    double getLeft();   ///< centre x less half the width, unrotated
    double getRight();  ///< centre x plus half the width, unrotated
    double getBottom(); ///< centre y less half the height, unrotated
    double getTop();    ///< centre y plus half the height, unrotated

private:
    double m_centerX = 0;
    double m_centerY = 0;
    float m_width = 0;
    float m_height = 0;
    float m_rotation = 0;
};
