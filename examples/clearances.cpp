// Measures how near drawn tracks come to each other, in millimetres: between their edges, with the points where.
#include <kolm.h>

#include <cstdio>

namespace {

void Print(const char* what, double clearance, const KTwoPointD& points)
{
    std::printf("%s: %.3f mm, from (%.3f, %.3f) to (%.3f, %.3f)\n", what, clearance, points.x1, points.y1, points.x2,
                points.y2);
}

} // namespace

int main()
{
    KTwoPointD points{};

    // A track 0.5 mm wide along y = 0, and one 1 mm wide that ends 2 mm above it. Ends are round.
    double gap = CKMath::GetDistancePointsOfLineToLine(&points, 0, 0, 10, 0, 0.5, 4, 2, 4, 9, 1.0);
    Print("track to track", gap, points);

    // The first track, and the upper half of a circle of radius 3 about (5, 4), from right to left and 0.2 mm wide.
    const int counterClockwise = 1;
    gap = CKMath::GetDistancePointsOfLineToArc(&points, 0, 0, 10, 0, 0.5, 5, 4, 8, 4, 2, 4, 3, 0.2, counterClockwise);
    Print("track to arc", gap, points);

    // The same arc and the lower half of a circle of radius 1 about the same centre, 0.2 mm wide as well.
    gap = CKMath::GetDistancePointsOfArcToArc(&points, 5, 4, 8, 4, 2, 4, 3, 0.2, counterClockwise, 5, 4, 4, 4, 6, 4, 1,
                                              0.2, counterClockwise);
    Print("arc to arc", gap, points);

    // Crossing tracks: 0, and the crossing point twice.
    gap = CKMath::GetDistancePointsOfLineToLine(&points, 0, 0, 10, 10, 0.2, 0, 10, 10, 0, 0.2);
    Print("crossing tracks", gap, points);
}
