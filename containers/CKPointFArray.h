#pragma once

#include "KolmApi.h"

#include "containers/CKArray.h"
#include "foundation/CKPointF.h"

/// Compiled into the library, which exports it.
extern template class KOLM_DECLARED_TEMPLATE CKArray<CKPointF*, CKPointF*>;

/// A polyline of points in single precision, in logical millimetres with y upward, that owns its points: whatever is
/// added belongs to it. Segment i runs from point i to point GetNextIndex(i), so tests of segments see a closed ring,
/// while the length is that of the open path, without the closing segment.
///
/// The tests are those of CKMath in double precision. A null element is no point: its segments meet nothing and have no
/// length and no distance. Nothing here raises. The class has no virtual operations of its own.
class KOLM_API CKPointFArray : public CKArray<CKPointF*, CKPointF*>
{
public:
    CKPointFArray();
    /// Destroys the points.
    ~CKPointFArray() override;

    CKPointF* GetFirst(); ///< null for an empty polyline
    CKPointF* GetLast();  ///< null for an empty polyline

    /// @name Indices around the ring, for 0 <= i < size. Others are not checked and give a number all the same.
    /// @{
    int GetNextIndex(int i);     ///< 0 after the last
    int GetNextNextIndex(int i); ///< (i + 2) modulo size, with the sign of i + 2; 0 for an empty polyline
    int GetPreviousIndex(int i); ///< the last before 0
    /// @}

    /// The sum of the open path's segments, every step in single precision; 0 for fewer than two points.
    float GetLenth();
    /// Reverses the order of the points, which stay as they are.
    void Reverse();

    /// 1 when segment i and the segment (x1, y1)-(x2, y2) share a point, else 0, also for an i outside and for fewer
    /// than two points.
    int IsIntersectLineToLine(int i, float x1, float y1, float x2, float y2);
    /// 1 when any segment of the ring shares a point with the segment, else 0. A single point counts as a segment of no
    /// length.
    int IsIntersectLine(float x1, float y1, float x2, float y2);
    int IsIntersectLine(CKPointF* a, CKPointF* b); ///< the same; 0 for null
    /// 1 when a segment of the ring ends in the closed rectangle or touches one of its sides, else 0: a rectangle
    /// wholly inside the ring is not met.
    int IsIntersectRectangle(float left, float right, float bottom, float top);
    /// The distance of the point from segment i. The largest float when there is none: an i outside, fewer than two
    /// points. Infinite when the distance is beyond a float.
    float GetDistanceLineToPoint(int i, float x, float y);

    /// Inserts p before the first point that lies farther from (x, y), else at the end; so it goes behind points just
    /// as far. Points that are in order of distance so stay in order. Null is ignored.
    void AddAndSortByMinDistanceFrom(CKPointF* p, float x, float y);

    void Show(); ///< has no effect

private:
    struct Segment;
    bool GetSegment(int i, Segment& segment) const;
};
