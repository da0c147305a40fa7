#include "entities/CKGeomTreeCopy.h"

#include <typeinfo>

void CKGeomTreeCopy::CopyElements(const CKGeomContainer& source, CKGeomContainer& target)
{
    CKGeomTreeCopy copy;
    copy.m_tasks.push_back({&source, &target});
    copy.Run();
}

void CKGeomTreeCopy::CopyContainers(const CKGeomPolygon& source, CKGeomPolygon& target)
{
    CKGeomTreeCopy copy;
    copy.AddContainers(source, target);
    copy.Run();
}

void CKGeomTreeCopy::Run()
{
    // The last task first: the list stays short for wide trees and long only for deep ones.
    while (!m_tasks.empty()) {
        const Task task = m_tasks.back();
        m_tasks.pop_back();
        const int count = task.source->GetCount();
        for (int i = 0; i < count; ++i) {
            // A copied container is still empty when it is added; its own task fills it in its place.
            std::unique_ptr<CKGeom> shape = CopyShape(task.source->GetAt(i));
            task.target->Add(shape.get());
            (void)shape.release(); // the list owns it now
        }
    }
}

std::unique_ptr<CKGeom> CKGeomTreeCopy::CopyShape(const CKGeom* shape)
{
    if (!shape)
        return nullptr; // nulls keep their places
    // Exact classes only: what a host derives from them knows best how it is copied.
    if (typeid(*shape) == typeid(CKGeomContainer))
        return CopyLater(static_cast<const CKGeomContainer*>(shape));
    if (typeid(*shape) == typeid(CKGeomPolygon)) {
        std::unique_ptr<CKGeomPolygon> polygon(new CKGeomPolygon(static_cast<const CKGeom&>(*shape)));
        AddContainers(static_cast<const CKGeomPolygon&>(*shape), *polygon);
        return polygon;
    }
    return std::unique_ptr<CKGeom>(shape->clone());
}

// The new container is owned by the caller before its task runs, and containers never move.
std::unique_ptr<CKGeomContainer> CKGeomTreeCopy::CopyLater(const CKGeomContainer* source)
{
    if (!source)
        return nullptr;
    std::unique_ptr<CKGeomContainer> target(new CKGeomContainer(static_cast<const CKGeom&>(*source)));
    m_tasks.push_back({source, target.get()});
    return target;
}

void CKGeomTreeCopy::AddContainers(const CKGeomPolygon& source, CKGeomPolygon& target)
{
    target.m_outline = CopyLater(source.m_outline.get());
    target.m_hole = CopyLater(source.m_hole.get());
}
