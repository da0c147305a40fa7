#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"
#include "entities/CKGeomArray.h"

#include <cstdint>
#include <memory>

/// A shape that owns a list of shapes, type code 5. It draws nothing by itself. The list exists from the first Add on;
/// a container that was emptied keeps it, which only GetAt() tells from one that never held anything.
///
/// A shape belongs to one container at a time, and a container must not hold itself, directly or further down.
/// Null elements are allowed: they stay null in copies, are equal to each other only and are left out of archives.
///
/// Archive record, without the geometry header: version, the number of elements, then for each its type code and its
/// own record. Only texts, lines, arcs, points and polygons can be read back, or what a derived class's NewCKGeom()
/// makes. Records may be nested 128 containers deep, also when storing; beyond that the archive's bad-schema exception
/// is raised.
///
/// The virtual operations are those of CKGeom, then NewCKGeom.
class KOLM_API CKGeomContainer : public CKGeom
{
public:
    CKGeomContainer();
    /// Copies every field, object number included, and each element as its own class, to any depth.
    CKGeomContainer(const CKGeomContainer& other);
    /// Destroys the elements.
    ~CKGeomContainer() override;

    /// Copies offset and corners, destroys the own elements and holds copies of the other's instead. The copies are
    /// made first, so the other container may be one that this one owns; if one of them fails, nothing is changed.
    CKGeomContainer& operator=(const CKGeomContainer& other);
    /// 1 for the same object, or when offset and corners are equal and IsElementEqual() holds.
    int operator==(const CKGeomContainer& other) const;
    int operator!=(const CKGeomContainer& other) const; ///< the negation of ==
    /// 1 when the counts are equal and the elements pairwise in order, by offset and corners only: neither the kinds of
    /// the elements nor their own fields are compared.
    int IsElementEqual(const CKGeomContainer& other) const;

    /// Writes or reads the record. Loading first destroys what the container holds; its own offset and corners stay. A
    /// version or count below 1 leaves it empty. An element is added once it was read whole: when the archive ends
    /// early its exception passes, the elements before stay and the broken one is freed. A type code that NewCKGeom()
    /// does not know raises the bad-schema exception.
    void Serialize(CArchive& ar) override;
    CKGeom* clone() const override;
    int GetType() override;
    /// A new empty shape for a type code, which the caller deletes: 1 text, 2 line, 3 arc, 4 point, 6 polygon; null for
    /// every other code. Derived containers add their own kinds.
    virtual CKGeom* NewCKGeom(int type);

    int GetCount() const;     ///< null elements included
    uint64_t GetSize() const; ///< the same number
    int IsEmpty();            ///< 1 without elements, else 0
    /// Appends the shape, null included, and owns it from then on. Without memory the exception passes, and the shape
    /// stays the caller's.
    void Add(CKGeom* shape);
    /// Null without a list, else the element; outside of 0 ... count - 1 the invalid-argument exception is raised.
    CKGeom* GetAt(int i) const;
    /// Null when there is none.
    CKGeom* GetLastElement();
    /// Takes the element out; it is the caller's then. Nothing happens without a list or at or past the end; a negative
    /// index raises the invalid-argument exception.
    void RemoveAt(int i);
    /// Takes the element out and destroys it, with the rules of RemoveAt().
    void DeleteAt(int i);
    /// Destroys all elements.
    void DeleteElements();

private:
    friend class CKGeomPolygon;
    friend class CKGeomTreeCopy;

    /// An empty container with the entity and geometry fields of a source, its object number included.
    explicit CKGeomContainer(const CKGeom& fields);
    void Store(CArchive& ar);
    void Load(CArchive& ar);

    std::unique_ptr<CKGeomArray> m_elements;
};
