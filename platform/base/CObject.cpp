#include "base/CObject.h"

CObject::~CObject() = default;

void CObject::Serialize(CArchive&) {}
