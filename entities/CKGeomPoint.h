#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"

/// A point of the board, type code 4. It is kept and archived, never drawn. A new one lies at (0, 0).
class KOLM_API CKGeomPoint : public CKGeom
{
public:
    CKGeomPoint() = default;
    CKGeomPoint(double x, double y); ///< in millimetres
    /// @{
    /// Copying and comparing follow CKGeom, with both coordinates on top.
    CKGeomPoint(const CKGeomPoint& other) = default;
    CKGeomPoint& operator=(const CKGeomPoint& other) = default;
    int operator==(const CKGeomPoint& other) const;
    int operator!=(const CKGeomPoint& other) const;
    /// @}

    /// The geometry header, then version, x, y: 76 bytes.
    void Serialize(CArchive& ar) override;
    CKGeom* clone() const override;
    int GetType() override;
    /// A fresh point at (x, y) that the caller deletes: new object number, white, not picked, offset and corners 0.
    CKGeom* GenerateClone() override;

    /// @{
    /// The coordinates in millimetres.
    double GetX() { return m_x; }
    double GetY() { return m_y; }
    void SetX(double x) { m_x = x; }
    void SetY(double y) { m_y = y; }
    void SetXY(double x, double y)
    {
        m_x = x;
        m_y = y;
    }
    /// @}

private:
    double m_x = 0;
    double m_y = 0;
};
