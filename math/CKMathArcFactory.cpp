// The one function of CKMath that makes a shape, and so the one file of the folder that knows the entities.
#include "math/CKMath.h"

#include "entities/CKGeomArc.h"

CKGeomArc* CKMath::GenerateArcFromThreePoints(double x1, double y1, double x2, double y2, double x3, double y3)
{
    // P2 is taken as the middle of the arc: the centre lies on the line through it and the chord's nearest point, as
    // far behind the chord as P2 lies before it. It is the centre of the circle through the points only when
    // they span 120 degrees.
    const KPointD onChord = GetDistanceLinePoint(x1, y1, x3, y3, x2, y2);
    const double sagitta = GetDistance(x2, y2, onChord.x, onChord.y);
    const KPointD center = GetDistancedLinePoint(x2, y2, onChord.x, onChord.y, sagitta);
    CKGeomArc* arc = new CKGeomArc(x1, y1, x3, y3, center.x, center.y, 0.0);
    arc->setDirection(GetRelativeDirection(x1, y1, x2, y2, x3, y3));
    return arc;
}
