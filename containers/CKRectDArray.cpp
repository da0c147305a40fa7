#include "containers/CKRectDArray.h"

#include "containers/ListOps.h"

CKRectDArray::CKRectDArray() = default;

void CKRectDArray::DeleteElements()
{
    lists::DestroyAll(*this);
    RemoveAll();
}

int CKRectDArray::operator==(const CKRectDArray& other) const
{
    return lists::AreEqual(*this, other) ? 1 : 0;
}
