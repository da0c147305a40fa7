#pragma once

#include "KolmApi.h"

#include <afx.h>

/// Two points in logical millimetres: a segment, or the minimum and maximum corners of a shape. Plain value with an
/// archive record of its own, 36 bytes: the version 1 as a 32-bit integer, then x1, y1, x2, y2 as doubles.
class KOLM_API CKTwoPointD
{
public:
    /// The first point, then the second.
    CKTwoPointD(double x1 = 0, double y1 = 0, double x2 = 0, double y2 = 0) : m_x1(x1), m_y1(y1), m_x2(x2), m_y2(y2) {}

    /// 1 for the same object, NaNs included, or when all four values are exactly equal.
    int operator==(const CKTwoPointD& other) const;
    /// The negation of ==.
    int operator!=(const CKTwoPointD& other) const;

    /// @{
    /// The values in millimetres, as they were set.
    double GetX1() { return m_x1; }
    double GetY1() { return m_y1; }
    double GetX2() { return m_x2; }
    double GetY2() { return m_y2; }
    void SetX1(double x1) { m_x1 = x1; }
    void SetY1(double y1) { m_y1 = y1; }
    void SetX2(double x2) { m_x2 = x2; }
    void SetY2(double y2) { m_y2 = y2; }
    /// @}

    /// Writes or reads the record. A record of a version below 1 ends after the version and changes nothing. When the
    /// archive ends early its exception passes; the values read so far stay.
    void Serialize(CArchive& ar);

private:
    double m_x1;
    double m_y1;
    double m_x2;
    double m_y2;
};
