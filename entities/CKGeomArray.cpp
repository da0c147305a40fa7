#include "entities/CKGeomArray.h"

#include <new>
#include <vector>

namespace {

/// The running destruction of a tree of shapes. A polygon destroys its containers, those their lists and those further
/// polygons; every level would take stack. Lists met deeper than kDirectLevels hand their shapes over to the outermost
/// one instead, which destroys them when the stack is short again.
struct Teardown
{
    int level = 0;
    std::vector<CKGeom*> postponed;
};

constexpr int kDirectLevels = 64;

/// The outermost destruction on this thread, which lies on its stack; null when none runs.
thread_local Teardown* runningTeardown = nullptr;

bool Postpone(CKGeom* const* shapes, INT_PTR count)
{
    try {
        std::vector<CKGeom*>& postponed = runningTeardown->postponed;
        postponed.insert(postponed.end(), shapes, shapes + count);
        return true;
    } catch (const std::bad_alloc&) {
        return false; // destructors must not fail: without memory the stack has to do
    }
}

void DestroyLevel(CKGeom* const* shapes, INT_PTR count)
{
    if (runningTeardown->level >= kDirectLevels && Postpone(shapes, count))
        return;
    // Index order within a list holds in any case; only lists in lists below the limit wait for their turn.
    ++runningTeardown->level;
    for (INT_PTR i = 0; i < count; ++i)
        delete shapes[i];
    --runningTeardown->level;
}

void DestroyShapes(CKGeom* const* shapes, INT_PTR count)
{
    if (runningTeardown) {
        DestroyLevel(shapes, count);
        return;
    }
    Teardown outermost;
    runningTeardown = &outermost;
    DestroyLevel(shapes, count);
    while (!outermost.postponed.empty()) {
        std::vector<CKGeom*> batch;
        batch.swap(outermost.postponed);
        DestroyLevel(batch.data(), static_cast<INT_PTR>(batch.size()));
    }
    runningTeardown = nullptr;
}

} // namespace

CKGeomArray::CKGeomArray() = default;

CKGeomArray::~CKGeomArray()
{
    DeleteElements();
}

void CKGeomArray::DeleteAt(int i)
{
    if (i >= GetSize())
        return;
    CKGeom* shape = GetAt(i); // raises for a negative index
    RemoveAt(i);              // first, so that the list never shows a shape that is being destroyed
    delete shape;
}

void CKGeomArray::DeleteElements()
{
    if (IsEmpty())
        return;
    // The shapes are handed over as plain pointers, so postponed ones do not need the buffer, which goes next.
    DestroyShapes(GetData(), GetSize());
    RemoveAll();
}

CKGeom* CKGeomArray::GetLastElement()
{
    return IsEmpty() ? nullptr : GetAt(GetUpperBound());
}
