/// Points, sizes and rectangles in int32 pixels or logical units, y downward. Plain values over the platform's records.
#pragma once

#include <windows.h>

class CSize : public SIZE
{
public:
    CSize() : CSize(0, 0) {}
    CSize(int width, int height) { cx = width, cy = height; }
    CSize(SIZE size) : SIZE(size) {}
    bool operator==(SIZE other) const { return cx == other.cx && cy == other.cy; }
    bool operator!=(SIZE other) const { return !(*this == other); }
};

class CPoint : public POINT
{
public:
    CPoint() : CPoint(0, 0) {}
    CPoint(int px, int py) { x = px, y = py; }
    CPoint(POINT point) : POINT(point) {}
    void SetPoint(int px, int py) { x = px, y = py; }
    void Offset(int dx, int dy) { x += dx, y += dy; }
    bool operator==(POINT other) const { return x == other.x && y == other.y; }
    bool operator!=(POINT other) const { return !(*this == other); }
    CPoint operator+(SIZE size) const { return CPoint(x + size.cx, y + size.cy); }
    CPoint operator-(SIZE size) const { return CPoint(x - size.cx, y - size.cy); }
    CSize operator-(POINT other) const { return CSize(x - other.x, y - other.y); }
};

/// Edges left, top, right, bottom; right and bottom lie outside. Sizes are signed until NormalizeRect.
class CRect : public RECT
{
public:
    CRect() : CRect(0, 0, 0, 0) {}
    CRect(int l, int t, int r, int b) { SetRect(l, t, r, b); }
    CRect(const RECT& rect) : RECT(rect) {}
    CRect(POINT corner, SIZE size) : CRect(corner.x, corner.y, corner.x + size.cx, corner.y + size.cy) {}
    CRect(POINT topLeft, POINT bottomRight) : CRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y) {}

    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }
    BOOL IsRectEmpty() const { return left >= right || top >= bottom; }
    BOOL IsRectNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    void SetRect(int l, int t, int r, int b) { left = l, top = t, right = r, bottom = b; }
    void SetRectEmpty() { SetRect(0, 0, 0, 0); }
    void InflateRect(int dx, int dy) { SetRect(left - dx, top - dy, right + dx, bottom + dy); }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void OffsetRect(int dx, int dy) { SetRect(left + dx, top + dy, right + dx, bottom + dy); }
    void NormalizeRect()
    {
        *this = CRect(left < right ? left : right, top < bottom ? top : bottom, left < right ? right : left,
                      top < bottom ? bottom : top);
    }
    bool operator==(const RECT& other) const
    {
        return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
    }
    bool operator!=(const RECT& other) const { return !(*this == other); }
};
