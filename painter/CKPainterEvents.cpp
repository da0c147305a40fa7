// Event objects: temporary shapes of an interaction, such as rubber bands. The painter keeps and frees them, the host
// decides when they are drawn. Copies of a painter share the array, so shapes added through one are seen by all; an
// array that is made after copying belongs to its painter alone.
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
    // Letting go of a shared array is all that one copy can do about it.
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
    // The caller has the pointer already: only the slot goes.
    if (m_eventObjects && !m_eventObjects->IsEmpty())
        m_eventObjects->RemoveAt(m_eventObjects->GetUpperBound());
}
