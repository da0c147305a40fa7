#include "containers/CKPointFArrayArray.h"

template class KOLM_DEFINED_TEMPLATE CKArray<CKPointFArray*, CKPointFArray*>;

CKPointFArrayArray::CKPointFArrayArray() = default;

CKPointFArrayArray::~CKPointFArrayArray()
{
    RemoveAllAfterDelete();
}
