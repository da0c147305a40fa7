#pragma once

#include "KolmApi.h"

/// A rectangle in double precision held by its top-left corner and its size, as drawing code wants it. The virtual
/// operations come in the order clone, ==, !=, destructor.
class KOLM_API CRectD
{
public:
    /// All four numbers 0.
    CRectD() = default;
    /// The sizes may be negative.
    CRectD(double left, double top, double width, double height);
    /// @{
    /// Plain copies.
    CRectD(const CRectD& other) = default;
    CRectD& operator=(const CRectD& other) = default;
    /// @}

    /// A new copy that the caller deletes.
    virtual CRectD* clone() const;
    /// 1 for the same object, NaNs included, or when all four numbers are exactly equal.
    virtual int operator==(const CRectD& other) const;
    /// The negation of ==.
    virtual int operator!=(const CRectD& other) const;
    virtual ~CRectD();

    /// Sets the four numbers to 0.
    void Init();

    /// @{
    /// The numbers as they are.
    double GetLeft() const { return m_left; }
    double GetTop() const { return m_top; }
    double GetWidth() const { return m_width; }
    double GetHeight() const { return m_height; }
    /// @}
    /// Width times height; negative when one of them is.
    double GetArea() const;

private:
    double m_left = 0;
    double m_top = 0;
    double m_width = 0;
    double m_height = 0;
};
