#pragma once

#include "KolmApi.h"

#include "foundation/KRecords.h"

#include <afx.h>

/// The rectangle of CKRectD in single precision: the same edges, flag and rules, every sum and difference in float.
/// It merges another rectangle by pointer, can be expanded and makes clones of itself. Plain value.
class KOLM_API CKRectF
{
public:
    CKRectF() = default;
    /// Holds these edges and is initialized, whatever their order.
    CKRectF(float left, float right, float bottom, float top);
    /// Copies the flag as it is, unlike assignment.
    CKRectF(const CKRectF& other) = default;

    /// Copies the edges; the flag is 1 afterwards. Assigning a rectangle to itself does nothing.
    CKRectF& operator=(const CKRectF& other);
    /// 1 for the same object or when all edges are exactly equal. The flags are not compared.
    int operator==(const CKRectF& other) const;

    /// @{
    /// The edges as they are, arranged or not; 0 in a rectangle that holds nothing.
    float GetLeft() const { return m_left; }
    float GetRight() const { return m_right; }
    float GetBottom() const { return m_bottom; }
    float GetTop() const { return m_top; }
    /// @}
    /// 1 once edges were set, merged or assigned, else 0.
    int IsInitialized() { return m_initialized; }

    /// All four edges; initializes.
    void Set(float left, float right, float bottom, float top);
    /// @{
    /// The single setters leave the flag as it is.
    void SetLeft(float left) { m_left = left; }
    void SetRight(float right) { m_right = right; }
    void SetBottom(float bottom) { m_bottom = bottom; }
    void SetTop(float top) { m_top = top; }
    /// @}

    float GetWidth() const;  ///< never negative, arranged or not
    float GetWidth();        ///< the same
    float GetHeight() const; ///< never negative, arranged or not
    float GetHeight();       ///< the same
    float GetMaxSize();      ///< the larger of width and height
    float GetMinSize();      ///< the smaller of width and height
    /// The centre in double, of sums that were rounded to float.
    KPointD GetCenter();
    float GetCenterX(); ///< the centre's x in float
    float GetCenterY(); ///< the centre's y in float

    /// 1 when the closed rectangles share a point. Both have to be arranged; the flags are not looked at.
    int IsIntersect(CKRectF other);
    /// Grows by the least that takes the point in; the first point becomes the rectangle.
    void MergePoint(float x, float y);
    /// Grows by the least that takes the edges in; the first edges are taken over as they are.
    void Merge(float left, float right, float bottom, float top);
    /// Merges the other's edges without looking at its flag. Null adds nothing.
    void Merge(CKRectF* other);
    /// Swaps edges that are the wrong way round. The flag stays.
    void Arrange();
    /// Moves every edge outward by the distance, inward when it is negative. Nothing is arranged, the flag stays.
    void Expand(float distance);

    /// A new initialized rectangle with these edges that the caller deletes.
    CKRectF* GetClone();
    /// "CKRectF left:%f right:%f bottom:%f top:%f", six decimals each.
    CString ToString();

private:
    float m_left = 0;
    float m_right = 0;
    float m_bottom = 0;
    float m_top = 0;
    int m_initialized = 0;
};
