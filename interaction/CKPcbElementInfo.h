#pragma once

#include "KolmApi.h"

#include <afx.h>

class CKEntity;

/// One hit of a pick: the element under the mouse as a pair of entities, the owning one (parent) and the part of it
/// that was hit (child), with an optional further object and a point of the host's choice.
///
/// The record only refers to these objects. It never changes or frees them, and whoever keeps a record keeps the
/// objects alive for as long as it is asked about them.
class KOLM_API CKPcbElementInfo
{
public:
    CKPcbElementInfo() = default; ///< refers to nothing, peeking point (0, 0)
    /// Either may be null; peeking point (0, 0).
    CKPcbElementInfo(CKEntity* parent, CKEntity* child) : m_parent(parent), m_child(child) {}
    /// @{
    /// Refers to the same objects.
    CKPcbElementInfo(const CKPcbElementInfo& other) = default;
    CKPcbElementInfo& operator=(const CKPcbElementInfo& other) = default;
    /// @}

    // The virtual operations, in the order of their slots.

    virtual ~CKPcbElementInfo();
    /// A new record with the same five values, which the caller deletes.
    virtual CKPcbElementInfo* GenerateClone();

    static CKPcbElementInfo GenerateEmptyClone(); ///< a record as the default constructor makes it

    /// @{
    /// The objects referred to, still their owners'; null for none.
    CKEntity* GetParent() { return m_parent; }
    void SetParent(CKEntity* parent) { m_parent = parent; }
    CKEntity* GetChild() { return m_child; }
    void SetChild(CKEntity* child) { m_child = child; }
    CObject* GetChildDetail() { return m_childDetail; }
    void SetChildDetail(CObject* detail) { m_childDetail = detail; }
    /// @}
    /// The child detail as an entity. Null without a detail, and for one that is no entity. Entities are not platform
    /// objects by themselves: a class that is to be found here derives from CObject and from an entity.
    CKEntity* GetChildDetailCKEntity();

    int GetParentObjectNumber(); ///< 0 without a parent
    int GetChildObjectNumber();  ///< 0 without a child

    /// The peeking point in whatever frame the host picks in; kept as given, no number included.
    void SetPeeking(double x, double y)
    {
        m_peekingX = x;
        m_peekingY = y;
    }
    /// @{
    /// The point as it was set.
    double GetPeekingX() { return m_peekingX; }
    double GetPeekingY() { return m_peekingY; }
    /// @}

    /// 1 without parent and child, else 0. Detail and peeking point alone do not make a hit.
    int IsNull() { return !m_parent && !m_child ? 1 : 0; }
    /// Does nothing: a record has nothing to delete.
    void DeleteAll() {}

private:
    CKEntity* m_parent = nullptr;
    CKEntity* m_child = nullptr;
    CObject* m_childDetail = nullptr;
    double m_peekingX = 0.0;
    double m_peekingY = 0.0;
};
