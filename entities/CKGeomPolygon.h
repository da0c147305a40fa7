#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"
#include "entities/CKGeomContainer.h"

#include <memory>

/// A shape made of an outline and holes, each a container of shapes that the polygon owns; type code 6. It draws
/// nothing by itself: hosts draw its parts.
///
/// A new polygon has no containers; each is made when it is first asked for, stored or loaded. One that was not made
/// yet counts as an empty one, so asking never changes what a polygon is equal to.
class KOLM_API CKGeomPolygon : public CKGeom
{
public:
    CKGeomPolygon();
    /// Copies every field, object number included, and both containers with their elements, to any depth.
    CKGeomPolygon(const CKGeomPolygon& other);
    /// Destroys outline and holes.
    ~CKGeomPolygon() override;

    /// Copies offset and corners and puts copies of the other's containers in place of the own ones, which are
    /// destroyed. The copies are made first, so the other polygon may be part of this one.
    CKGeomPolygon& operator=(const CKGeomPolygon& other);
    /// Compares offset and corners, and the containers by their content.
    int operator==(const CKGeomPolygon& other) const;
    int operator!=(const CKGeomPolygon& other) const; ///< the negation of ==

    /// Writes or reads version, the outline's record and the hole's record, without the geometry header; 20 bytes when
    /// both are empty. Loading a version below 1 leaves both as they are; otherwise each destroys what it held.
    void Serialize(CArchive& ar) override;
    CKGeom* clone() const override;
    int GetType() override;

    /// @{
    /// The containers, never null; they stay the polygon's.
    CKGeomContainer* getOutline();
    CKGeomContainer* getHole();
    /// @}

private:
    friend class CKGeomTreeCopy;

    /// A polygon without containers with the entity and geometry fields of a source, its object number included.
    explicit CKGeomPolygon(const CKGeom& fields);
    static int IsSameContent(const CKGeomContainer* a, const CKGeomContainer* b);

    std::unique_ptr<CKGeomContainer> m_outline;
    std::unique_ptr<CKGeomContainer> m_hole;
};
