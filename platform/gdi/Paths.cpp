/// The path of a device context, and lines drawn outside of one.
#include "gdi/Arcs.h"
#include "gdi/DeviceContext.h"
#include "gdi/Trace.h"

#include <cstring>
#include <vector>

using namespace gdi;

namespace {

/// Moves the current position, both coordinates in one store. The next line reads them in one load, and from two stores
/// that load would have to wait until all pixels written before have reached the cache.
void SetPosition(DeviceContext& dc, POINT to)
{
    std::memcpy(&dc.position, &to, sizeof to);
}

DevicePoint DevicePosition(const DeviceContext& dc)
{
    return dc.world.ToDevice(dc.position.x, dc.position.y);
}

/// Begins a figure at the current position unless one goes on. Points enter the path in device pixels: a transform set
/// later moves what is drawn from then on, not what is there.
void OpenFigure(DeviceContext& dc)
{
    if (!dc.figureOpen) {
        dc.path.MoveTo(DevicePosition(dc));
        dc.figureOpen = true;
    }
}

/// A line that does not begin a figure of a path. Kept apart from those that do, which are most: they would have to
/// save the registers that this takes.
__attribute__((noinline)) void ContinueLine(DeviceContext& dc, DevicePoint to)
{
    if (dc.pathState == PathState::Open) {
        dc.path.LineTo(to);
    } else {
        StrokeSegment(dc, DevicePosition(dc), to); // outside of a path each line is a stroke of its own
    }
}

/// The finished path, taken for drawing; null when there is none.
DeviceContext* TakePath(HDC handle, const char* call)
{
    DeviceContext* const dc = FindDc(handle);
    Trace(dc, call);
    if (dc == nullptr || dc->pathState != PathState::Finished) {
        return nullptr;
    }
    // Consumed even when drawing fails half way: a path is never drawn twice.
    dc->pathState = PathState::None;
    return dc;
}

/// Collects the points of GetPath.
class PathPoints
{
public:
    explicit PathPoints(const Transform& world) : m_world(world) {}

    void Add(RealPoint device, BYTE type)
    {
        m_points.push_back(m_world.ToLogical(device));
        m_types.push_back(type);
    }
    void AddPath(const DevicePath& path);

    std::vector<POINT> m_points;
    std::vector<BYTE> m_types;

private:
    const Transform& m_world;
};

/// Points and arcs are kept apart in a path; the verbs tell in which order to take them.
void PathPoints::AddPath(const DevicePath& path)
{
    size_t point = 0, arc = 0;
    for (DevicePath::Verb verb : path.Verbs()) {
        switch (verb) {
        case DevicePath::Verb::Move:
        case DevicePath::Verb::Line: {
            const DevicePoint p = path.Points()[point++];
            Add({double(p.x), double(p.y)}, verb == DevicePath::Verb::Move ? PT_MOVETO : PT_LINETO);
            break;
        }
        case DevicePath::Verb::Arc:
            ArcToBeziers(path.Arcs()[arc++], [this](RealPoint p) { Add(p, PT_BEZIERTO); });
            break;
        case DevicePath::Verb::Close:
            if (!m_types.empty()) {
                m_types.back() |= PT_CLOSEFIGURE;
            }
            break;
        }
    }
}

} // namespace

BOOL BeginPath(HDC handle)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    Trace(dc, "BeginPath");
    // Also out of an open path, which is thrown away. The current position stays, so a figure may begin without a move.
    dc->path.Clear();
    dc->pathState = PathState::Open;
    dc->figureOpen = false;
    return TRUE;
}

BOOL EndPath(HDC handle)
{
    DeviceContext* const dc = FindDc(handle);
    Trace(dc, "EndPath");
    if (dc == nullptr || dc->pathState != PathState::Open) {
        return FALSE;
    }
    dc->pathState = PathState::Finished;
    return TRUE;
}

BOOL AbortPath(HDC handle)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    dc->path.Clear();
    dc->pathState = PathState::None;
    return TRUE;
}

