#pragma once

#include "entities/CKGeomContainer.h"
#include "entities/CKGeomPolygon.h"

#include <vector>

/// Copies the elements of containers and polygons, used by their copy constructors. Containers and polygons met on the
/// way are copied here, list by list from a work list instead of by recursion, so that their nesting takes no stack;
/// every other shape, and every class derived by a host, is copied by its own clone().
///
/// A copy hangs in its owner as soon as it is made: when a later one fails, destroying the owner frees it all.
class CKGeomTreeCopy
{
public:
    /// Appends copies of the source's elements to the target, in order, nulls included.
    static void CopyElements(const CKGeomContainer& source, CKGeomContainer& target);
    /// Gives the target, which has none, copies of those containers that the source has.
    static void CopyContainers(const CKGeomPolygon& source, CKGeomPolygon& target);

private:
    struct Task
    {
        const CKGeomContainer* source;
        CKGeomContainer* target;
    };

    std::unique_ptr<CKGeom> CopyShape(const CKGeom* shape);
    std::unique_ptr<CKGeomContainer> CopyLater(const CKGeomContainer* source);
    void AddContainers(const CKGeomPolygon& source, CKGeomPolygon& target);
    void Run();

    std::vector<Task> m_tasks;
};
