#include "interaction/CKPcbElementInfoArray.h"

template class CKArray<CKPcbElementInfo*, CKPcbElementInfo*>;

CKPcbElementInfoArray::CKPcbElementInfoArray() = default;

CKPcbElementInfoArray::~CKPcbElementInfoArray()
{
    RemoveAllAfterDelete();
}
