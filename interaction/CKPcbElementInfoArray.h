#pragma once

#include "KolmApi.h"

#include "containers/CKArray.h"
#include "interaction/CKPcbElementInfo.h"

/// Compiled into the library, which exports it.
extern template class KOLM_DECLARED_TEMPLATE CKArray<CKPcbElementInfo*, CKPcbElementInfo*>;

/// A list of picking records that owns them, though not the entities that they refer to. Null elements are allowed. A
/// record belongs into one list, once: it is destroyed as often as it is listed.
class KOLM_API CKPcbElementInfoArray : public CKArray<CKPcbElementInfo*, CKPcbElementInfo*>
{
public:
    CKPcbElementInfoArray();
    /// Destroys the records, from the first to the last.
    ~CKPcbElementInfoArray() override;
};
