#include "interaction/CKPickingHandler.h"

CKPickingHandler::CKPickingHandler() : m_list(new CKPcbElementInfoArray), m_copies(this) {}

CKPickingHandler::CKPickingHandler(const CKPickingHandler& source) : m_list(source.m_list), m_copies(this)
{
    m_copies.Join(source.m_copies);
}

CKPickingHandler& CKPickingHandler::operator=(const CKPickingHandler& source)
{
    // Within itself there is nothing to copy, and joining its own ring would part it from the handlers that share the
    // list.
    if (this == &source)
        return *this;
    m_list = source.m_list;
    m_copies.Join(source.m_copies);
    return *this;
}

CKPickingHandler::~CKPickingHandler()
{
    if (m_copies.IsShared(&CKPickingHandler::m_list))
        return;
    DeleteAllPickingInfoElements();
    delete m_list;
}

CKPainter* CKPickingHandler::GetPainter()
{
    return nullptr;
}

int CKPickingHandler::Picking(CKPcbElementInfoArray*, unsigned int, int, int)
{
    return 0;
}

int CKPickingHandler::Picking(unsigned int flags, int x, int y, int)
{
    return Picking(m_list, flags, x, y);
}

void CKPickingHandler::Unpicking() {}

int CKPickingHandler::IsPick()
{
    return HasRecords() ? 1 : 0;
}

CKPcbElementInfoArray* CKPickingHandler::GetPickingInfoArray()
{
    return m_list;
}

void CKPickingHandler::AddPickingInfo(CKPcbElementInfo* info)
{
    if (info)
        m_list->Add(info);
}

void CKPickingHandler::DeleteAllPickingInfoElements()
{
    if (HasRecords())
        m_list->RemoveAllAfterDelete();
}
