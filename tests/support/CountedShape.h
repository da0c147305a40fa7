#pragma once

#include "entities/CKGeomPoint.h"

/// A host's shape that counts its instances and the order in which they go.
class CountedShape : public CKGeomPoint
{
public:
    explicit CountedShape(double x = 0) : CKGeomPoint(x, 0) { ++alive; }
    CountedShape(const CountedShape& other) : CKGeomPoint(other) { ++alive; }
    ~CountedShape() override
    {
        --alive;
        lastDestroyed = GetX();
    }
    CKGeom* clone() const override { return new CountedShape(*this); }

    static inline int alive = 0;
    static inline double lastDestroyed = 0;
};
