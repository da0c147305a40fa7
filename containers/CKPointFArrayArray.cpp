#include "containers/CKPointFArrayArray.h"

template class CKArray<CKPointFArray*, CKPointFArray*>;

CKPointFArrayArray::CKPointFArrayArray() = default;

CKPointFArrayArray::~CKPointFArrayArray()
{
    RemoveAllAfterDelete();
}
