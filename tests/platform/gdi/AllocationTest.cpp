/// Strokes on a warm device context take nothing from the heap.
#include "GdiTestTools.h"

#include <cstdlib>
#include <new>

namespace {

long g_allocations = 0;

} // namespace

// Of the whole process: the library's calls of operator new arrive here too. Kept out of line, since the compiler takes
// an inlined pair for a mismatch of new and free.
__attribute__((noinline)) void* operator new(size_t size)
{
    ++g_allocations;
    if (void* const memory = std::malloc(size > 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

__attribute__((noinline)) void operator delete(void* memory) noexcept
{
    std::free(memory);
}

__attribute__((noinline)) void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}

namespace {

/// A pen for each stroke, as hosts do it, with every kind of figure in turn.
void DrawStrokes(CDC& dc, int count)
{
    for (int i = 0; i < count; ++i) {
        CPen pen(PS_SOLID, i % 4, RGB(255, i & 255, 0));
        CBrush brush(RGB(0, i & 255, 255));
        CPen* const former = dc.SelectObject(&pen);
        CBrush* const formerBrush = dc.SelectObject(&brush);
        dc.BeginPath();
        dc.MoveTo(i % 90, 10);
        dc.LineTo(50, 20 + i % 70);
        if (i % 3 == 0) {
            dc.ArcTo(20, 20, 60, 60, 20, 40, 60, 40);
        }
        dc.EndPath();
        if (i % 5 == 0) {
            dc.StrokeAndFillPath();
        } else {
            dc.StrokePath();
        }
        dc.SelectObject(formerBrush);
        dc.SelectObject(former);
    }
}

TEST(GdiAllocation, NoneForAStroke)
{
    CWnd window;
    window.CreateEx(0, nullptr, nullptr, 0, 0, 0, 100, 100, nullptr, nullptr);
    CClientDC dc(&window);
    for (int rop : {R2_COPYPEN, R2_XORPEN}) {
        dc.SetROP2(rop);
        DrawStrokes(dc, 500);
        const long before = g_allocations;
        DrawStrokes(dc, 500);
        EXPECT_EQ(g_allocations, before) << rop;
    }
    EXPECT_GT(g_allocations, 0); // the counter is in use
}

} // namespace
