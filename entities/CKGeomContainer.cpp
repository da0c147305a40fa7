#include "entities/CKGeomContainer.h"

#include "KolmVersion.h"

#include "entities/ArchiveNesting.h"
#include "entities/CKGeomArc.h"
#include "entities/CKGeomLine.h"
#include "entities/CKGeomPoint.h"
#include "entities/CKGeomPolygon.h"
#include "entities/CKGeomText.h"
#include "entities/CKGeomTreeCopy.h"

namespace {

/// Compares offset and corners. A null is equal to a null only.
int IsSameElement(const CKGeom* a, const CKGeom* b)
{
    if (a == b)
        return 1;
    return a && b && *a == *b;
}

} // namespace

CKGeomContainer::CKGeomContainer() = default;

// For CKGeomTreeCopy, which fills it later: through CKGeom's copy, since a plain constructor would take a number.
CKGeomContainer::CKGeomContainer(const CKGeom& fields) : CKGeom(fields) {}

CKGeomContainer::CKGeomContainer(const CKGeomContainer& other) : CKGeom(other)
{
    CKGeomTreeCopy::CopyElements(other, *this);
}

CKGeomContainer::~CKGeomContainer() = default;

CKGeomContainer& CKGeomContainer::operator=(const CKGeomContainer& other)
{
    if (this == &other)
        return *this;
    // Whatever fails while copying leaves this container whole. The old elements go with `copy` at the end.
    CKGeomContainer copy(other);
    CKGeom::operator=(other); // before the own elements go, since the other container may be among them
    if (copy.m_elements)
        m_elements.swap(copy.m_elements);
    else
        DeleteElements(); // nothing to take over: the own list stays, empty
    return *this;
}

int CKGeomContainer::operator==(const CKGeomContainer& other) const
{
    if (this == &other)
        return 1;
    return CKGeom::operator==(other) && IsElementEqual(other);
}

int CKGeomContainer::operator!=(const CKGeomContainer& other) const
{
    return !(*this == other);
}

// Through CKGeom's comparison, which is not virtual: order, offset and corners decide, kinds and fields do not.
int CKGeomContainer::IsElementEqual(const CKGeomContainer& other) const
{
    const int count = GetCount();
    if (count != other.GetCount())
        return 0;
    for (int i = 0; i < count; ++i) {
        if (!IsSameElement(GetAt(i), other.GetAt(i)))
            return 0;
    }
    return 1;
}

void CKGeomContainer::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
        Store(ar);
    else
        Load(ar);
}

// Two walks, since the count stands before the elements and leaves the nulls out.
void CKGeomContainer::Store(CArchive& ar)
{
    const ArchiveNesting level;
    const int count = GetCount();
    int stored = 0;
    for (int i = 0; i < count; ++i)
        stored += GetAt(i) ? 1 : 0;

    const int version = kKolmArchiveVersion;
    ar << version << stored;
    for (int i = 0; i < count; ++i) {
        CKGeom* shape = GetAt(i);
        if (!shape)
            continue; // a null has no type code, so an archive could not bring it back
        ar << shape->GetType();
        shape->Serialize(ar);
    }
}

// The old elements go before anything is read, also when the archive then turns out to be empty.
void CKGeomContainer::Load(CArchive& ar)
{
    DeleteElements();
    const ArchiveNesting level;
    int version = 0;
    ar >> version;
    if (version < 1)
        return;
    // The count is taken as a promise only: the list grows by the shapes that really arrive.
    int count = 0;
    ar >> count;
    for (int i = 0; i < count; ++i) {
        int type = 0;
        ar >> type;
        std::unique_ptr<CKGeom> shape(NewCKGeom(type));
        // No record tells its length, so what comes after an unknown kind cannot be found.
        if (!shape)
            AfxThrowArchiveException(CArchiveException::badSchema);
        // Until it is read whole, the shape is the loop's, which frees it when the archive ends early.
        shape->Serialize(ar);
        Add(shape.get());
        (void)shape.release(); // the list owns it now
    }
}

CKGeom* CKGeomContainer::clone() const
{
    return new CKGeomContainer(*this);
}

int CKGeomContainer::GetType()
{
    return 5;
}

// The codes are part of the archive format: a kind may be added, none may change.
CKGeom* CKGeomContainer::NewCKGeom(int type)
{
    switch (type) {
    case 1:
        return new CKGeomText;
    case 2:
        return new CKGeomLine;
    case 3:
        return new CKGeomArc;
    case 4:
        return new CKGeomPoint;
    case 6:
        return new CKGeomPolygon;
    default:
        return nullptr; // circles and rectangles have no code of their own, and a bare container is none of a board
    }
}

// An int, as archives count; memory ends long before.
int CKGeomContainer::GetCount() const
{
    return m_elements ? static_cast<int>(m_elements->GetSize()) : 0;
}

uint64_t CKGeomContainer::GetSize() const
{
    return m_elements ? static_cast<uint64_t>(m_elements->GetSize()) : 0;
}

int CKGeomContainer::IsEmpty()
{
    return GetSize() == 0 ? 1 : 0;
}

void CKGeomContainer::Add(CKGeom* shape)
{
    // Made late: most polygons of a board have no holes, and each would carry an empty list.
    if (!m_elements)
        m_elements = std::make_unique<CKGeomArray>();
    m_elements->Add(shape);
}

// The platform's array raises for a bad index.
CKGeom* CKGeomContainer::GetAt(int i) const
{
    return m_elements ? m_elements->GetAt(i) : nullptr;
}

CKGeom* CKGeomContainer::GetLastElement()
{
    return m_elements ? m_elements->GetLastElement() : nullptr;
}

// Too large is a no-op, negative reaches the array and raises there.
void CKGeomContainer::RemoveAt(int i)
{
    if (m_elements && i < m_elements->GetSize())
        m_elements->RemoveAt(i);
}

void CKGeomContainer::DeleteAt(int i)
{
    if (m_elements)
        m_elements->DeleteAt(i);
}

void CKGeomContainer::DeleteElements()
{
    if (m_elements)
        m_elements->DeleteElements();
}
