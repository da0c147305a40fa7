#pragma once

#include "KolmApi.h"

#include <afx.h>

/// A point in single precision, made to be held in arrays by value and to be archived. A new one is (0, 0). The virtual
/// operations are the destructor and, in this order, the two comparisons and Serialize.
class KOLM_API CPointF
{
public:
    CPointF() = default;
    virtual ~CPointF();
    /// @{
    /// Plain copies.
    CPointF(const CPointF& other) = default;
    CPointF& operator=(const CPointF& other) = default;
    /// @}

    /// 1 for the same object, NaNs included, or when both coordinates are exactly equal.
    virtual int operator==(const CPointF& other) const;
    /// The negation of ==.
    virtual int operator!=(const CPointF& other) const;
    /// Writes or reads x and y as two floats, 8 bytes. When the archive ends early its exception passes.
    virtual void Serialize(CArchive& ar);

    /// @{
    /// The coordinates as they are.
    float GetX() const { return m_x; }
    float GetY() const { return m_y; }
    void SetX(float x) { m_x = x; }
    void SetY(float y) { m_y = y; }
    /// @}

private:
    float m_x = 0;
    float m_y = 0;
};
