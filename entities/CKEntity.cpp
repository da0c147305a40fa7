#include "entities/CKEntity.h"

// Not the colour it had before it was picked: that one is not kept.
void CKEntity::Unpicked()
{
    m_picked = false;
    m_pickedColor = kPickedRed;
}

CRectD CKEntity::GetDrawRectD()
{
    return m_area.GetDrawRectD();
}

// Hosts still ask for these switches; they are on for good.
int CKEntity::IsAlphaVersionDFM()
{
    return 1;
}

int CKEntity::IsVersion6Debug()
{
    return 1;
}

void CKEntity::SetAlphaVersionDFM(int /*on*/) {}

void CKEntity::SetVersion6Debug(int /*on*/) {}
