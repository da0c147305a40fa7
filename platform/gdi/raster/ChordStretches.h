/// Which parts of a long curve a wide pen has to be drawn along.
#pragma once

#include "gdi/raster/ArcSector.h"
#include "gdi/raster/PenReach.h"

#include <vector>

namespace gdi {

/// Stretches of an arc's chords beside which the border of the stroke may run through the clip. Halves the arc until a
/// stretch is out of reach or a single chord, so that the work follows what is seen, not the radius. Keeps its memory.
class ChordStretches
{
public:
    struct Stretch
    {
        int first; ///< index of the chord point at which it begins
        int last;
    };

    /// Covers when a stretch paints all of the clip by itself. Else Found() has to be drawn: each as the line between
    /// its ends, at most `most` of them. There are more candidates only where the pen is about as wide as the ellipse's
    /// curvature at a visible point, where the borders of many chords meet; then longer chords have to do.
    Reach Find(const ArcChords& chords, const PenReach& reach, size_t most);
    const std::vector<Stretch>& Found() const { return m_found; }

private:
    struct End
    {
        int index;
        double x, y;
    };

    End EndAt(int index) const;
    Reach Split(const End& from, const End& to);

    const ArcChords* m_chords = nullptr; ///< these while Find runs
    const PenReach* m_reach = nullptr;
    size_t m_most = 0;
    int m_shortest = 1; ///< stretches of so many chords are not split any more
    std::vector<Stretch> m_found;
};

} // namespace gdi
