#include "interaction/CKPcbElementInfo.h"

#include "entities/CKEntity.h"

CKPcbElementInfo::~CKPcbElementInfo() = default;

CKPcbElementInfo* CKPcbElementInfo::GenerateClone()
{
    return new CKPcbElementInfo(*this);
}

CKPcbElementInfo CKPcbElementInfo::GenerateEmptyClone()
{
    return {};
}

CKEntity* CKPcbElementInfo::GetChildDetailCKEntity()
{
    // A cross cast: neither class derives from the other, and only the object itself knows whether it is both.
    return dynamic_cast<CKEntity*>(m_childDetail);
}

int CKPcbElementInfo::GetParentObjectNumber()
{
    return m_parent ? m_parent->GetObjectNumber() : 0;
}

int CKPcbElementInfo::GetChildObjectNumber()
{
    return m_child ? m_child->GetObjectNumber() : 0;
}
