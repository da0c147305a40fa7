#include "entities/CKGeomPolygon.h"

#include "KolmVersion.h"

#include "entities/ArchiveNesting.h"
#include "entities/CKGeomTreeCopy.h"

CKGeomPolygon::CKGeomPolygon() = default;

// For CKGeomTreeCopy, as in the container.
CKGeomPolygon::CKGeomPolygon(const CKGeom& fields) : CKGeom(fields) {}

CKGeomPolygon::CKGeomPolygon(const CKGeomPolygon& other) : CKGeom(other)
{
    CKGeomTreeCopy::CopyContainers(other, *this);
}

CKGeomPolygon::~CKGeomPolygon() = default;

CKGeomPolygon& CKGeomPolygon::operator=(const CKGeomPolygon& other)
{
    if (this == &other)
        return *this;
    CKGeomPolygon copy(other);
    CKGeom::operator=(other); // before the own containers go, since the other polygon may lie in them
    // Pointers that hosts kept to the old containers end here, unlike those of a polygon that is loaded again.
    m_outline.swap(copy.m_outline);
    m_hole.swap(copy.m_hole);
    return *this;
}

int CKGeomPolygon::operator==(const CKGeomPolygon& other) const
{
    if (this == &other)
        return 1;
    return CKGeom::operator==(other) && IsSameContent(m_outline.get(), other.m_outline.get()) &&
           IsSameContent(m_hole.get(), other.m_hole.get());
}

int CKGeomPolygon::operator!=(const CKGeomPolygon& other) const
{
    return !(*this == other);
}

// A container that was not made yet is an empty one in its default state. It is not made here: comparing must not
// change anything, and a new container would take an object number.
int CKGeomPolygon::IsSameContent(const CKGeomContainer* a, const CKGeomContainer* b)
{
    if (a == b)
        return 1;
    if (a && b)
        return *a == *b;
    const CKGeomContainer* made = a ? a : b;
    return made->GetCount() == 0 && made->HasDefaultGeometry();
}

// Both containers are archived always, made for the purpose if need be: the record has no mark for a missing one.
void CKGeomPolygon::Serialize(CArchive& ar)
{
    // Also for a version below 1, whose record ends before its containers: what can be loaded can be stored again.
    ArchiveNesting::RequireRoom();
    int version = kKolmArchiveVersion;
    if (ar.IsStoring()) {
        ar << version;
    } else {
        ar >> version;
        if (version < 1)
            return;
    }
    getOutline()->Serialize(ar);
    getHole()->Serialize(ar);
}

CKGeom* CKGeomPolygon::clone() const
{
    return new CKGeomPolygon(*this);
}

int CKGeomPolygon::GetType()
{
    return 6;
}

// On first use, and then for the life of the polygon: loading and hosts keep pointers to it.
CKGeomContainer* CKGeomPolygon::getOutline()
{
    if (!m_outline)
        m_outline = std::make_unique<CKGeomContainer>();
    return m_outline.get();
}

CKGeomContainer* CKGeomPolygon::getHole()
{
    if (!m_hole)
        m_hole = std::make_unique<CKGeomContainer>();
    return m_hole.get();
}
