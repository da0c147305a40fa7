#pragma once

#include "KolmApi.h"

#include "foundation/CRectD.h"

#include <afx.h>

/// The single-precision companion of CRectD, held in arrays by value and archived. A new one has all four numbers 0.
/// The virtual operations are the destructor and, in this order, the two comparisons and Serialize.
class KOLM_API CRectF
{
public:
    CRectF() = default;
    virtual ~CRectF();
    /// @{
    /// Plain copies.
    CRectF(const CRectF& other) = default;
    CRectF& operator=(const CRectF& other) = default;
    /// @}
    /// Takes over each number rounded to the nearest float; beyond the range of float it becomes infinite.
    CRectF& operator=(const CRectD& other);

    /// 1 for the same object, NaNs included, or when all four floats are exactly equal.
    virtual int operator==(const CRectF& other) const;
    /// The negation of ==.
    virtual int operator!=(const CRectF& other) const;
    /// Writes or reads left, top, width and height as four floats, 16 bytes. When the archive ends early its exception
    /// passes; the numbers read so far stay.
    virtual void Serialize(CArchive& ar);

    /// @{
    /// The numbers as they are.
    float GetLeft() const { return m_left; }
    float GetTop() const { return m_top; }
    float GetWidth() const { return m_width; }
    float GetHeight() const { return m_height; }
    /// @}

private:
    float m_left = 0;
    float m_top = 0;
    float m_width = 0;
    float m_height = 0;
};
