#pragma once

#include "KolmApi.h"

#include "entities/CKEntity.h"
#include "foundation/CKTwoPointD.h"

class CDC;
class CKPainter;

/// Base of all shapes: an offset that is added to the shape's own coordinates when it is drawn, and a pair of minimum
/// and maximum corners that is kept and archived but never computed here. Everything in logical millimetres, y upward.
///
/// All shapes copy alike. The copy constructor copies everything, object number and colours included. Assignment copies
/// the geometry only: offset, corners and the shape's own fields. Comparison looks at the geometry, exactly and without
/// tolerance, never at colours, picked state or numbers; a shape is equal to itself even when it holds a NaN.
///
/// Archive: every record and section begins with a version, a 32-bit integer written as 1. A version below 1 ends its
/// section at once and leaves the section's fields as they are. Fields are filled as they are read, so when the archive
/// ends early, its exception passes and what was read before stays.
///
/// Hosts rely on the order of the virtual operations: destructor, Unpicked, Serialize, clone, Draw,
/// DrawNoWorldTransform, SetMinMax, GetType, GenerateClone.
class KOLM_API CKGeom : public CKEntity
{
public:
    CKGeom() = default;
    CKGeom(const CKGeom& other) = default; ///< every field
    ~CKGeom() override = default;

    CKGeom& operator=(const CKGeom& other);    ///< the geometry only
    int operator==(const CKGeom& other) const; ///< 1 for equal offset and corners, and for the same object; else 0
    int operator!=(const CKGeom& other) const; ///< the negation of ==

    /// Writes or reads the geometry header: version, offset x, offset y and the record of the corners, 56 bytes.
    virtual void Serialize(CArchive& ar);
    /// A new shape of the same class with every field of this one, the object number included. The caller deletes it.
    virtual CKGeom* clone() const;
    /// Does nothing in every shape of the library; a place for hosts.
    virtual void Draw(CKPainter* painter, CDC* dc, unsigned long color);
    /// Draws the shape in this colour through the painter, which turns millimetres into pixels. The base draws nothing.
    virtual void DrawNoWorldTransform(CKPainter* painter, CDC* dc, unsigned long color);
    /// Does nothing in every shape of the library; hosts compute the corners here.
    virtual void SetMinMax();
    /// The type code of archives: 0 here and for circles and rectangles, 1 text, 2 line, 3 arc, 4 point, 5 container,
    /// 6 polygon.
    virtual int GetType();
    /// Null here: only a point makes a fresh shape of its coordinates.
    virtual CKGeom* GenerateClone();

    /// @{
    /// Offset and corners in millimetres, as they were set.
    double GetOffsetX() { return m_offsetX; }
    double GetOffsetY() { return m_offsetY; }
    void SetOffsetXY(double x, double y)
    {
        m_offsetX = x;
        m_offsetY = y;
    }
    CKTwoPointD GetMinMax() { return m_minMax; }
    void SetMinMax(double x1, double y1, double x2, double y2) { m_minMax = CKTwoPointD(x1, y1, x2, y2); }
    /// @}

protected:
    /// 1 when offset and corners are as a constructor leaves them.
    int HasDefaultGeometry() const;

private:
    double m_offsetX = 0;
    double m_offsetY = 0;
    CKTwoPointD m_minMax;
};
