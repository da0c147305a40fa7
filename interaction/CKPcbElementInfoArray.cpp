#include "interaction/CKPcbElementInfoArray.h"

template class KOLM_DEFINED_TEMPLATE CKArray<CKPcbElementInfo*, CKPcbElementInfo*>;

CKPcbElementInfoArray::CKPcbElementInfoArray() = default;

CKPcbElementInfoArray::~CKPcbElementInfoArray()
{
    RemoveAllAfterDelete();
}