BOOL CloseFigure(HDC handle)
{
    DeviceContext* const dc = FindDc(handle);
    Trace(dc, "CloseFigure");
    if (dc == nullptr || dc->pathState != PathState::Open) {
        return FALSE;
    }
    return WithMemory([dc] {
        // A second call in a row has nothing left to close. The current position stays where it is.
        if (dc->figureOpen) {
            dc->path.Close();
            dc->figureOpen = false;
        }
        return TRUE;
    });
}

BOOL StrokePath(HDC handle)
{
    DeviceContext* const dc = TakePath(handle, "StrokePath");
    return dc != nullptr && WithMemory([dc] {
               Stroke(*dc, dc->path);
               return TRUE;
           });
}

BOOL FillPath(HDC handle)
{
    DeviceContext* const dc = TakePath(handle, "FillPath");
    return dc != nullptr && WithMemory([dc] {
               FillInside(*dc, dc->path);
               return TRUE;
           });
}

BOOL StrokeAndFillPath(HDC handle)
{
    DeviceContext* const dc = TakePath(handle, "StrokeAndFillPath");
    return dc != nullptr && WithMemory([dc] {
               // The stroke goes over the fill, half of a wide pen's width inside.
               FillInside(*dc, dc->path);
               Stroke(*dc, dc->path);
               return TRUE;
           });
}

int GetPath(HDC handle, LPPOINT points, LPBYTE types, int count)
{
    const DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || dc->pathState != PathState::Finished) {
        return -1;
    }
    try {
        // Logical points under the transform of now, which need not be the one the path was built with.
        PathPoints collected(dc->world);
        collected.AddPath(dc->path);
        const int total = int(collected.m_points.size());
        if (count == 0) {
            return total;
        }
        if (count < total || points == nullptr || types == nullptr) {
            return -1;
        }
        std::copy(collected.m_points.begin(), collected.m_points.end(), points);
        std::copy(collected.m_types.begin(), collected.m_types.end(), types);
        return total;
    } catch (const std::bad_alloc&) {
        return -1;
    }
}

BOOL MoveToEx(HDC handle, int x, int y, LPPOINT former)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    Trace(dc, "MoveTo %d %d", x, y);
    if (former != nullptr) {
        *former = dc->position;
    }
    // The figure begins with its first line, so that moves in a row leave no points behind.
    SetPosition(*dc, {x, y});
    dc->figureOpen = false;
    return TRUE;
}

BOOL GetCurrentPositionEx(HDC handle, LPPOINT position)
{
    const DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr || position == nullptr) {
        return FALSE;
    }
    *position = dc->position;
    return TRUE;
}

BOOL LineTo(HDC handle, int x, int y)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    Trace(dc, "LineTo %d %d", x, y);
    return WithMemory([=] {
        const DevicePoint to = dc->world.ToDevice(x, y);
        if (dc->pathState != PathState::Open || dc->figureOpen) {
            ContinueLine(*dc, to);
        } else {
            dc->path.Segment(DevicePosition(*dc), to);
            dc->figureOpen = true;
        }
        SetPosition(*dc, {x, y});
        return TRUE;
    });
}

BOOL ArcTo(HDC handle, int left, int top, int right, int bottom, int xr1, int yr1, int xr2, int yr2)
{
    DeviceContext* const dc = FindDc(handle);
    if (dc == nullptr) {
        return FALSE;
    }
    Trace(dc, "ArcTo %d %d %d %d %d %d %d %d", left, top, right, bottom, xr1, yr1, xr2, yr2);
    const ArcRequest request = {left, top, right, bottom, xr1, yr1, xr2, yr2};
    return WithMemory([=] {
        if (dc->pathState == PathState::Open) {
            OpenFigure(*dc);
            dc->position = AppendArc(*dc, request, DevicePosition(*dc), dc->path);
        } else {
            const DevicePoint from = DevicePosition(*dc);
            dc->scratch.Clear();
            dc->scratch.MoveTo(from);
            dc->position = AppendArc(*dc, request, from, dc->scratch);
            Stroke(*dc, dc->scratch);
        }
        return TRUE;
    });
}
