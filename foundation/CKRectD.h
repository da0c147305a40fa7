#pragma once

#include "KolmApi.h"

#include "foundation/CRectD.h"
#include "foundation/KRecords.h"

#include <afx.h>

/// Axis-parallel rectangle held by its edges, in logical millimetres, y upward. "Arranged" means left <= right and
/// bottom <= top; only Arrange() makes it so, everything else keeps what it is given.
///
/// A default rectangle holds nothing yet: IsInitialized() is 0 and all edges are 0. The first MergePoint() or Merge()
/// then takes its argument over instead of growing from the origin, which is how bounding boxes are gathered. Nothing
/// sets the flag back. Plain value, no ownership, no virtual operations.
class KOLM_API CKRectD
{
public:
    CKRectD() = default;
    /// Holds these edges and is initialized, whatever their order.
    CKRectD(double left, double right, double bottom, double top);
    /// Copies the flag as it is, unlike assignment.
    CKRectD(const CKRectD& other) = default;

    /// Copies the edges and counts as setting them: the flag is 1 afterwards, even from a rectangle that holds nothing.
    /// Assigning a rectangle to itself does nothing.
    CKRectD& operator=(const CKRectD& other);
    /// 1 for the same object or when all edges are exactly equal. The flags are not compared.
    int operator==(const CKRectD& other) const;

    /// @{
    /// The edges as they are, arranged or not; 0 in a rectangle that holds nothing.
    double GetLeft() const { return m_left; }
    double GetRight() const { return m_right; }
    double GetBottom() const { return m_bottom; }
    double GetTop() const { return m_top; }
    /// @}
    /// 1 once edges were set, merged or assigned, else 0.
    int IsInitialized() { return m_initialized; }

    /// All four edges; initializes.
    void Set(double left, double right, double bottom, double top);
    /// @{
    /// The single setters leave the flag as it is.
    void SetLeft(double left) { m_left = left; }
    void SetRight(double right) { m_right = right; }
    void SetBottom(double bottom) { m_bottom = bottom; }
    void SetTop(double top) { m_top = top; }
    /// @}

    double GetWidth() const;  ///< never negative, arranged or not
    double GetWidth();        ///< the same
    double GetHeight() const; ///< never negative, arranged or not
    double GetHeight();       ///< the same
    double GetMaxSize();      ///< the larger of width and height
    double GetMinSize();      ///< the smaller of width and height
    /// Fills both sizes and returns the larger.
    double GetMaxSizeWidthHeight(double& width, double& height);
    KPointD GetCenter(); ///< of edges in any order

    /// 1 when the closed rectangles share a point, so touching edges count. Both have to be arranged. The flags are not
    /// looked at: a rectangle that holds nothing takes part as the point (0, 0).
    int IsIntersect(CKRectD other);
    /// Grows by the least that takes the point in. A NaN never moves an edge once there is one.
    void MergePoint(double x, double y);
    /// Grows by the least that takes the edges in; the first edges are taken over as they are, arranged or not.
    void Merge(double left, double right, double bottom, double top);
    /// Merges the edges of the other rectangle without looking at its flag: one that holds nothing adds the origin.
    void Merge(CKRectD other);
    /// Swaps edges that are the wrong way round. The flag stays.
    void Arrange();

    /// The top-left corner and the size.
    CRectD GetDrawRectD() const;
    CRectD GetDrawRectD(); ///< the same
    /// "CKRectD left:%f right:%f bottom:%f top:%f", six decimals each.
    CString ToString();

private:
    double m_left = 0;
    double m_right = 0;
    double m_bottom = 0;
    double m_top = 0;
    int m_initialized = 0;
};
