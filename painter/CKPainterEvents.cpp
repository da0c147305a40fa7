#include "entities/CKGeomArray.h"
#include "painter/CKPainter.h"

void CKPainter::AddEventObject(CKGeom* shape)
{
    if (!m_eventObjects)
        m_eventObjects = new CKGeomArray;
    m_eventObjects->Add(shape);
}

void CKPainter::DeleteEventObjects()
{
    if (!m_copies.IsShared(&CKPainter::m_eventObjects))
        delete m_eventObjects;
    m_eventObjects = nullptr;
}

void CKPainter::DeleteEventObjectElements()
{
    if (m_eventObjects)
        m_eventObjects->DeleteElements();
}

void CKPainter::DeleteLastEventObject()
{
    // The slot goes first: the shape's destructor must not find itself in the array.
    if (m_eventObjects && !m_eventObjects->IsEmpty())
        m_eventObjects->DeleteAt(static_cast<int>(m_eventObjects->GetUpperBound()));
}

void CKPainter::RemoveLastEventObject()
{
    if (m_eventObjects && !m_eventObjects->IsEmpty())
        m_eventObjects->RemoveAt(m_eventObjects->GetUpperBound());
}
