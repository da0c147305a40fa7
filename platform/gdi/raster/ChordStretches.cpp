#include "gdi/raster/ChordStretches.h"

namespace gdi {

Reach ChordStretches::Find(const ArcChords& chords, const PenReach& reach, size_t most)
{
    m_chords = &chords;
    m_reach = &reach;
    m_most = most;
    Reach reached = Reach::Cuts;
    m_shortest = 1;
    for (;; m_shortest *= 2) {
        m_found.clear();
        reached = Split(EndAt(0), EndAt(chords.Count()));
        if (reached == Reach::Covers || m_found.size() <= most)
            return reached;
    }
}

ChordStretches::End ChordStretches::EndAt(int index) const
{
    End end = {index, 0, 0};
    m_chords->RealPoint(index, end.x, end.y);
    return end;
}

// A chord more than wanted ends the search: it is going to be made again with longer ones.
Reach ChordStretches::Split(const End& from, const End& to)
{
    const int steps = to.index - from.index;
    // Both ends are going to be rounded, which is less than a pixel.
    const Reach reached = m_reach->Of(from.x, from.y, to.x, to.y, m_chords->Height(steps) + 1);
    if (reached != Reach::Cuts || m_found.size() > m_most)
        return reached;
    if (steps <= m_shortest) {
        m_found.push_back({from.index, to.index});
        return Reach::Cuts;
    }
    const End middle = EndAt(from.index + steps / 2);
    const Reach first = Split(from, middle);
    return first == Reach::Covers ? first : Split(middle, to);
}

} // namespace gdi
