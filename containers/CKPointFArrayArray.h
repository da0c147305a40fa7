#pragma once

#include "KolmApi.h"

#include "containers/CKPointFArray.h"

/// Compiled into the library, which exports it.
extern template class KOLM_DECLARED_TEMPLATE CKArray<CKPointFArray*, CKPointFArray*>;

/// A list of polylines that owns them and, through them, their points.
class KOLM_API CKPointFArrayArray : public CKArray<CKPointFArray*, CKPointFArray*>
{
public:
    CKPointFArrayArray();
    /// Destroys the polylines.
    ~CKPointFArrayArray() override;
};
