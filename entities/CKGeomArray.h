#pragma once

#include "KolmApi.h"

#include "entities/CKGeom.h"

#include <afxtempl.h>

/// The owning list of shapes that host and painter pass around: the platform's pointer array plus operations whose name
/// holds Delete, which destroy shapes. The inherited ones (Add, RemoveAt, SetAt, ...) only link and unlink. Null
/// elements are allowed. A shape belongs to one owner at a time.
///
/// Destroying shapes takes a bounded amount of stack however deep polygons are nested in each other.
class KOLM_API CKGeomArray : public CArray<CKGeom*, CKGeom*>
{
public:
    CKGeomArray();
    /// Destroys the elements.
    ~CKGeomArray() override;

    /// Takes the element out and then destroys it. At or past the end nothing happens; a negative index raises the
    /// platform's invalid-argument exception.
    void DeleteAt(int i);
    /// Destroys the elements in index order and frees the buffer.
    void DeleteElements();
    /// Null for an empty list.
    CKGeom* GetLastElement();
};
