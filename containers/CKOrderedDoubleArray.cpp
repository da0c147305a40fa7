#include "containers/CKOrderedDoubleArray.h"

#include "containers/ListOps.h"
#include "containers/OrderedLists.h"

CKOrderedDoubleArray::CKOrderedDoubleArray() = default;

CKOrderedDoubleArray::CKOrderedDoubleArray(int ascending) : m_orderAscending(ascending) {}

void CKOrderedDoubleArray::SetOrderAscending(int ascending)
{
    m_orderAscending = ascending;
}

void CKOrderedDoubleArray::AddDouble(double value)
{
    ordered::Insert(*this, value, m_orderAscending);
}

void CKOrderedDoubleArray::RemoveLast()
{
    ordered::RemoveLast(*this);
}

int CKOrderedDoubleArray::IsContain(double value)
{
    return lists::IndexOf(*this, value) >= 0 ? 1 : 0;
}
