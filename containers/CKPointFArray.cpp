#include "containers/CKPointFArray.h"

#include "math/CKMath.h"

#include <limits>

template class KOLM_DEFINED_TEMPLATE CKArray<CKPointF*, CKPointF*>;

/// One segment of the ring, widened to double.
struct CKPointFArray::Segment
{
    double x1, y1, x2, y2;

    int Meets(double ax, double ay, double bx, double by) const
    {
        return CKMath::IsIntersectLineToLine(ax, ay, bx, by, x1, y1, x2, y2);
    }
};

CKPointFArray::CKPointFArray() = default;

CKPointFArray::~CKPointFArray()
{
    RemoveAllAfterDelete();
}

CKPointF* CKPointFArray::GetFirst()
{
    return IsEmpty() ? nullptr : GetAt(0);
}

CKPointF* CKPointFArray::GetLast()
{
    return IsEmpty() ? nullptr : GetAt(GetUpperBound());
}

// Sums of indices are formed so that they are defined for any int; those outside the ring wrap around.
int CKPointFArray::GetNextIndex(int i)
{
    return i == Size() - 1 ? 0 : static_cast<int>(static_cast<unsigned>(i) + 1U);
}

int CKPointFArray::GetNextNextIndex(int i)
{
    return IsEmpty() ? 0 : static_cast<int>((static_cast<long long>(i) + 2) % Size());
}

int CKPointFArray::GetPreviousIndex(int i)
{
    return i == 0 ? Size() - 1 : static_cast<int>(static_cast<unsigned>(i) - 1U);
}

float CKPointFArray::GetLenth()
{
    float length = 0.0f;
    for (int i = 1; i < Size(); ++i) {
        CKPointF* const from = GetAt(i - 1);
        CKPointF* const to = GetAt(i);
        if (from && to)
            length += from->GetDistance(to->GetX(), to->GetY());
    }
    return length;
}

void CKPointFArray::Reverse()
{
    lists::Reverse(*this);
}

/// Fills the segment from point i on; false when one of its ends is missing.
bool CKPointFArray::GetSegment(int i, Segment& segment) const
{
    if (!IsIndex(i))
        return false;
    CKPointF* const start = GetAt(i);
    CKPointF* const end = GetAt(i == Size() - 1 ? 0 : i + 1);
    if (!start || !end)
        return false;
    segment = {start->GetX(), start->GetY(), end->GetX(), end->GetY()};
    return true;
}

int CKPointFArray::IsIntersectLineToLine(int i, float x1, float y1, float x2, float y2)
{
    Segment segment;
    return Size() >= 2 && GetSegment(i, segment) && segment.Meets(x1, y1, x2, y2) ? 1 : 0;
}

int CKPointFArray::IsIntersectLine(float x1, float y1, float x2, float y2)
{
    Segment segment;
    for (int i = 0; i < Size(); ++i) {
        if (GetSegment(i, segment) && segment.Meets(x1, y1, x2, y2))
            return 1;
    }
    return 0;
}

int CKPointFArray::IsIntersectLine(CKPointF* a, CKPointF* b)
{
    return a && b ? IsIntersectLine(a->GetX(), a->GetY(), b->GetX(), b->GetY()) : 0;
}

int CKPointFArray::IsIntersectRectangle(float left, float right, float bottom, float top)
{
    Segment s;
    for (int i = 0; i < Size(); ++i) {
        if (GetSegment(i, s) &&
            CKMath::IsIntersectLineToRectangle(s.x1, s.y1, s.x2, s.y2, 0.0, left, right, bottom, top))
            return 1;
    }
    return 0;
}

float CKPointFArray::GetDistanceLineToPoint(int i, float x, float y)
{
    Segment s;
    if (Size() < 2 || !GetSegment(i, s))
        return std::numeric_limits<float>::max();
    return static_cast<float>(CKMath::GetDistance(s.x1, s.y1, s.x2, s.y2, double(x), double(y)));
}

void CKPointFArray::AddAndSortByMinDistanceFrom(CKPointF* p, float x, float y)
{
    if (!p)
        return;
    const float distance = p->GetDistance(x, y);
    INT_PTR index = 0;
    // Written as "not farther", so that a distance that is no number stops nothing.
    while (index < GetSize() && !(GetAt(index) && GetAt(index)->GetDistance(x, y) > distance))
        ++index;
    InsertAt(index, p);
}

void CKPointFArray::Show() {}
