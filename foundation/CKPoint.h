#pragma once

#include "KolmApi.h"

/// A point in whole units. The virtual operations come in the order clone, assignment, comparison; the destructor is
/// not one of them, so an object is deleted as what it was made as.
class KOLM_API CKPoint
{
public:
    /// @{
    /// Every coordinate is taken and given as it is.
    CKPoint(int x = 0, int y = 0) : m_x(x), m_y(y) {}
    CKPoint(const CKPoint& other) : m_x(other.m_x), m_y(other.m_y) {}
    int GetX() { return m_x; }
    int GetY() { return m_y; }
    void SetX(int x) { m_x = x; }
    void SetY(int y) { m_y = y; }
    void SetXY(int x, int y)
    {
        m_x = x;
        m_y = y;
    }
    /// @}

    /// A new point with these coordinates that the caller deletes.
    virtual CKPoint* clone() const;
    /// Takes the coordinates over.
    virtual CKPoint& operator=(const CKPoint& other);
    /// 1 when both coordinates are equal, else 0.
    virtual int operator==(CKPoint& other);

    /// The same as clone().
    CKPoint* GetClone();
    /// 1 when both coordinates are equal, else 0; 0 for null.
    int IsEqual(CKPoint* other);

private:
    int m_x;
    int m_y;
};
