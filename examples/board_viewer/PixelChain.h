/// Chains of lines in a device context's path.
#pragma once

#include "foundation/KRecords.h"

#include <afxwin.h>

namespace viewer {

/// Draws one chain after the other into the open path, from pixel to pixel. Filled zones have many edges of far less
/// than a pixel; these add nothing.
class PixelChain
{
public:
    /// The device context is the caller's and outlives the chain.
    explicit PixelChain(CDC* target) : dc(target) {}

    void Begin() { begun = false; } ///< the next point starts a new chain
    bool HasBegun() const { return begun; }

    void Reach(KPoint point)
    {
        if (!begun)
            dc->MoveTo(point.x, point.y);
        else if (point.x != last.x || point.y != last.y)
            dc->LineTo(point.x, point.y);
        GoOnFrom(point);
    }

    /// Somebody else has drawn on to this pixel.
    void GoOnFrom(KPoint point)
    {
        begun = true;
        last = point;
    }

private:
    CDC* dc;
    bool begun = false;
    KPoint last{};
};

} // namespace viewer
